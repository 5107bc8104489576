// The program as a user runs it: pictures looked at pixel by pixel, and what it says when it
// cannot draw.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "MovingMapRun.h"
#include "support/DataDir.h"

namespace {

using OrlekSupport::Image;
using OrlekTest::MovingMapRun;
using OrlekTest::Outcome;
using Colour = std::array<int, 4>;

class OverTheBuiltTile : public MovingMapRun {
protected:
    void SetUp() override {
        if (!HAS_TILE) {
            GTEST_SKIP() << "no elevation model (package python-matplotlib-data): pictures over "
                            "the built tile are not checked";
        }
    }
};

bool isMagenta(const Colour& pixel) {
    return pixel[0] > 200 && pixel[1] < 80 && pixel[2] > 180;
}

bool isFlownMagenta(const Colour& pixel) {
    return pixel[0] > pixel[1] + 60 && pixel[2] > pixel[1] + 50 && pixel[0] < 200;
}

/// Of rows 250 to 500, every `step` pixels.
std::set<Colour> coloursOf(const Image& image, int width, int step) {
    std::set<Colour> colours;
    for (int y = 250; y < 500; y += step) {
        for (int x = 0; x < width; x += step) {
            colours.insert(image.at(x, y));
        }
    }
    return colours;
}

// The middle of the map: above the two rows of figures.
constexpr int middleX = 320;
constexpr int middleY = (480 - 88) / 2;

TEST_F(OverTheBuiltTile, drawsReliefWithoutOptions) {
    const std::string path = mDir.path("map.png");
    ASSERT_EQ(run("--out " + path).status, 0);
    const Image image = OrlekSupport::readPng(path);
    ASSERT_EQ(image.width, 1280);
    ASSERT_EQ(image.height, 800);
    EXPECT_GT(coloursOf(image, 1280, 5).size(), 1000U) << "no shaded relief";
}

TEST_F(OverTheBuiltTile, routeLiesWhereTheMapPutsIt) {
    // From south to north through the middle of the tile.
    const std::string route =
        mDir.write("north.txt", "S,36.25,-84.25,flyby\nN,36.35,-84.25,flyby\n");
    const struct {
        std::string options;
        int aheadX, aheadY;
    } cases[] = {{"", 0, -60}, {" --heading 90 --headingup", -60, 0}};
    for (const auto& [options, x, y] : cases) {
        const Image image = draw("--along 3 --route " + route + options);
        EXPECT_TRUE(isMagenta(image.at(middleX + x, middleY + y))) << options;
        EXPECT_TRUE(isFlownMagenta(image.at(middleX - x, middleY - y))) << options;
        EXPECT_FALSE(isMagenta(image.at(middleX + x + 20, middleY + y + 20))) << options;
    }
}

// A square around the aircraft and beside it, once plain, once with airspace or a map there.
TEST_F(OverTheBuiltTile, airspaceAndMapImageLieOverTheRelief) {
    const std::string at = "--lat 36.3 --lon -84.25 --heading 0 ";
    const Image plain = draw(at + "--airspace none");
    const Image filled =
        draw(at + "--airspace " +
             mDir.write("a.txt",
                        "airspace,A,restricted,GND,FL95\npoint,36.27,-84.28\n"
                        "point,36.33,-84.28\npoint,36.33,-84.22\npoint,36.27,-84.22\n"));
    OrlekSupport::Image blue(1, 1);
    blue.rgba = {0, 0, 255, 255};
    OrlekSupport::writePng(mDir.path("blue.png"), blue);
    const Image mapped = draw(at + "--airspace none --map-share 1 --map-image " +
                              mDir.path("blue.png") + " --map-bounds 36.27,-84.28,36.33,-84.22");
    const auto sum = [](const Image& image, int x, int y, std::size_t channel) {
        int total = 0;
        for (int i = 0; i < 64; ++i) {
            total += image.at(middleX + x + i % 8, middleY + y + i / 8)[channel];
        }
        return total / 64;
    };
    EXPECT_LT(sum(filled, 30, 30, 2), sum(plain, 30, 30, 2) - 10) << "tinted red";
    EXPECT_GT(sum(mapped, 30, 30, 2), 100);
    EXPECT_LT(sum(mapped, 30, 30, 0), 20);
    for (const Image& other : {filled, mapped}) {
        for (const std::size_t channel : {0U, 1U, 2U}) {
            EXPECT_NEAR(sum(other, 90, 30, channel), sum(plain, 90, 30, channel), 1);
        }
    }
}

TEST_F(OverTheBuiltTile, framesAreNumberedAndDiffer) {
    ASSERT_EQ(run("--frames 3 --width 320 --height 240 --out " + mDir.path("map.png")).status, 0);
    const auto frame = [&](const char* name) {
        return OrlekSupport::readPng(mDir.path(name)).rgba;
    };
    EXPECT_TRUE(frame("map-1.png") != frame("map-2.png"));
    EXPECT_TRUE(frame("map-2.png") != frame("map-3.png"));
}

TEST_F(MovingMapRun, missingTerrainIsHatched) {
    const std::string path = mDir.path("map.png");
    const Outcome outcome = run("--out " + path + mNoTiles);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("hatched"), std::string::npos);
    const std::set<Colour> colours = coloursOf(OrlekSupport::readPng(path), 60, 1);
    EXPECT_TRUE(colours.contains({74, 78, 86, 255}));
    EXPECT_TRUE(colours.contains({112, 116, 124, 255}));
}

TEST_F(MovingMapRun, seaIsWater) {
    const std::string tiles = OrlekTest::terrainDir();
    if (tiles.empty()) {
        GTEST_SKIP() << "no real elevation tiles: water at the coast is not checked";
    }
    const Image image = draw("--tiles '" + tiles + "' --lat 43.60 --lon 7.35 --heading 0");
    int water = 0;
    for (int i = 0; i < 100; ++i) {
        const auto pixel = image.at(middleX + 90 + i % 10, middleY + 30 + i / 10);
        water += pixel == Colour{118, 160, 196, 255} ? 1 : 0;
    }
    EXPECT_GT(water, 50);  // A line of the graticule may run through.
}

TEST_F(MovingMapRun, saysInOneLineWhatIsMissing) {
    const std::string route = mDir.write("bad.txt", "A,36.2,-84.2,flyby\nB,36.3,flyby\n");
    const std::pair<std::string, const char*> cases[] = {
        {"--nonsense", "--help"},
        {"--width wide", "--width: 'wide'"},
        {"--height 0", "--height: '0'"},
        {"--range -1", "--range: '-1'"},
        {"--lat 43", "--lat and --lon"},
        {"--tiles /nowhere", "no directory of elevation tiles: /nowhere"},
        {"--route /nowhere.txt", "/nowhere.txt"},
        {"--route " + route, "bad.txt:2: expected name"},
        {"--airspace /nowhere.txt", "no airspace file"},
        {"--airspace " + route, "bad.txt:1: expected airspace"},
        {"--map-image /nowhere.png", "/nowhere.png"},
        {"--map-image " + route, "bad.txt"},
        {"--map-image x.png --map-bounds 1,2,3", "expected south,west,north,east"},
        {"--map-share 2", "--map-share: '2'"},
        {"--font /nowhere.ttf" + mNoTiles, "/nowhere.ttf"},
        {"--font " + route + mNoTiles, "bad.txt"},
        {"--out /nowhere/map.png" + mNoTiles, "cannot write /nowhere/map.png"},
        {"--window" + mNoTiles, "cannot open a window"},
    };
    for (const auto& [arguments, says] : cases) {
        const Outcome outcome =
            run(arguments, "env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR=" + mDir.path());
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_NE(outcome.err.find(says), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.err.rfind("orlek-movingmap: ", 0), 0U) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    }
}

TEST_F(MovingMapRun, opensAWindow) {
    if (!hasScreen()) {
        GTEST_SKIP() << "no xvfb-run (packages xvfb, xauth): the window is not opened";
    }
    const Outcome outcome = runInWindow("--frames 5" + mNoTiles);
    EXPECT_EQ(outcome.status, 0) << outcome.err << outcome.out;
}

}  // namespace
