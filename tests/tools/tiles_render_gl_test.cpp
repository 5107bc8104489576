// Pictures that orlek-tiles draws, looked at pixel by pixel.
#include "Png.h"
#include "terrain/TileFiles.h"
#include "tools/ToolRun.h"

namespace {

using namespace OrlekTest;
using OrlekSupport::Image;
using OrlekSupport::readPng;
using Pixel = std::array<int, 4>;

constexpr Pixel sea{118, 160, 196, 255};

bool isHatch(const Pixel& pixel) {
    return pixel == Pixel{112, 116, 124, 255} || pixel == Pixel{74, 78, 86, 255};
}

int brightness(const Pixel& pixel) {
    return pixel[0] + pixel[1] + pixel[2];
}

/// A tile over a whole cell, with posts at its quarters.
void writeTile(const TempDir& dir, int lat, int lon, const Elevation& elevation) {
    DtedLabel label = dtedLabelAt(lat, lon);
    label.numLat = label.numLon = "0005";
    dir.write(std::to_string(lat) + "-" + std::to_string(lon) + ".DT1", dtedFile(label, elevation));
}

class TilesRender : public testing::Test {
protected:
    ToolRun render(const std::string& options) {
        return runTiles("render " + dir.path() + " --out " + out + " " + options);
    }

    const TempDir dir;
    const TempDir pictures;
    const std::string out = pictures.path("a.png");
};

TEST_F(TilesRender, PutsEachTileWhereItLies) {
    writeTile(dir, 1, 20, [](int, int) { return 600; });  // north-west
    writeTile(dir, 0, 20, [](int, int) { return 0; });    // south-west
    writeTile(dir, 0, 21, [](int, int j) { return 100 + 3000 * (2 - std::abs(j - 2)); });
    const ToolRun run = render("--width 200");
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out, out + "\t200x200\n");
    EXPECT_EQ(run.err, "orlek-tiles: where the picture is hatched there is no elevation data\n");
    const Image all = readPng(out);
    EXPECT_EQ(all.at(20, 30), all.at(80, 70)) << "one height, one colour";
    EXPECT_NE(all.at(20, 30), sea);
    EXPECT_EQ(all.at(20, 180), sea);
    EXPECT_TRUE(isHatch(all.at(150, 50))) << "no tile is not sea";
    EXPECT_GT(brightness(all.at(125, 150)), brightness(all.at(175, 150)) + 50)
        << "the light comes from the north-west";

    EXPECT_EQ(render("--south 0.5 --north 0.75 --west 20.5 --east=21 --width 64").code, 0);
    const Image part = readPng(out);
    EXPECT_EQ(std::pair(part.width, part.height), std::pair(64, 32));
    EXPECT_EQ(part.at(1, 1), sea);

    writeTile(dir, 60, 20, [](int, int) { return 0; });
    const std::string north = "--south 60 --north 61 --west 20 --east 21 --width 100";
    EXPECT_EQ(render(north).out, out + "\t100x203\n") << "1 / cos 60.5 degrees";
    EXPECT_EQ(readPng(out).at(50, 100), sea);
}

TEST_F(TilesRender, GoesOnBeyondTheAntimeridian) {
    writeTile(dir, 10, 179, [](int, int) { return 0; });
    writeTile(dir, 10, -180, [](int, int) { return 600; });
    for (const char* area : {"", "--west 179 --east -179", "--west 179", "--east -179"}) {
        EXPECT_EQ(render(std::string("--width 200 ") + area).out, out + "\t200x102\n") << area;
        const Image picture = readPng(out);
        EXPECT_EQ(picture.at(50, 50), sea) << area;
        EXPECT_NE(picture.at(150, 50), sea) << area;
        EXPECT_FALSE(isHatch(picture.at(150, 50))) << area;
    }
    EXPECT_EQ(render("--west -179.75 --east -179.25 --width 64").code, 0);
    EXPECT_NE(readPng(out).at(32, 32), sea);
}

TEST_F(TilesRender, SaysWhyThereIsNoPictureOrNotAllOfIt) {
    writeTile(dir, 1, 20, [](int, int) { return 600; });
    const std::pair<const char*, int> rows[] = {
        {"--south nan", 2},
        {"--west -181", 2},
        {"--north 1e999", 2},
        {"--south 2 --north 1", 2},
        {"--west 21 --east 21", 2},
        {"--east 20", 1},
        {"--width 0", 2},
        {"--width 9000", 2},
        {"--width", 2},
        {"--south 0 --north 0.9", 1},
        {"--east 20.001", 1},  // a picture of a million rows
        {"--out /dev/full", 1},
        {"--out /nowhere/a.png", 1},
        {"--out /", 1},
    };
    for (const auto& [options, code] : rows) {
        const ToolRun run = render(options);
        EXPECT_EQ(run.code, code) << options;
        EXPECT_EQ(run.out, "") << options;
        EXPECT_EQ(run.err.find("orlek-tiles: "), 0U) << options << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists(out));

    dir.write("N01E021.hgt.zip", archiveOf(std::string(2884802, '\0')).substr(0, 1000));
    const ToolRun run = render("--width 200");
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("N01E021.hgt.zip: truncated data: "), std::string::npos) << run.err;
    EXPECT_TRUE(isHatch(readPng(out).at(150, 50)));
}

}  // namespace
