// What the library asks of the system's clocks. All functions may be called from any thread.
#pragma once

#include <cstdint>

namespace Orlek::Detail {

// A counter that only ever rises, for measuring durations.
std::int64_t performanceCounter();

// Counts of performanceCounter() per second; the same for the life of the process.
std::int64_t performanceFrequency();

// Whole milliseconds since 1970-01-01 UTC.
std::int64_t wallClockMs();

// Processor time that the calling thread has taken, in milliseconds.
std::int64_t threadTimeMs();

// Suspends the calling thread.
void sleepThreadMs(unsigned int ms);

}  // namespace Orlek::Detail
