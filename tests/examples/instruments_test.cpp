// The instruments agree with the flight: horizon, camera and course needle in pictures of the
// program at several moments, and the flight with itself.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "Flight.h"
#include "ProgramRun.h"

namespace {

using Instruments::Flight;
using Instruments::FlightState;
using Instruments::Guidance;
using Instruments::guidanceAt;
using OrlekSupport::Image;

constexpr double degree = std::numbers::pi / 180.0;
constexpr int height = 800;

using InstrumentPictures = OrlekTest::ProgramRun;

bool isSky(const std::array<int, 4>& p) {
    return p[2] > p[0] + 30;
}

bool isGround(const std::array<int, 4>& p) {
    return p[0] > p[2] + 15 && p[1] > 25 && p[1] < 100;
}

// The row that has most sky above it and most ground below.
int horizonIn(const Image& image, int column) {
    int best = 0;
    int bestScore = -1;
    int score = 0;
    for (int y = 30; y < 670; ++y) {
        score += isSky(image.at(column, y)) ? 1 : isGround(image.at(column, y)) ? -1 : 0;
        if (score > bestScore) {
            bestScore = score;
            best = y;
        }
    }
    return best;
}

bool isMagenta(const std::array<int, 4>& p) {
    return p[0] > 200 && p[1] < 110 && p[2] > 180;
}

// In a right bank the horizon rises to the right; with the nose up it sinks.
void expectHorizon(const Image& image, const FlightState& state) {
    constexpr int centreX = 330;
    constexpr int centreY = height - 465;
    constexpr double pixelsPerDegree = 9.0;
    for (const int x : {140, 170, 490, 508}) {
        const double down = state.pitchDeg * pixelsPerDegree / std::cos(state.bankDeg * degree) -
                            (x - centreX) * std::tan(state.bankDeg * degree);
        EXPECT_NEAR(horizonIn(image, x), centreY + down, 3.0) << "column " << x;
    }
}

// The camera's ground is green, its sky blue: rows of sky in two columns.
void expectCamera(const Image& image, double bankDeg) {
    const auto skyRows = [&](int column) {
        int rows = 0;
        for (int y = height - 165; y < height - 35; ++y) {
            const auto pixel = image.at(column, y);
            rows += pixel[2] > pixel[1] + 6 ? 1 : 0;
        }
        return rows;
    };
    const double expected = std::tan(bankDeg * degree) * (930 - 850);
    EXPECT_NEAR(skyRows(850) - skyRows(930), expected, 18.0);
}

void expectNeedle(const Image& image, const FlightState& state) {
    constexpr int centreX = 988;
    constexpr int centreY = height - 488;
    constexpr double pixelsPerDot = 34.0;
    const Guidance guidance = guidanceAt(state);
    ASSERT_GT(std::abs(guidance.dots), 0.4) << "else both sides are the same";
    const double turn = (guidance.courseDeg - state.headingDeg) * degree;
    const auto at = [&](double ahead, double aside) {
        return image.at(
            static_cast<int>(centreX + ahead * std::sin(turn) + aside * std::cos(turn)),
            static_cast<int>(centreY - ahead * std::cos(turn) + aside * std::sin(turn)));
    };
    for (const double ahead : {-80.0, 80.0}) {
        EXPECT_TRUE(isMagenta(at(ahead, guidance.dots * pixelsPerDot)));
        EXPECT_FALSE(isMagenta(at(ahead, -guidance.dots * pixelsPerDot)));
    }
}

// In level flight, in a right bank and in a left one, with the course on either side.
TEST_F(InstrumentPictures, ShowWhatTheAircraftDoes) {
    for (const auto& [seconds, least] : {std::pair{5.0, 0.0}, {58.0, 20.0}, {252.0, -20.0}}) {
        SCOPED_TRACE(seconds);
        const FlightState state = Flight().at(seconds);
        const Image image = draw(PROGRAM " --at " + std::to_string(seconds));
        expectHorizon(image, state);
        expectCamera(image, state.bankDeg);
        expectNeedle(image, state);
        EXPECT_GE(state.bankDeg * least, least * least);
    }
}

TEST_F(InstrumentPictures, HaveAnySizeAndNonsenseIsRefused) {
    for (const auto& [wide, high] : {std::pair{800, 600}, {64, 2000}}) {
        const Image image = draw(PROGRAM " --frames 2 --width " + std::to_string(wide) +
                                 " --height " + std::to_string(high));
        EXPECT_EQ(std::pair(image.width, image.height), std::pair(wide, high));
    }
    expectRefusals({{PROGRAM " --width 0", "--width"},
                    {PROGRAM " --at x", "--at"},
                    {PROGRAM " --font /nowhere", "/nowhere"},
                    {PROGRAM " --out /nowhere/p.png", "/nowhere/p.png"},
                    {PROGRAM " --nonsense", "--help"}});
}

TEST(SyntheticFlight, IsFlownAsAnAircraftFlies) {
    const Flight flight;
    constexpr double step = 0.5;
    for (double t = 0.0; t + step < Flight::lengthS; t += step) {
        const FlightState a = flight.at(t);
        const FlightState b = flight.at(t + step);
        const double turn = std::remainder(b.headingDeg - a.headingDeg, 360.0);
        if (std::abs(a.bankDeg) > 2.0 && a.bankDeg * b.bankDeg > 0.0) {
            EXPECT_GT(turn * a.bankDeg, 0.0) << t << ": a right bank turns right";
        }
        EXPECT_NEAR(b.altitudeFt - a.altitudeFt, (a.climbFpm + b.climbFpm) / 120.0 * step, 1.0);
        EXPECT_LE(std::abs(b.bankDeg - a.bankDeg), 6.5 * step);
        EXPECT_LE(std::abs(b.pitchDeg - a.pitchDeg), 1.5) << t;
        const double metres = std::hypot(b.eastM - a.eastM, b.northM - a.northM);
        EXPECT_NEAR(metres, a.speedKt * 1852.0 / 3600.0 * step, 1.0) << t;
    }
    EXPECT_TRUE(guidanceAt(flight.at(210.0)).to);
    EXPECT_NEAR(guidanceAt(flight.at(210.0)).dots, 0.0, 0.3) << "the course is intercepted";
    EXPECT_FALSE(guidanceAt(flight.at(240.0)).to) << "the station is passed";
}

}  // namespace
