// Airspace cut against the picture and other airspace.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "AirspaceFile.h"
#include "AirspaceLayer.h"
#include "PolygonCut.h"

namespace {

using namespace MovingMap;

double areaOf(const std::vector<Polyline>& outlines) {
    double sum = 0.0;
    for (const Polyline& outline : outlines) {
        double twice = 0.0;
        for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
            twice += outline[j].x * outline[i].y - outline[j].y * outline[i].x;
        }
        sum += std::abs(twice) / 2.0;
    }
    return sum;
}

Polyline square(double low, double high) {
    return rectangle({Point(low, low), Point(high, high)});
}

TEST(PolygonCut, isThatOfSetsWhereRingsTouchOrContainEachOther) {
    const Polyline notched = {{0, 0},    {0, 100},   {45, 100}, {50, 50},
                              {55, 100}, {100, 100}, {100, 0}};
    const struct {
        const char* what;
        Polyline outline;
        Polyline other;
        double inside;
        double outside;
    } rows[] = {
        {"a plus",
         {{0, 40}, {100, 40}, {100, 60}, {0, 60}},
         {{40, 0}, {40, 100}, {60, 100}, {60, 0}},
         400,
         1600},
        {"a hole", square(0, 100), square(40, 60), 400, 9600},
        {"wholly inside", square(40, 60), square(0, 100), 400, 0},
        {"apart", square(0, 100), square(120, 140), 0, 10000},
        {"a shared edge", square(0, 100), {{100, 0}, {200, 0}, {200, 100}, {100, 100}}, 0, 10000},
        {"a shared corner", square(0, 100), square(0, 50), 2500, 7500},
        {"the same", square(0, 100), square(0, 100), 10000, 0},
        {"a notch between corners", square(40, 60), notched, 390, 10},
        {"the same notch", notched, square(40, 60), 390, 9750 - 390},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(areaOf(partsInside(row.outline, row.other)), row.inside, 3.0) << row.what;
        EXPECT_NEAR(areaOf(partsOutside(row.outline, row.other)), row.outside, 3.0) << row.what;
    }
}

// Stars on a grid of whole pixels: corners and edges of several coincide.
Polyline star(std::mt19937& random) {
    std::uniform_int_distribution<int> place(60, 140);
    std::uniform_int_distribution<int> corners(3, 24);
    std::uniform_int_distribution<int> radius(20, 60);
    const Point centre(place(random), place(random));
    const int count = corners(random);
    Polyline outline;
    for (int i = 0; i < count; ++i) {
        const double angle = i * 2.0 * std::numbers::pi / count;
        const double r = radius(random);
        outline.emplace_back(std::round(centre.x + r * std::sin(angle)),
                             std::round(centre.y + r * std::cos(angle)));
    }
    return outline;
}

TEST(PolygonCut, losesAndGainsNothing) {
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
        const Polyline one = star(random);
        const Polyline other = i % 2 == 0 ? star(random) : square(70, 130);
        const double area = areaOf({one});
        const double inside = areaOf(partsInside(one, other));
        const double outside = areaOf(partsOutside(one, other));
        EXPECT_NEAR(inside + outside, area, 10.0) << i;
        EXPECT_NEAR(inside, areaOf(partsInside(other, one)), 10.0) << i;
    }
}

TEST(PolygonCut, leavesWholeWhatItCannotCut) {
    const Polyline bow = {{0, 0}, {100, 100}, {100, 0}, {0, 100}};
    const auto parts = partsInside(bow, square(-50, 150));
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_EQ(parts[0].size(), bow.size());
    EXPECT_FALSE(partsOutside(bow, square(20, 80)).empty());
}

// Around a picture of 400 x 400 pixels, 1 kilometre each: none inside, one around it, two across.
TEST(AirspaceLayer, isCutAtTheEdgeAndInItsOrder) {
    std::istringstream text(
        "airspace,T,training,GND,1\npoint,-9,-9\npoint,-9,9\npoint,9,9\npoint,9,-9\n"
        "airspace,C,D,GND,1\npoint,-0.5,-9\npoint,-0.5,9\npoint,0.5,9\npoint,0.5,-9\n"
        "airspace,P,prohibited,GND,1\npoint,-9,-0.5\npoint,9,-0.5\npoint,9,0.5\npoint,-9,0.5\n"
        "airspace,OUT,D,GND,1\ncircle,5,5,9\n");
    const std::vector<Airspace> airspace = parseAirspace(text, "a.txt");
    const MapView view({0.0, 0.0}, 1000.0, 0.0, Point(200.0, 200.0), Point(400.0, 400.0));
    const auto shapes = projectAirspace(airspace, view, Box{Point(0.0, 0.0), Point(400.0, 400.0)});
    std::string names;
    double fills = 0.0;
    for (const AirspaceShape& shape : shapes) {
        names += shape.airspace->name;
        fills += areaOf(shape.fills);
        for (const Polyline& outline : shape.outlines) {
            EXPECT_TRUE(Box({Point(-0.1, -0.1), Point(400.1, 400.1)}).contains(boxAround(outline)));
        }
    }
    EXPECT_EQ(names, "PCT");
    EXPECT_NEAR(fills, 160000.0, 30.0) << "each part of the picture once";
}

}  // namespace
