// Runs a scenario again and again while one call of it after the other fails.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <span>
#include <string>

#include "Faults.h"
#include "support/Capture.h"
#include "support/Heap.h"
#include "support/OpenFiles.h"

namespace OrlekTest {

/// What came of a scenario: `wrong` when a result is neither right nor the failure that the call
/// names.
enum class Came { wrong, failed, done };

inline Came came(bool done, bool failed) {
    return done ? Came::done : failed ? Came::failed : Came::wrong;
}

inline void nothing() {}

inline bool always() {
    return true;
}

/// What a scenario does while a call fails.
struct Scenario {
    const char* name;
    void (*before)();      ///< makes what the scenario needs; nothing fails yet
    Came (*act)();         ///< keeps nothing that it allocates
    bool (*after)();       ///< whether what is left on the disk is whole
    bool mayLose = false;  ///< memory, where a library below does
};

/// One run, the call of that number failing. The first run may keep what is made once.
/// @param[out] result what came of it
/// @return whether there was a call of that number.
inline bool runWithFault(const Scenario& scenario, FaultKind kind, long number, Came& result,
                         bool isFirst = false) {
    scenario.before();
    const auto files = openFiles();
    const long blocks = liveBlocks();
    result = Came::failed;
    armFault(kind, number);
    try {
        result = scenario.act();
    } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): a failure it may name
    }
    const bool struck = disarmFault();
    const long lost = liveBlocks() - blocks;
    const char* const call = kind == FaultKind::system && struck ? failedCall() : "";
    EXPECT_NE(result, Came::wrong) << scenario.name << ": call " << number << " " << call;
    EXPECT_TRUE(scenario.after()) << scenario.name << ": call " << number << " " << call;
    EXPECT_EQ(openFiles(), files) << scenario.name << ": call " << number << " " << call;
    if (!isFirst && !scenario.mayLose) {
        EXPECT_LE(lost, 0) << scenario.name << ": call " << number << " " << call;
    }
    return struck;
}

/// Fails each call of a scenario in turn, and ends with a run in which none fails. Before, it must
/// have worked. What the library prints meanwhile is shown only if a check fails.
/// @return how many calls there are.
inline long sweep(const Scenario& scenario, FaultKind kind) {
    constexpr long never = 1'000'000'000;
    long number = 0;
    const std::string printed = captureStdout([&] {
        captureStderr([&] {
            Came result = Came::failed;
            for (int i = 0; i < 10 && result != Came::done; ++i) {  // for a machine that stalls
                runWithFault(scenario, kind, never, result, true);
            }
            EXPECT_EQ(result, Came::done) << scenario.name;
            while (!testing::Test::HasFailure() && runWithFault(scenario, kind, ++number, result)) {
            }
        });
    });
    if (testing::Test::HasFailure()) {
        std::fputs(printed.c_str(), stdout);
    }
    return number - 1;
}

/// Sweeps scenarios with failing allocations and failing system calls. How many there are of both
/// is printed when the environment has an ORLEK_TORTURE_TABLE.
inline void torture(std::span<const Scenario> scenarios) {
    const bool asked = std::getenv("ORLEK_TORTURE_TABLE") != nullptr;
    for (const Scenario& scenario : scenarios) {
        const long allocations = sweep(scenario, FaultKind::allocation);
        const long calls = sweep(scenario, FaultKind::system);
#ifndef ORLEK_SANITIZED  // where no allocation fails
        EXPECT_GT(allocations, 0) << scenario.name << ": nothing failed";
#endif
        if (asked) {
            std::printf("%-20s %5ld allocations %5ld system calls\n", scenario.name, allocations,
                        calls);
        }
    }
}

}  // namespace OrlekTest
