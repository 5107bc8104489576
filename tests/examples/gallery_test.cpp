// Every picture of the gallery as a user draws it, at two moments: something stands in each sample,
// nothing is complained about, and the program stays short enough to copy from.
#include <array>
#include <future>
#include <iterator>
#include <sstream>
#include <string>

#include "ProgramRun.h"

namespace {

using OrlekTest::Image;

constexpr int columns = 3;
constexpr int rows = 2;

std::string program(const std::string& name) {
    return PROGRAMS "/orlek-gallery-" + name + " ";
}

using Gallery = OrlekTest::ProgramRun;

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

TEST_F(Gallery, drawsEachSampleAtTwoMomentsInFewLines) {
    std::istringstream names(PICTURES);
    int count = 0;
    for (std::string name; names >> name; ++count) {
        SCOPED_TRACE(name);
        auto drawn =
            std::async(std::launch::async, [&] { return draw(program(name) + "--time 1"); });
        const Image late = draw(program(name) + "--time 2.2");
        const Image early = drawn.get();
        for (const Image& image : {early, late}) {
            ASSERT_EQ(std::pair(image.width, image.height), std::pair(960, 600));
            for (int sample = 0; sample < columns * rows; ++sample) {
                EXPECT_GT(inkOfSample(image, sample % columns, sample / columns), 200) << sample;
            }
        }
        EXPECT_TRUE(early.rgba != late.rgba) << "nothing moves";
        const std::string source =
            OrlekTest::wholeText(ORLEK_SOURCE_DIR "/examples/gallery/" + name + ".cpp");
        const auto lines = std::count(source.begin(), source.end(), '\n');
        EXPECT_TRUE(lines > 20 && lines < 80) << lines;
    }
    EXPECT_GE(count, 9);
}

// Columns of 0, 90 and 180 make a tile of 90, and the ground and the name stand around it.
TEST_F(Gallery, contactSheetAveragesAndNames) {
    Image page(960, 600);
    for (std::size_t i = 0; i < page.rgba.size(); ++i) {
        page.rgba[i] = static_cast<std::uint8_t>(i / 4 % 3 * 90);
    }
    const std::string picture = mDir.path("stripes.png");
    const std::string path = mDir.path("sheet.png");
    OrlekSupport::writePng(picture, page);
    const std::string four = picture + " " + picture + " " + picture + " " + picture;
    ASSERT_EQ(run(program("contactsheet") + path + " " + four).status, 0);
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

TEST_F(Gallery, saysInOneLineWhatIsWrong) {
    expectRefusals({
        {program("lines") + "--nonsense", "--help"},
        {program("lines") + "--time soon", "--time: 'soon'"},
        {program("lines") + "--out /nowhere/a.png", "cannot write /nowhere/a.png"},
        {program("contactsheet") + mDir.path("sheet.png") + " /nowhere.png", "/nowhere.png"},
    });
}

}  // namespace
