// Crossings and tangents of circles, checked by where the points lie.
#include <Orlek/Math/Circle.h>
#include <gtest/gtest.h>

#include <cmath>

#include "math/Reference.h"

namespace {

using Circle = Orlek::Math::Circle<double>;
using OrlekTest::eps;
using OrlekTest::Point;

double distance(const Circle& circle, Point point) {
    return std::hypot(point.x - circle.x, point.y - circle.y);
}

TEST(Circle, CrossingsInTheirOrder) {
    const struct {
        Circle one;
        Circle other;
        Point first;
        Point second;
    } rows[] = {
        {{0, 0, 1}, {1, 0, 1}, {0.5, std::sqrt(0.75)}, {0.5, -std::sqrt(0.75)}},
        {{1, 0, 1}, {0, 0, 1}, {0.5, std::sqrt(0.75)}, {0.5, -std::sqrt(0.75)}},
        {{0, 0, 1}, {0, 1, 1}, {std::sqrt(0.75), 0.5}, {-std::sqrt(0.75), 0.5}},
        {{0, 0, 5}, {7, 7, 5}, {4, 3}, {3, 4}},
        {{10, -2, 5}, {10, 4, 5}, {14, 1}, {6, 1}},
    };
    for (const auto& row : rows) {
        Point first;
        Point second;
        ASSERT_TRUE(row.one.cross(row.other, first, second));
        EXPECT_NEAR(first.x, row.first.x, 100 * eps);
        EXPECT_NEAR(first.y, row.first.y, 100 * eps);
        EXPECT_NEAR(second.x, row.second.x, 100 * eps);
        EXPECT_NEAR(second.y, row.second.y, 100 * eps);
    }
}

TEST(Circle, CrossingsLieOnBothCircles) {
    OrlekTest::Numbers number;
    int crossed = 0;
    for (int i = 0; i < 2000; ++i) {
        const Circle one(number(-10, 10), number(-10, 10), number(1, 10));
        const Circle other(number(-10, 10), number(-10, 10), number(1, 10));
        const double apart = std::hypot(one.x - other.x, one.y - other.y);
        const bool expected =
            apart < one.radius + other.radius && apart > std::abs(one.radius - other.radius);
        Point first;
        Point second;
        ASSERT_EQ(one.cross(other, first, second), expected);
        if (!expected)
            continue;
        ++crossed;
        for (const Point& point : {first, second}) {
            EXPECT_NEAR(distance(one, point), one.radius, 1e-8);
            EXPECT_NEAR(distance(other, point), other.radius, 1e-8);
        }
    }
    EXPECT_GT(crossed, 500);
}

// Centres that are level but for rounding: the points stay where they are, the one with the greater
// x first.
TEST(Circle, CrossingsOfNearlyLevelCircles) {
    for (const double rise : {1e-15, 1e-9, 1e-5, 0.99e-4, 1.01e-4, 1e-3}) {
        for (const double sign : {1.0, -1.0}) {
            Point first;
            Point second;
            ASSERT_TRUE(Circle(0, 0, 1).cross({1, sign * rise, 1}, first, second)) << rise;
            const double y = std::sqrt(0.75);
            EXPECT_NEAR(first.y, -sign * y, 1e-6 + rise) << rise;
            EXPECT_NEAR(second.y, sign * y, 1e-6 + rise) << rise;
            EXPECT_GE(first.x, second.x);
            EXPECT_NEAR(std::hypot(first.x, first.y), 1.0, 1e-7);
            EXPECT_NEAR(std::hypot(second.x - 1, second.y - sign * rise), 1.0, 1e-7);
        }
    }
}

TEST(Circle, WritesNothingWithoutACrossing) {
    const Circle unit(0, 0, 1);
    const Circle others[] = {{2, 0, 1}, {0, 2, 1},     {0, 0, 1},           {0, 0, 2},
                             {5, 5, 1}, {0, 0.2, 0.1}, {0, 0, std::nan("")}};
    for (const Circle& other : others) {
        Point first(7, 8);
        Point second(9, 10);
        EXPECT_FALSE(unit.cross(other, first, second)) << other.x << " " << other.y;
        EXPECT_TRUE(first.x == 7 && first.y == 8 && second.x == 9 && second.y == 10);
    }
}

TEST(Circle, TangentsTouchAtARightAngle) {
    const Circle unit(0, 0, 1);
    Point first;
    Point second;
    ASSERT_TRUE(unit.tangent({2, 0}, first, second));
    EXPECT_NEAR(first.x, 0.5, 4 * eps);
    EXPECT_NEAR(first.y, std::sqrt(0.75), 4 * eps);
    EXPECT_NEAR(second.y, -std::sqrt(0.75), 4 * eps);
    EXPECT_FALSE(unit.tangent({0.5, 0}, first, second));
    EXPECT_FALSE(unit.tangent({0, 1}, first, second)) << "on the circle";

    OrlekTest::Numbers number;
    for (int i = 0; i < 500; ++i) {
        const Circle circle(number(-5, 5), number(-5, 5), number(1, 3));
        const Point outside(circle.x + number(4, 20), circle.y + number(4, 20));
        ASSERT_TRUE(circle.tangent(outside, first, second));
        for (const Point& point : {first, second}) {
            EXPECT_NEAR(distance(circle, point), circle.radius, 1e-12);
            const double scalar = (point.x - circle.x) * (point.x - outside.x) +
                                  (point.y - circle.y) * (point.y - outside.y);
            EXPECT_NEAR(scalar, 0.0, 1e-11);
        }
    }
}

}  // namespace
