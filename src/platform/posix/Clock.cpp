// The clocks, from the standard library where it has them.
#include "platform/Clock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace Orlek::Detail {

std::int64_t performanceCounter() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

std::int64_t performanceFrequency() {
    using Period = std::chrono::steady_clock::period;
    return Period::den / Period::num;
}

std::int64_t wallClockMs() {
    using std::chrono::milliseconds;
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::floor<milliseconds>(sinceEpoch).count();
}

std::int64_t threadTimeMs() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::int64_t{1000} * time.tv_sec + time.tv_nsec / 1'000'000;
}

void sleepThreadMs(unsigned int ms) {
    if (ms == 0)
        std::this_thread::yield();
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

}  // namespace Orlek::Detail
