// Every example finds a window or a picture by itself and says which; both look the same at any
// scale.
#include <cstdlib>
#include <string>

#include "ProgramRun.h"

namespace {

using OrlekTest::Image;
using OrlekTest::Outcome;

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

const std::string lines = PROGRAMS "/gallery/orlek-gallery-lines ";
const std::string onScreen = ORLEK_SOURCE_DIR "/tests/examples/on_screen.sh ";

class Screens : public OrlekTest::ProgramRun {
protected:
    struct Program {
        std::string command;
        std::string picture;
    };
    const Program mPrograms[3] = {
        {lines, "lines.png"},
        {PROGRAMS "/instruments/orlek-instruments ", "instruments.png"},
        {PROGRAMS "/movingmap/orlek-movingmap " + mNoTiles, "movingmap.png"}};

    Outcome runHere(const std::string& environment, const std::string& command) const {
        return run("cd " + mDir.path("") + " && env " + environment + " " + command);
    }

    // The last frame of a window.
    Image frame(const std::string& system, int scale, const std::string& command) const {
        const std::string path = mDir.path("frame.png");
        const Outcome outcome =
            run("ASAN_OPTIONS=detect_leaks=0 timeout 60 " + onScreen + system + " " +
                std::to_string(scale) + " " + command + "--window --out " + path);
        EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
        EXPECT_FALSE(has(outcome.out, "Error <")) << outcome.out;
        return OrlekSupport::readPng(path);
    }

    void expectSameAtBothScales(const std::string& system) const;
};

TEST_F(Screens, areWindowsWhereThereIsADisplay) {
    if (!hasScreen()) {
        GTEST_SKIP() << noScreen;
    }
    for (const Program& program : mPrograms) {
        const Outcome outcome = runHere("-u WAYLAND_DISPLAY ASAN_OPTIONS=detect_leaks=0 " + mScreen,
                                        program.command + "--frames 2");
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_TRUE(has(outcome.out, "A window (DISPLAY=:")) << outcome.out;
        EXPECT_FALSE(std::filesystem::exists(mDir.path(program.picture)));
    }
}

TEST_F(Screens, arePicturesWhereThereIsNone) {
    for (const Program& program : mPrograms) {
        const Outcome outcome = runHere("-u DISPLAY -u WAYLAND_DISPLAY", program.command);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_TRUE(has(outcome.out, "A picture (no screen")) << outcome.out;
        EXPECT_TRUE(has(outcome.out, "\n" + program.picture + "\n")) << outcome.out;
        EXPECT_GT(OrlekSupport::readPng(mDir.path(program.picture)).width, 0);
    }
}

// A display that is named but gone, as in a shell that outlived its session.
TEST_F(Screens, thatCannotBeOpenedGiveAPictureOrTheReason) {
    const std::string gone = "-u WAYLAND_DISPLAY DISPLAY=:4444 ";
    const Outcome picture = runHere(gone, lines);
    EXPECT_EQ(picture.status, 0) << picture.err;
    EXPECT_TRUE(has(picture.out, "A picture (cannot open a window: ")) << picture.out;
    EXPECT_EQ(OrlekSupport::readPng(mDir.path("lines.png")).width, 960);
    expectRefusals({{"env " + gone + lines + "--window", "cannot open a window: "}});
}

// The mean brightness of a part of a page that has so many pixels for one.
double brightness(const Image& image, int scale, int left, int top, int width, int height) {
    double sum = 0.0;
    for (int y = scale * top; y < scale * (top + height); ++y) {
        for (int x = scale * left; x < scale * (left + width); ++x) {
            sum += image.at(x, y)[0] + image.at(x, y)[1] + image.at(x, y)[2];
        }
    }
    return sum / (3.0 * scale * scale * width * height);
}

// Where lines or letters were half as thick, or elsewhere, a part of the page would be darker.
void Screens::expectSameAtBothScales(const std::string& system) const {
    // Under Wayland the scale is known after some frames.
    const std::string frames = system == "x11" ? "2 " : "10 ";
    const Image one = frame(system, 1, lines + "--frames " + frames);
    const Image two = frame(system, 2, lines + "--frames " + frames);
    ASSERT_EQ(std::pair(one.width, one.height), std::pair(960, 600));
    ASSERT_EQ(std::pair(two.width, two.height), std::pair(1920, 1200));
    for (const auto& [name, left, top, width, height] : {std::tuple("title", 24, 10, 300, 60),
                                                         {"caption", 24, 285, 300, 40},
                                                         {"widths", 90, 90, 220, 180},
                                                         {"ticks", 340, 340, 200, 180}}) {
        const double ground = brightness(one, 1, 2, 2, 20, 20);
        const double expected = brightness(one, 1, left, top, width, height) - ground;
        EXPECT_GT(expected, 3.0) << name;
        EXPECT_NEAR(brightness(two, 2, left, top, width, height) - ground, expected,
                    0.12 * expected)
            << name;
    }
}

TEST_F(Screens, ofX11LookTheSameAtTwiceTheScale) {
    if (!hasScreen() || std::system("command -v xrdb >/dev/null") != 0) {
        GTEST_SKIP() << noScreen << " (xrdb: package x11-xserver-utils)";
    }
    expectSameAtBothScales("x11");
}

TEST_F(Screens, ofWaylandLookTheSameAtTwiceTheScale) {
    if (std::getenv("ORLEK_WAYLAND_GLFW") == nullptr) {
        GTEST_SKIP() << "./test.sh wayland runs it";
    }
    expectSameAtBothScales("wayland");
    const Image map = frame("wayland", 2, mPrograms[2].command + "--frames 10 ");
    EXPECT_EQ(std::pair(map.width, map.height), std::pair(2560, 1600));
}

}  // namespace
