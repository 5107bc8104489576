// The scope timer's line, the wall clock and sleeping.
#include <Orlek/Misc/Timer.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "support/Capture.h"

namespace {

using Orlek::Misc::sleepMs;
using Orlek::Misc::Timer;
using OrlekTest::captureStdout;

// The times of the lines that the timer "load" printed; a line of another form gives -1.
std::vector<double> timesIn(const std::string& output) {
    std::vector<double> times;
    std::istringstream lines(output);
    const std::regex form("load : ([0-9.e+-]+) ms");
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        times.push_back(std::regex_match(line, match, form) ? std::stod(match[1]) : -1.0);
    }
    return times;
}

TEST(Timer, PrintsHowLongItLived) {
    const auto start = std::chrono::steady_clock::now();
    const std::string output = captureStdout([] {
        const Timer timer("load");
        sleepMs(5);
    });
    const std::chrono::duration<double, std::milli> longest =
        std::chrono::steady_clock::now() - start;
    const auto times = timesIn(output);
    ASSERT_EQ(times.size(), 1U) << output;
    EXPECT_EQ(output.back(), '\n');
    EXPECT_GE(times[0], 5.0);
    EXPECT_LE(times[0], longest.count());
}

TEST(Timer, CopiesTakeOverNameAndStart) {
    const std::string output = captureStdout([] {
        std::optional<Timer> original(std::in_place, "load");
        sleepMs(5);
        Timer copy(*original);
        Timer assigned("another");
        assigned = copy;
    });
    const auto times = timesIn(output);
    ASSERT_EQ(times.size(), 3U) << output;
    for (const double time : times)
        EXPECT_GE(time, 5.0);
}

TEST(Timer, WallClockIsInWholeMilliseconds) {
    const auto systemSeconds = [] {
        using Seconds = std::chrono::duration<double>;
        return Seconds(std::chrono::system_clock::now().time_since_epoch()).count();
    };
    const double before = systemSeconds();
    const double time = Timer::getTime();
    EXPECT_GE(time, before - 0.001);
    EXPECT_LE(time, systemSeconds());
    // Doubles near 2e9 are 2.4e-7 apart, so whole milliseconds are whole to within 0.001.
    EXPECT_NEAR(time * 1000.0, std::round(time * 1000.0), 0.001);
}

}  // namespace
