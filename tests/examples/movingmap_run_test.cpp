// The program as a user runs it: pictures looked at pixel by pixel, and what it says when it
// cannot draw.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "Png.h"
#include "support/DataDir.h"
#include "support/TempDir.h"

namespace {

using OrlekSupport::Image;

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

std::string contents(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

class MovingMapRun : public testing::Test {
protected:
    Outcome run(const std::string& arguments, const std::string& before = "") const {
        const std::string command = before + " " PROGRAM " " + arguments + " >" + mDir.path("out") +
                                    " 2>" + mDir.path("err");
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

    // A route from south to north through the middle of the built tile.
    std::string northward() const {
        return mDir.write("north.txt", "S,36.25,-84.25,flyby\nN,36.35,-84.25,flyby\n");
    }

    OrlekTest::TempDir mDir;
};

bool isMagenta(const std::array<int, 4>& pixel) {
    return pixel[0] > 200 && pixel[1] < 80 && pixel[2] > 180;
}

bool isFlownMagenta(const std::array<int, 4>& pixel) {
    return pixel[0] > pixel[1] + 60 && pixel[2] > pixel[1] + 50 && pixel[0] < 200;
}

// The middle of the map: above the two rows of figures.
constexpr int middleX = 320;
constexpr int middleY = (480 - 88) / 2;

#define SKIP_WITHOUT_TILE()                                                                   \
    if (!HAS_TILE) {                                                                          \
        GTEST_SKIP() << "no elevation model (package python-matplotlib-data): pictures over " \
                        "the built tile are not checked";                                     \
    }

TEST_F(MovingMapRun, drawsReliefWithoutOptions) {
    SKIP_WITHOUT_TILE();
    const std::string path = mDir.path("map.png");
    ASSERT_EQ(run("--out " + path).status, 0);
    const Image image = OrlekSupport::readPng(path);
    ASSERT_EQ(image.width, 1280);
    ASSERT_EQ(image.height, 800);
    std::set<std::array<int, 4>> colours;
    for (int y = 250; y < 500; y += 5) {
        for (int x = 0; x < 1280; x += 5) {
            colours.insert(image.at(x, y));
        }
    }
    EXPECT_GT(colours.size(), 1000U) << "no shaded relief";
}

TEST_F(MovingMapRun, routeLiesWhereTheMapPutsIt) {
    SKIP_WITHOUT_TILE();
    const Image image = draw("--along 3 --route " + northward());
    EXPECT_TRUE(isMagenta(image.at(middleX, middleY - 60)));
    EXPECT_TRUE(isFlownMagenta(image.at(middleX, middleY + 60)));
    EXPECT_FALSE(isMagenta(image.at(middleX + 20, middleY - 60)));
    EXPECT_FALSE(isMagenta(image.at(middleX - 20, middleY - 60)));
}

TEST_F(MovingMapRun, headingUpTurnsTheMap) {
    SKIP_WITHOUT_TILE();
    const Image image = draw("--along 3 --heading 90 --headingup --route " + northward());
    EXPECT_TRUE(isMagenta(image.at(middleX - 60, middleY)));
    EXPECT_TRUE(isFlownMagenta(image.at(middleX + 60, middleY)));
}

TEST_F(MovingMapRun, missingTerrainIsHatched) {
    std::filesystem::create_directory(mDir.path("tiles"));
    const std::string path = mDir.path("map.png");
    const Outcome outcome = run("--out " + path + " --tiles " + mDir.path("tiles"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("hatched"), std::string::npos);
    const Image image = OrlekSupport::readPng(path);
    std::set<std::array<int, 4>> colours;
    for (int x = 0; x < 60; ++x) {
        colours.insert(image.at(x, 400));
    }
    EXPECT_TRUE(colours.contains({74, 78, 86, 255}));
    EXPECT_TRUE(colours.contains({112, 116, 124, 255}));
}

TEST_F(MovingMapRun, seaIsWater) {
    const std::string tiles = OrlekTest::terrainDir();
    if (tiles.empty()) {
        GTEST_SKIP() << "no real elevation tiles: water at the coast is not checked";
    }
    const Image image = draw("--tiles " + tiles + " --lat 43.60 --lon 7.35 --heading 0");
    int water = 0;
    for (int i = 0; i < 100; ++i) {
        const auto pixel = image.at(middleX + 90 + i % 10, middleY + 30 + i / 10);
        water += pixel == std::array<int, 4>{118, 160, 196, 255} ? 1 : 0;
    }
    EXPECT_GT(water, 50);  // A line of the graticule may run through.
}

TEST_F(MovingMapRun, framesAreNumberedAndDiffer) {
    SKIP_WITHOUT_TILE();
    const Outcome outcome = run("--frames 3 --width 320 --height 240 --out " + mDir.path("f.png"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const Image first = OrlekSupport::readPng(mDir.path("f-1.png"));
    const Image second = OrlekSupport::readPng(mDir.path("f-2.png"));
    const Image third = OrlekSupport::readPng(mDir.path("f-3.png"));
    EXPECT_TRUE(first.rgba != second.rgba);
    EXPECT_TRUE(second.rgba != third.rgba);
}

TEST_F(MovingMapRun, saysInOneLineWhatIsMissing) {
    const std::string route = mDir.write("bad.txt", "A,36.2,-84.2,flyby\nB,36.3,flyby\n");
    std::filesystem::create_directory(mDir.path("tiles"));
    const std::string tiles = " --tiles " + mDir.path("tiles") + " ";
    const struct {
        std::string arguments;
        const char* says;
    } cases[] = {
        {"--nonsense", "--help"},
        {"--width wide", "--width: 'wide'"},
        {"--height 0", "--height: '0'"},
        {"--range -1", "--range: '-1'"},
        {"--lat 43", "--lat and --lon"},
        {"--tiles /nowhere", "no directory of elevation tiles: /nowhere"},
        {"--route /nowhere.txt", "/nowhere.txt"},
        {"--route " + route, "bad.txt:2: expected name"},
        {"--font /nowhere.ttf" + tiles, "/nowhere.ttf"},
        {"--font " + route + tiles, "bad.txt"},
        {"--out /nowhere/map.png" + tiles, "cannot write /nowhere/map.png"},
        {"--window" + tiles, "cannot open a window"},
    };
    for (const auto& bad : cases) {
        const Outcome outcome =
            run(bad.arguments, "env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR=" + mDir.path());
        EXPECT_EQ(outcome.status, 1) << bad.arguments;
        EXPECT_NE(outcome.err.find(bad.says), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.err.rfind("orlek-movingmap: ", 0), 0U) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    }
}

TEST_F(MovingMapRun, opensAWindow) {
    if (std::system("command -v xvfb-run >/dev/null && command -v xauth >/dev/null") != 0) {
        GTEST_SKIP() << "no xvfb-run (packages xvfb, xauth): the window is not opened";
    }
    std::filesystem::create_directory(mDir.path("tiles"));
    const Outcome outcome =
        run("--window --frames 5 --width 400 --height 300 --tiles " + mDir.path("tiles"),
            // The GLX libraries that GLFW unloads at the end keep some bytes.
            "ASAN_OPTIONS=detect_leaks=0 timeout 60 xvfb-run -a");
    EXPECT_EQ(outcome.status, 0) << outcome.err << outcome.out;
}

}  // namespace
