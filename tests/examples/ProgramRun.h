// A program as a user runs it, in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Png.h"
#include "support/TempDir.h"
#include "support/WholeText.h"

namespace OrlekTest {

using OrlekSupport::Image;

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

class ProgramRun : public testing::Test {
protected:
    ProgramRun() { std::filesystem::create_directory(mDir.path("tiles")); }

    /// @param command the program's path and what it gets, for a shell
    Outcome run(const std::string& command) const {
        const std::string said = mDir.path("said" + std::to_string(++mRuns));
        const int status = std::system((command + " >" + said + " 2>" + said + ".err").c_str());
        return {WEXITSTATUS(status), wholeText(said), wholeText(said + ".err")};
    }

    static std::vector<std::string> words(const std::string& line) {
        std::istringstream stream(line);
        return {std::istream_iterator<std::string>(stream), {}};
    }

    /// What a command draws that must succeed and have nothing to complain about.
    Image draw(const std::string& command) const {
        const std::string path = mDir.path("drawn" + std::to_string(++mRuns) + ".png");
        const Outcome outcome = run(command + " --out " + path);
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_EQ(outcome.err, "") << command;
        EXPECT_NE(outcome.out.find(path + "\n"), std::string::npos) << outcome.out;
        EXPECT_EQ(outcome.out.find("Error <"), std::string::npos) << outcome.out;
        EXPECT_EQ(outcome.out.find("failed"), std::string::npos) << outcome.out;
        return OrlekSupport::readPng(path);
    }

    /// Each command must fail with one line on the error stream that says so much.
    void expectRefusals(const std::vector<std::pair<std::string, std::string>>& rows) const {
        for (const auto& [command, says] : rows) {
            const Outcome outcome = run(command);
            EXPECT_EQ(outcome.status, 1) << command;
            EXPECT_NE(outcome.err.find(says), std::string::npos) << outcome.err;
            EXPECT_EQ(outcome.err.rfind("orlek-", 0), 0U) << outcome.err;
            EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        }
    }

    /// On a screen in memory.
    Outcome runInWindow(const std::string& command) const {
        // The GLX libraries that GLFW unloads at the end keep some bytes.
        return run("ASAN_OPTIONS=detect_leaks=0 " + mScreen + command + " --window");
    }
    static bool hasScreen() {
        return std::system("command -v xvfb-run >/dev/null && command -v xauth >/dev/null") == 0;
    }
    static constexpr const char* noScreen = "no xvfb-run (packages xvfb, xauth): no window is seen";

    /// A screen for one program. Without -noreset the server signals that it is ready once more
    /// when the program ends, and now and then breaks off what xvfb-run does then.
    static inline const std::string mScreen =
        "timeout 60 xvfb-run -a -s '-screen 0 1280x1024x24 -noreset' ";

    const TempDir mDir;
    const std::string mNoTiles = " --tiles " + mDir.path("tiles") + " ";

private:
    mutable std::atomic<int> mRuns = 0;
};

}  // namespace OrlekTest
