// The scope timer, the wall clock and sleeping, over the platform's clocks.
#include <Orlek/Misc/Timer.h>

#include "config/NumberText.h"
#include "platform/Clock.h"
#include "platform/Report.h"

namespace Orlek::Misc {

Timer::Timer(const std::string& name) : mStart(Detail::performanceCounter()), mName(name) {}

Timer::Timer(const Timer& other) = default;

Timer& Timer::operator=(const Timer& other) = default;

Timer::~Timer() {
    mStop = Detail::performanceCounter();
    const double elapsedMs = static_cast<double>(mStop - mStart) /
                             static_cast<double>(Detail::performanceFrequency()) * 1000.0;
    Detail::report("%s : %s ms\n", mName.c_str(), Detail::numberText(elapsedMs).c_str());
}

double Timer::getTime() {
    const std::int64_t sinceEpochMs = Detail::wallClockMs();
    const std::int64_t wholeSeconds = sinceEpochMs / 1000;
    return static_cast<double>(wholeSeconds) +
           static_cast<double>(sinceEpochMs - wholeSeconds * 1000) * 0.001;
}

void sleepMs(unsigned int ms) {
    Detail::sleepThreadMs(ms);
}

}  // namespace Orlek::Misc
