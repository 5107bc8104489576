// Turn geometry: a turn is an arc around a centre beside the inbound course, walked degree by
// degree from where it starts to where it ends.
#include <Orlek/Geodetic/Navigation.h>
#include <Orlek/Geodetic/Turns.h>
#include <Orlek/Math/Circle.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "math/EarthModels.h"

namespace Orlek::Geodetic {

using namespace Detail;
using Point = Math::Vector2<double>;

namespace {

constexpr double smallestRadius = 0.001;
constexpr double shortestLeg = 1.0;
constexpr int left = 0;
constexpr int right = 1;

double distance(Point from, Point to) {
    return (to - from).Length();
}

// The compass heading in degrees, in [0, 360], 360 only by rounding.
double headingDegrees(Point from, Point to) {
    return (to - from).Heading() * degreesPerRadian;
}

Point pointAt(Point from, double headingRad, double metres) {
    return {from.x + metres * std::sin(headingRad), from.y + metres * std::cos(headingRad)};
}

bool turnsRight(Point previous, Point waypoint, Point next, int direction) {
    if (direction == left || direction == right)
        return direction == right;
    return (waypoint - previous).LeftRight(next - previous) == 1;
}

struct Arc {
    Point centre;
    double radius;
    bool clockwise;
};

// The arc that leaves a point on the given course.
Arc arcFrom(Point start, double courseRad, double radius, bool clockwise) {
    constexpr double quarterTurn = 90.0 * radiansPerDegree;
    const double toCentre = courseRad + (clockwise ? quarterTurn : -quarterTurn);
    return {pointAt(start, toCentre, radius), radius, clockwise};
}

// Appends the points at whole degrees after `start`, at least one, as far as the one that has
// `stepsAhead` degrees or less to go to `end`. Appends nothing when an angle is not a number.
void appendArc(std::vector<Point>& points, const Arc& arc, Point start, Point end, int stepsAhead) {
    double a = headingDegrees(arc.centre, start);
    double b = headingDegrees(arc.centre, end);
    if (std::isnan(a) || std::isnan(b))
        return;
    if (arc.clockwise && a > b)
        b += 360.0;
    if (!arc.clockwise && b > a)
        a += 360.0;
    const double step = arc.clockwise ? 1.0 : -1.0;
    const auto reached = [&](double angle) { return arc.clockwise ? angle >= b : angle <= b; };
    int count = 0;
    do {
        ++count;
        points.push_back(pointAt(arc.centre, (a + count * step) * radiansPerDegree, arc.radius));
    } while (!reached(a + (count + stepsAhead) * step));
}

// Limits the radius; true when that changed it.
bool reduceRadius(double& radius, double largest) {
    if (!(radius > largest))
        return false;
    radius = largest;
    return true;
}

// Where the arc has turned far enough to head straight for a point; nothing for a point inside.
std::optional<Point> leavingPoint(const Arc& arc, Point next) {
    Point tangent1;
    Point tangent2;
    const Math::Circle<double> circle(arc.centre.x, arc.centre.y, arc.radius);
    if (!circle.tangent(next, tangent1, tangent2))
        return std::nullopt;
    const Point toCentre = arc.centre - next;
    const Point toTangent = tangent1 - next;
    const bool leftOfCentre = toCentre.x * toTangent.y - toCentre.y * toTangent.x > 0.0;
    return leftOfCentre == arc.clockwise ? tangent2 : tangent1;
}

double semiPerimeterArea(double l1, double l2, double l3) {
    const double s = (l1 + l2 + l3) / 2.0;
    return std::sqrt((s - l1) * s * (s - l2) * (s - l3));
}

}  // namespace

bool calcOutboundPoint(double lat, double lon, double course, double radius, double newCourse,
                       int direction, double& outLat, double& outLon) {
    constexpr double smallestTurn = 1.0;
    constexpr double straightAhead = 10.0;
    const double turn = getHeadingDifference(course, newCourse);
    if (std::abs(turn) < smallestTurn) {
        calcPointFromBrgDistance(lat, lon, course, straightAhead, outLat, outLon);
        return true;
    }
    const bool clockwise = direction == right || (direction != left && turn >= 0.0);
    const double quarter = clockwise ? 90.0 : -90.0;
    const double toCentre = course + quarter;
    const double toEnd = newCourse - quarter;
    const double north = radius * (cosDegrees(toCentre) + cosDegrees(toEnd));
    const double east = radius * (sinDegrees(toCentre) + sinDegrees(toEnd));
    outLat = lat + north / metresPerDegree;
    outLon = lon + east / metresPerDegree / cosDegrees(lat);
    return true;
}

std::vector<Point> calcFlyByPoints(Point previous, Point waypoint, Point next, double radius,
                                   int direction, bool& radiusReduced) {
    radiusReduced = false;
    const double legIn = distance(previous, waypoint);
    const double legOut = distance(waypoint, next);
    if (radius < smallestRadius || distance(previous, next) < shortestLeg || legIn < shortestLeg ||
        legOut < shortestLeg || (previous - waypoint).linearTo(next - waypoint))
        return {waypoint};

    const Point in = waypoint - previous;
    const Point back = waypoint - next;
    const double interiorAngle = std::acos((in.x * back.x + in.y * back.y) / (legOut * legIn));
    const double slope = std::tan(interiorAngle / 2.0);
    const double largestRadius = slope * std::min(legIn, legOut);
    radiusReduced = reduceRadius(radius, largestRadius);
    const double toTangentPoint = radius / slope;
    if (std::isnan(toTangentPoint))
        return {waypoint};

    const Point start = pointAt(waypoint, (previous - waypoint).Heading(), toTangentPoint);
    const Point end = pointAt(waypoint, (next - waypoint).Heading(), toTangentPoint);
    const bool clockwise = turnsRight(previous, waypoint, next, direction);
    const Arc arc = arcFrom(start, in.Heading(), radius, clockwise);
    std::vector<Point> points;
    appendArc(points, arc, start, end, 1);
    return points.empty() ? std::vector<Point>{waypoint} : points;
}

std::vector<Point> calcFlyOverPoints(Point previous, Point waypoint, Point next, double radius,
                                     int direction, bool& radiusReduced) {
    constexpr double smallestTurn = 3.0;
    constexpr double share = 0.999;
    radiusReduced = false;
    std::vector<Point> points{waypoint};
    if (radius < smallestRadius || distance(previous, waypoint) < shortestLeg ||
        distance(waypoint, next) < shortestLeg)
        return points;

    // The circle that touches the inbound leg at the waypoint and passes through the next point,
    // nearly: that through the waypoint, a point one metre beyond it and the next point.
    Point oneMetre = waypoint - previous;
    oneMetre.Normalize();
    const double largestRadius = share * calcRadius(waypoint, waypoint + oneMetre, next);
    radiusReduced = reduceRadius(radius, largestRadius);
    const double course = headingDegrees(previous, waypoint);
    if (std::abs(getHeadingDifference(course, headingDegrees(waypoint, next))) < smallestTurn)
        return points;

    const bool clockwise = turnsRight(previous, waypoint, next, direction);
    const Arc arc = arcFrom(waypoint, (waypoint - previous).Heading(), radius, clockwise);
    if (const auto end = leavingPoint(arc, next))
        appendArc(points, arc, waypoint, *end, 0);
    return points;
}

double calcTriangleArea(Point a, Point b, Point c) {
    return semiPerimeterArea(distance(a, b), distance(b, c), distance(c, a));
}

double calcRadius(Point a, Point b, Point c) {
    const double l1 = distance(a, b);
    const double l2 = distance(b, c);
    const double l3 = distance(c, a);
    return l1 * l2 * l3 / (4.0 * semiPerimeterArea(l1, l2, l3));
}

}  // namespace Orlek::Geodetic
