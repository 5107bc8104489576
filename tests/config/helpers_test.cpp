// The recursive lock, splitting a text at separators, the scope timer's line and the wall clock.
#include <Orlek/Misc/Mutex.h>
#include <Orlek/Misc/StringHelpers.h>
#include <Orlek/Misc/Timer.h>
#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cmath>
#include <regex>
#include <string>
#include <thread>

#include "support/Capture.h"

namespace {

using namespace Orlek::Misc;
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

// Whether another thread can take the lock at once; it is given back.
bool freeForOthers(Mutex& mutex) {
    bool taken = false;
    std::thread([&] {
        taken = mutex.rawMutex().try_lock();
        if (taken) {
            mutex.unlock();
        }
    }).join();
    return taken;
}

TEST(Mutex, IsRecursiveAndCopiesHaveLocksOfTheirOwn) {
    Mutex mutex;
    mutex.lock();
    mutex.lock();
    mutex.init();
    Mutex copy(mutex);
    EXPECT_TRUE(freeForOthers(copy));
    copy.lock();
    mutex = copy;  // leaves both locks as they are
    copy.unlock();
    EXPECT_TRUE(freeForOthers(copy));
    mutex.unlock();
    EXPECT_FALSE(freeForOthers(mutex)) << "taken twice, given back once";
    mutex.unlock();
    EXPECT_TRUE(freeForOthers(mutex));

    mutex.lock();
    bool released = false;
    std::thread other([&] {
        mutex.lock();
        EXPECT_TRUE(released) << "the thread did not wait";
        mutex.unlock();
    });
    sleepMs(20);
    released = true;
    mutex.unlock();
    other.join();
}

TEST(StringHelpers, CountAndSections) {
    const struct {
        std::string text, separators;
        unsigned int count;
        int first, last;
        std::string section;
    } rows[] = {
        {"a.b.c", ".", 2, 0, 0, "a"},
        {"a.b.c", ".", 2, -1, -1, "c"},
        {"a.b.c", ".", 2, -2, 7, "b.c"},
        {"a.b.c", ".", 2, 2, 0, "c"},  // last raised to first
        {"a.b.c", ".", 2, 5, 5, ""},
        {"a.b.c", ".", 2, INT_MIN, INT_MAX, "a.b.c"},
        {"a/b/c", "/", 2, 0, -1, "a.b.c"},  // joined by a dot whatever the separator
        {"a..b", ".", 2, 0, -1, "a..b"},
        {".", ".", 1, -1, -1, ""},
        {"abc", ".", 0, 0, 0, "abc"},
        {"a.b", "", 0, 0, 0, "a.b"},
        {"ab;cd,ef", ";,", 2, 0, -1, "ab.d.f"},  // one more character is passed over
        {"x;", ";,", 1, 0, -1, "x."},            // the text ends within what is passed over
        {"x;,;y", ";,", 2, 0, -1, "x.."},
        {std::string("a\0b", 3), std::string("\0", 1), 1, 1, 1, "b"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(StringCount(row.text, row.separators), row.count) << row.text;
        EXPECT_EQ(StringSection(row.text, row.separators, row.first, row.last), row.section)
            << row.text << " " << row.first << " to " << row.last;
    }
}

}  // namespace
