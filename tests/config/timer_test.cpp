// The scope timer's line, the wall clock and sleeping.
#include <Orlek/Misc/Timer.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <regex>
#include <string>

#include "support/Capture.h"

namespace {

using Orlek::Misc::sleepMs;
using Orlek::Misc::Timer;
using Milliseconds = std::chrono::duration<double, std::milli>;

TEST(Timer, PrintsHowLongItLivedAndCopiesTakeOverNameAndStart) {
    const auto start = std::chrono::steady_clock::now();
    std::string output = OrlekTest::captureStdout([] {
        const Timer original("load");
        sleepMs(5);
        const Timer copy(original);
        Timer assigned("another");
        assigned = copy;
    });
    const Milliseconds longest = std::chrono::steady_clock::now() - start;
    const std::regex form("load : ([0-9.e+-]+) ms\n");
    for (int line = 0; line < 3; ++line) {
        std::smatch match;
        ASSERT_TRUE(std::regex_search(output, match, form, std::regex_constants::match_continuous))
            << output;
        EXPECT_GE(std::stod(match[1]), 5.0);
        EXPECT_LE(std::stod(match[1]), longest.count());
        output = match.suffix();
    }
    EXPECT_EQ(output, "");
}

TEST(Timer, WallClockIsInWholeMilliseconds) {
    const auto systemMs = [] {
        return Milliseconds(std::chrono::system_clock::now().time_since_epoch()).count();
    };
    const double before = systemMs();
    const double time = Timer::getTime() * 1000.0;
    EXPECT_GE(time, before - 1.0);
    EXPECT_LE(time, systemMs() + 0.001);
    // Doubles near 2e9 are 2.4e-7 apart, so whole milliseconds are whole to within 0.001.
    EXPECT_NEAR(time, std::round(time), 0.001);
}

}  // namespace
