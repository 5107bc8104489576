// Every picture of the gallery as a user draws it, at two moments: something stands in each sample,
// nothing is complained about, and the program stays short enough to copy from.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "Png.h"
#include "support/TempDir.h"

namespace {

using OrlekSupport::Image;

constexpr int columns = 3;
constexpr int rows = 2;

std::string contents(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> pictures() {
    std::istringstream names(PICTURES);
    return {std::istream_iterator<std::string>(names), {}};
}

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

class GalleryTools : public testing::Test {
protected:
    Outcome run(const std::string& name, const std::string& arguments,
                const std::string& before = "") const {
        const std::string command = before + " '" PROGRAMS "/orlek-gallery-" + name + "' " +
                                    arguments + " >" + mDir.path("out") + " 2>" + mDir.path("err");
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), contents(mDir.path("out")), contents(mDir.path("err"))};
    }

    Image draw(const std::string& name, const std::string& arguments) const {
        const std::string path = mDir.path(name + ".png");
        const Outcome outcome = run(name, "--out " + path + " " + arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.out.find("Error <"), std::string::npos) << outcome.out;
        EXPECT_EQ(outcome.out.find("failed"), std::string::npos) << outcome.out;
        return OrlekSupport::readPng(path);
    }

    const OrlekTest::TempDir mDir;
};

class Gallery : public GalleryTools, public testing::WithParamInterface<std::string> {};

// Pixels of a sample, its caption left out, that are not its ground, which is its corner's colour.
int inkOfSample(const Image& image, int column, int row) {
    const int left = 30 + column * 308;
    const int top = 90 + row * 253;
    int ink = 0;
    for (int y = top; y < top + 180; ++y) {
        for (int x = left; x < left + 282; ++x) {
            ink += image.at(x, y) != image.at(left, top) ? 1 : 0;
        }
    }
    return ink;
}

TEST_P(Gallery, drawsEachSampleAtTwoMoments) {
    const Image early = draw(GetParam(), "--time 1");
    const Image late = draw(GetParam(), "--time 2.2");
    for (const Image& image : {early, late}) {
        ASSERT_EQ(image.width, 960);
        ASSERT_EQ(image.height, 600);
        for (int sample = 0; sample < columns * rows; ++sample) {
            EXPECT_GT(inkOfSample(image, sample % columns, sample / columns), 200) << sample;
        }
    }
    EXPECT_TRUE(early.rgba != late.rgba) << "nothing moves";
}

TEST_P(Gallery, isShortEnoughToCopyFrom) {
    const std::string source =
        contents(ORLEK_SOURCE_DIR "/examples/gallery/" + GetParam() + ".cpp");
    const auto lines = std::count(source.begin(), source.end(), '\n');
    EXPECT_GT(lines, 20);
    EXPECT_LT(lines, 80);
}

INSTANTIATE_TEST_SUITE_P(Pictures, Gallery, testing::ValuesIn(pictures()),
                         [](const auto& picture) { return picture.param; });

// Columns of 0, 90 and 180 make a tile of 90, and the ground and the name stand around it.
TEST_F(GalleryTools, contactSheetAveragesAndNames) {
    Image page(960, 600);
    for (std::size_t i = 0; i < page.rgba.size(); ++i) {
        page.rgba[i] = static_cast<std::uint8_t>(i / 4 % 3 * 90);
    }
    const std::string picture = mDir.path("stripes.png");
    const std::string path = mDir.path("sheet.png");
    OrlekSupport::writePng(picture, page);
    const std::string four = picture + " " + picture + " " + picture + " " + picture;
    ASSERT_EQ(run("contactsheet", path + " " + four).status, 0);
    const Image sheet = OrlekSupport::readPng(path);
    const std::array<int, 4> tile{90, 90, 90, 255};
    EXPECT_EQ(sheet.width, 3 * 320 + 4 * 16);
    EXPECT_EQ(sheet.at(16, 16), tile);
    EXPECT_EQ(sheet.at(16 + 319, 16 + 199), tile);
    EXPECT_NE(sheet.at(15, 16), tile);
    EXPECT_NE(sheet.at(16 + 320, 16), tile);
    EXPECT_EQ(sheet.at(16, 16 + 200 + 30), tile) << "the fourth in the second row";
    int bright = 0;
    for (int x = 16; x < 70; ++x) {
        for (int y = 218; y < 240; ++y) {
            bright += sheet.at(x, y)[0] > 200 ? 1 : 0;
        }
    }
    EXPECT_GT(bright, 20) << "no name";
}

TEST_F(GalleryTools, saysInOneLineWhatIsWrong) {
    const std::pair<std::string, const char*> cases[] = {
        {"lines --nonsense", "--help"},
        {"lines --time soon", "--time: 'soon'"},
        {"lines --out /nowhere/a.png", "cannot write /nowhere/a.png"},
        {"contactsheet " + mDir.path("sheet.png") + " /nowhere.png", "/nowhere.png"},
    };
    for (const auto& [command, says] : cases) {
        const std::size_t space = command.find(' ');
        const Outcome outcome = run(command.substr(0, space), command.substr(space));
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_NE(outcome.err.find(says), std::string::npos) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    }
}

TEST_F(GalleryTools, opensAWindow) {
    if (std::system("command -v xvfb-run >/dev/null && command -v xauth >/dev/null") != 0) {
        GTEST_SKIP() << "no xvfb-run (packages xvfb, xauth): the window is not opened";
    }
    // The GLX libraries that GLFW unloads at the end keep some bytes.
    const Outcome outcome =
        run("lines", "--window --frames 3", "ASAN_OPTIONS=detect_leaks=0 timeout 60 xvfb-run -a");
    EXPECT_EQ(outcome.status, 0) << outcome.err << outcome.out;
}

}  // namespace
