// Crossings and tangents of circles, checked by where the points lie.
#include <Orlek/Math/Circle.h>

#include "math/Reference.h"

namespace {

using Circle = Orlek::Math::Circle<double>;
using namespace OrlekTest;

double distance(const Circle& circle, Point point) {
    return std::hypot(point.x - circle.x, point.y - circle.y);
}

TEST(Circle, CrossingsLieOnBothCirclesTheGreaterXFirst) {
    Numbers number;
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
        EXPECT_GT(first.x, second.x);
        for (const Point& point : {first, second}) {
            EXPECT_NEAR(distance(one, point), one.radius, 1e-8);
            EXPECT_NEAR(distance(other, point), other.radius, 1e-8);
        }
    }
    EXPECT_GT(crossed, 500);
}

// Of level centres the upper crossing comes first; of centres that are level but for rounding the
// points stay where they are, the one with the greater x first.
TEST(Circle, CrossingsOfLevelAndNearlyLevelCircles) {
    for (const double rise : {0.0, -1e-15, 1e-9, -1e-5, 0.99e-4, -0.99e-4, 1.01e-4, -1.01e-4}) {
        const double upper = rise > 0.0 ? -std::sqrt(0.75) : std::sqrt(0.75);
        const Circle other(1, rise, 1);
        Point first;
        Point second;
        ASSERT_TRUE(Circle(0, 0, 1).cross(other, first, second)) << rise;
        EXPECT_TRUE(isAt(first, {0.5, upper}, 1e-3)) << rise;
        EXPECT_TRUE(isAt(second, {0.5, -upper}, 1e-3)) << rise;
        EXPECT_GE(first.x, second.x);
        EXPECT_NEAR(first.Length(), 1.0, 1e-7);
        EXPECT_NEAR(distance(other, second), 1.0, 1e-7);
    }
}

TEST(Circle, WritesNothingWithoutACrossing) {
    // Touching from the side and from above, the same, around, within, beside.
    for (const Circle& other : {Circle(2, 0, 1), Circle(0, 2, 1), Circle(0, 0, 1), Circle(0, 0, 2),
                                Circle(0, 0.2, 0.1), Circle(5, 5, 1), Circle(0, 0, notANumber)}) {
        Point first(7, 8);
        Point second(9, 10);
        EXPECT_FALSE(Circle(0, 0, 1).cross(other, first, second)) << other.x << " " << other.y;
        EXPECT_TRUE(first.x == 7 && first.y == 8 && second.x == 9 && second.y == 10);
    }
}

TEST(Circle, TangentsTouchAtARightAngle) {
    Numbers number;
    for (int i = 0; i < 500; ++i) {
        const Circle circle(number(-5, 5), number(-5, 5), number(1, 3));
        const Point outside(circle.x + number(-20, 20), circle.y + number(4, 20));
        Point first;
        Point second;
        ASSERT_TRUE(circle.tangent(outside, first, second));
        EXPECT_FALSE(circle.tangent({circle.x + 0.9, circle.y}, first, second)) << "inside";
        for (const Point& point : {first, second}) {
            EXPECT_NEAR(distance(circle, point), circle.radius, 1e-11);
            const Point way = outside - point;
            EXPECT_NEAR((point.x - circle.x) * way.x + (point.y - circle.y) * way.y, 0.0, 1e-10);
        }
    }
}

}  // namespace
