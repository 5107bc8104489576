// The moving map as a user runs it, in a folder of its own. PROGRAM is its path.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "Png.h"
#include "support/TempDir.h"

namespace OrlekTest {

using OrlekSupport::Image;
struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

inline std::string contents(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

class MovingMapRun : public testing::Test {
protected:
    MovingMapRun() { std::filesystem::create_directory(mDir.path("tiles")); }

    Outcome run(const std::string& arguments, const std::string& before = "") const {
        const std::string command = before + " '" PROGRAM "' " + arguments + " >" +
                                    mDir.path("out") + " 2>" + mDir.path("err");
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), contents(mDir.path("out")), contents(mDir.path("err"))};
    }

    // Draws a picture of 640 x 480 and reads it.
    Image draw(const std::string& arguments) const {
        const std::string path = mDir.path("map.png");
        const Outcome outcome = run("--width 640 --height 480 --out " + path + " " + arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_NE(outcome.out.find(path), std::string::npos) << outcome.out;
        return OrlekSupport::readPng(path);
    }

    // A screen in memory.
    static bool hasScreen() {
        return std::system("command -v xvfb-run >/dev/null && command -v xauth >/dev/null") == 0;
    }

    Outcome runInWindow(const std::string& arguments) const {
        return run("--window --width 400 --height 300 " + arguments,
                   // The GLX libraries that GLFW unloads at the end keep some bytes.
                   "ASAN_OPTIONS=detect_leaks=0 timeout 60 xvfb-run -a");
    }

    const TempDir mDir;
    const std::string mNoTiles = " --tiles " + mDir.path("tiles") + " ";
};

}  // namespace OrlekTest
