#pragma once

/// @file
/// A scope timer that prints how long it lived, the wall clock, and sleeping.

#include <cstdint>
#include <string>

#include <Orlek/Export.h>

namespace Orlek::Misc {

/// Prints how long it lived, in milliseconds, when it is destroyed.
///
/// The line on the standard output is the name, " : ", the time with six significant digits and
/// " ms". A copy takes over the start and prints a line of its own.
/// Time that the machine sleeps is not counted. Timers share no state and may be used from any
/// thread.
///
/// @code
/// { Orlek::Misc::Timer timer("load"); loadEverything(); }  // prints "load : 5.06151 ms"
/// @endcode
class ORLEK_EXPORT Timer {
public:
    /// Starts the time.
    /// @param name the label of the line to print.
    explicit Timer(const std::string& name);
    /// Copies the name and the start.
    Timer(const Timer& other);
    /// Copies the name and the start.
    Timer& operator=(const Timer& other);
    /// Stops the time and prints the line.
    ~Timer();

    /// @return the wall-clock time in seconds since 1970-01-01 UTC, with millisecond resolution.
    static double getTime();

private:
    std::int64_t mStart;
    std::int64_t mStop = 0;
    std::string mName;
};

/// Suspends the calling thread.
/// @param ms the time in milliseconds; 0 only gives other threads a turn.
ORLEK_EXPORT void sleepMs(unsigned int ms);

}  // namespace Orlek::Misc
