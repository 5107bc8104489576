// Each turn is worked out on a flat grid around its own waypoint, where distances are true.
#include "RoutePath.h"

#include <Orlek/Geodetic.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "LocalGrid.h"

namespace MovingMap {

namespace {

constexpr int shorterTurn = 2;  // Neither left (0) nor right (1): as the legs have it.

double distanceM(const Position& from, const Position& to) {
    return toGrid(from, to).Length();
}

void append(RoutePath& path, const Position& position) {
    const double before = path.points.empty() ? 0.0 : path.lengthM();
    const double step =
        path.points.empty() ? 0.0 : distanceM(path.points.back().position, position);
    path.points.push_back({position, before + step});
}

// A fly-by turn touches both legs at the same distance from the waypoint. This is the radius at
// which that distance is `room`.
double radiusWithin(const GridPoint& previous, const GridPoint& next, double room) {
    const double cosine =
        (previous.x * next.x + previous.y * next.y) / (previous.Length() * next.Length());
    return std::tan(std::acos(std::clamp(cosine, -1.0, 1.0)) / 2.0) * room;
}

// The points of the turn at the origin. `halfNext` leaves the second half of the next leg to the
// turn at its end.
std::vector<GridPoint> turnPoints(const Waypoint& waypoint, const GridPoint& previous,
                                  const GridPoint& next, double radiusM, bool halfNext) {
    const GridPoint here(0.0, 0.0);
    bool reduced = false;
    if (waypoint.flyOver) {
        return Orlek::Geodetic::calcFlyOverPoints(previous, here, next, radiusM, shorterTurn,
                                                  reduced);
    }
    const double room = std::min(previous.Length(), next.Length() * (halfNext ? 0.5 : 1.0));
    const double fitting = std::min(radiusM, radiusWithin(previous, next, room));
    return Orlek::Geodetic::calcFlyByPoints(previous, here, next, fitting, shorterTurn, reduced);
}

void flyTurn(RoutePath& path, const Route& route, std::size_t i, double radiusM) {
    const Position& here = route[i].position;
    const GridPoint previous = toGrid(here, path.points.back().position);
    const GridPoint next = toGrid(here, route[i + 1].position);
    const std::size_t before = path.points.size();
    for (const GridPoint& point :
         turnPoints(route[i], previous, next, radiusM, i + 2 < route.size())) {
        append(path, fromGrid(here, point));
    }
    const std::size_t passed =
        route[i].flyOver ? before : before + (path.points.size() - before) / 2;
    path.passedAtM.push_back(path.points[passed].distanceM);
}

}  // namespace

std::vector<Position> RoutePath::positions() const {
    std::vector<Position> positions;
    positions.reserve(points.size());
    for (const PathPoint& point : points) {
        positions.push_back(point.position);
    }
    return positions;
}

RoutePath flyRoute(const Route& route, double defaultRadiusM) {
    RoutePath path;
    append(path, route.front().position);
    path.passedAtM.push_back(0.0);
    for (std::size_t i = 1; i + 1 < route.size(); ++i) {
        const double given = route[i].turnRadiusM;
        flyTurn(path, route, i, given > 0.0 ? given : defaultRadiusM);
    }
    append(path, route.back().position);
    path.passedAtM.push_back(path.lengthM());
    return path;
}

double standardRateRadiusM(double speedKt) {
    constexpr double turnsPerHour = 30.0;
    return speedKt * metresPerMile / turnsPerHour / (2.0 * std::numbers::pi);
}

PathState stateAt(const RoutePath& path, double distanceAlongM) {
    const double at = std::clamp(distanceAlongM, 0.0, path.lengthM());
    const auto behind = [at](const PathPoint& point) { return point.distanceM < at; };
    const auto found = std::partition_point(path.points.begin() + 1, path.points.end() - 1, behind);
    const PathPoint& from = *(found - 1);
    const PathPoint& to = *found;
    const double length = to.distanceM - from.distanceM;
    const double fraction = length > 0.0 ? (at - from.distanceM) / length : 0.0;
    PathState state;
    const double lon = longitudeNear(from.position.lon, to.position.lon);
    state.position = {from.position.lat + (to.position.lat - from.position.lat) * fraction,
                      longitudeNear(0.0, from.position.lon + (lon - from.position.lon) * fraction)};
    state.headingDeg = toGrid(from.position, to.position).Heading() * 180.0 / std::numbers::pi;
    const auto next = std::upper_bound(path.passedAtM.begin(), path.passedAtM.end() - 1, at);
    state.nextWaypoint = static_cast<std::size_t>(next - path.passedAtM.begin());
    return state;
}

std::optional<double> alongAt(const RoutePath& path, const Position& position, double headingDeg,
                              double withinM) {
    struct Nearest {
        double apartM;
        std::optional<double> along;
    };
    Nearest onward{withinM, {}};
    Nearest any{withinM, {}};
    const double heading = headingDeg * std::numbers::pi / 180.0;
    const std::vector<GridPoint> points = toGrid(position, path.positions());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const PathPoint& from = path.points[i - 1];
        const GridPoint& start = points[i - 1];
        const GridPoint leg = points[i] - start;
        const double square = leg.x * leg.x + leg.y * leg.y;
        const double toFoot = -(start.x * leg.x + start.y * leg.y);
        const double share = square > 0.0 ? std::clamp(toFoot / square, 0.0, 1.0) : 0.0;
        const double distance =
            GridPoint(start.x + leg.x * share, start.y + leg.y * share).Length();
        const double along = from.distanceM + (path.points[i].distanceM - from.distanceM) * share;
        if (distance <= any.apartM) {
            any = {distance, along};
        }
        const double ahead = leg.x * std::sin(heading) + leg.y * std::cos(heading);
        if (distance <= onward.apartM && ahead >= 0.0) {
            onward = {distance, along};
        }
    }
    constexpr double besideM = 0.5 * metresPerMile;
    return onward.along && onward.apartM <= any.apartM + besideM ? onward.along : any.along;
}

}  // namespace MovingMap
