// The moving map as a user runs it: pictures looked at pixel by pixel, and what it says when it
// cannot draw.
#include <array>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "ProgramRun.h"
#include "support/DataDir.h"

namespace {

using OrlekTest::Image;
using Colour = std::array<int, 4>;

class MovingMapRun : public OrlekTest::ProgramRun {
protected:
    const std::string mMap = PROGRAM " --width 640 --height 480 ";
};

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

/// Of the rows between, every `step` pixels.
std::set<Colour> coloursOf(const Image& image, int from, int to, int width, int step) {
    std::set<Colour> colours;
    for (int y = from; y < to; y += step) {
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
    const Image image = draw(PROGRAM);
    EXPECT_EQ(std::pair(image.width, image.height), std::pair(1280, 800));
    EXPECT_GT(coloursOf(image, 250, 500, 1280, 5).size(), 1000U) << "no shaded relief";
}

// A route from south to north through the middle of the tile; airspace east of it and a map west.
TEST_F(OverTheBuiltTile, routeAirspaceAndMapImageLieOverTheRelief) {
    const std::string route =
        mMap + "--along 3 --route " +
        mDir.write("north.txt", "S,36.25,-84.25,flyby\nN,36.35,-84.25,flyby\n");
    const Image plain = draw(route + " --airspace none");
    const Image turned = draw(route + " --airspace none --heading 90 --headingup");
    for (const auto& [image, x, y] : {std::tuple{&plain, 0, -60}, {&turned, -60, 0}}) {
        EXPECT_TRUE(isMagenta(image->at(middleX + x, middleY + y))) << x;
        EXPECT_TRUE(isFlownMagenta(image->at(middleX - x, middleY - y))) << x;
        EXPECT_FALSE(isMagenta(image->at(middleX + x + 20, middleY + y + 20))) << x;
    }
    Image flag(1, 2);  // blue above, red below
    flag.rgba = {0, 0, 255, 255, 255, 0, 0, 255};
    OrlekSupport::writePng(mDir.path("flag.png"), flag);
    const Image laid =
        draw(route + " --map-share 1 --map-image " + mDir.path("flag.png") +
             " --map-bounds 36.27,-84.28,36.33,-84.251 --airspace " +
             mDir.write("a.txt",
                        "airspace,A,restricted,GND,FL95\npoint,36.27,-84.249\n"
                        "point,36.33,-84.249\npoint,36.33,-84.22\npoint,36.27,-84.22\n"));
    const auto mean = [](const Image& image, int x, int y, std::size_t channel) {
        int total = 0;
        for (int i = 0; i < 64; ++i) {
            total += image.at(middleX + x + i % 8, middleY + y + i / 8)[channel];
        }
        return total / 64;
    };
    EXPECT_LT(mean(laid, 30, 30, 2), mean(plain, 30, 30, 2) - 10) << "tinted red";
    EXPECT_GT(mean(laid, -40, -48, 2), 100);
    EXPECT_LT(mean(laid, -40, -48, 0), 20);
    EXPECT_GT(mean(laid, -40, 40, 0), 100);
    EXPECT_LT(mean(laid, -40, 40, 2), 20);
    for (const auto& [x, y] : {std::pair{90, 30}, {-98, 30}, {-40, 70}}) {
        for (const std::size_t channel : {0U, 1U, 2U}) {
            EXPECT_NEAR(mean(laid, x, y, channel), mean(plain, x, y, channel), 1) << x;
        }
    }
}

TEST_F(MovingMapRun, framesAreNumberedAndDifferAndMissingTerrainIsHatched) {
    const auto outcome = run(mMap + "--frames 3 --out " + mDir.path("map.png") + mNoTiles);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("hatched"), std::string::npos) << outcome.out;
    std::set<std::vector<std::uint8_t>> frames;
    for (const char* const name : {"map-1.png", "map-2.png", "map-3.png"}) {
        const Image frame = OrlekSupport::readPng(mDir.path(name));
        frames.insert(frame.rgba);
        const std::set<Colour> colours = coloursOf(frame, 150, 380, 60, 1);
        EXPECT_TRUE(colours.contains({74, 78, 86, 255}));
        EXPECT_TRUE(colours.contains({112, 116, 124, 255}));
    }
    EXPECT_EQ(frames.size(), 3U);
}

TEST_F(MovingMapRun, seaIsWater) {
    const std::string tiles = OrlekTest::terrainDir();
    if (tiles.empty()) {
        GTEST_SKIP() << "no real elevation tiles: water at the coast is not checked";
    }
    const Image image = draw(mMap + "--tiles '" + tiles + "' --lat 43.60 --lon 7.35 --heading 0");
    int water = 0;
    for (int i = 0; i < 100; ++i) {
        const auto pixel = image.at(middleX + 90 + i % 10, middleY + 30 + i / 10);
        water += pixel == Colour{118, 160, 196, 255} ? 1 : 0;
    }
    EXPECT_GT(water, 50);  // A line of the graticule may run through.
}

TEST_F(MovingMapRun, saysInOneLineWhatIsMissing) {
    const std::string route = mDir.write("bad.txt", "A,36.2,-84.2,flyby\nB,36.3,flyby\n");
    std::vector<std::pair<std::string, std::string>> rows = {
        {"--nonsense", "--help"},
        {"--fetch http://127.0.0.1/a.png", "--fetch needs a URL and a FILE"},
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
    for (auto& [command, says] : rows) {
        command.insert(0, "env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR=" + mDir.path() +
                              " " PROGRAM " ");
    }
    expectRefusals(rows);
}

}  // namespace
