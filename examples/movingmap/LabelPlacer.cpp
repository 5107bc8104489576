// Greedy: each label takes the cheapest place that the earlier ones left. With the few labels of a
// route that is as good as any search.
#include "LabelPlacer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace MovingMap {

namespace {

constexpr double outsideCost = 1000.0;
constexpr double overlapCost = 100.0;
constexpr double lineCost = 10.0;
constexpr double keptGain = 5.0;  // Less than any fault.
constexpr double labelGap = 3.0;

// Clips the line's parameter range to one axis of the box; false when nothing is left.
bool clip(double start, double delta, double low, double high, double& enter, double& leave) {
    if (delta == 0.0) {
        return start >= low && start <= high;
    }
    const double first = (low - start) / delta;
    const double second = (high - start) / delta;
    enter = std::max(enter, std::min(first, second));
    leave = std::min(leave, std::max(first, second));
    return enter <= leave;
}

// In the order in which a reader would want them.
constexpr std::array<std::array<double, 2>, 8> sides = {
    {{1, 0}, {1, 1}, {1, -1}, {-1, 0}, {-1, 1}, {-1, -1}, {0, 1}, {0, -1}}};

Box boxAt(Point centre, Point size) {
    const Point half(size.x / 2.0, size.y / 2.0);
    return {centre - half, centre + half};
}

Box boxBeside(Point point, Point size, const std::array<double, 2>& side, double distance) {
    const double diagonal = side[0] != 0.0 && side[1] != 0.0 ? 0.75 : 1.0;
    const Point centre(point.x + side[0] * (distance * diagonal + size.x / 2.0),
                       point.y + side[1] * (distance * diagonal + size.y / 2.0));
    return boxAt(centre, size);
}

}  // namespace

bool Box::overlaps(const Box& other) const {
    return low.x < other.high.x && other.low.x < high.x && low.y < other.high.y &&
           other.low.y < high.y;
}

bool Box::contains(const Box& other) const {
    return low.x <= other.low.x && low.y <= other.low.y && high.x >= other.high.x &&
           high.y >= other.high.y;
}

Box Box::grown(double margin) const {
    return {Point(low.x - margin, low.y - margin), Point(high.x + margin, high.y + margin)};
}

bool touches(const Box& box, Point a, Point b) {
    double enter = 0.0;
    double leave = 1.0;
    return clip(a.x, b.x - a.x, box.low.x, box.high.x, enter, leave) &&
           clip(a.y, b.y - a.y, box.low.y, box.high.y, enter, leave);
}

void LabelPlacer::avoid(const std::vector<Point>& polyline) {
    for (std::size_t i = 1; i < polyline.size(); ++i) {
        mLines.push_back({polyline[i - 1], polyline[i]});
    }
}

double LabelPlacer::cost(const Box& box) const {
    double sum = mArea.contains(box) ? 0.0 : outsideCost;
    const Box spaced = box.grown(labelGap);
    sum += overlapCost * static_cast<double>(std::count_if(
                             mBlocked.begin(), mBlocked.end(),
                             [&](const Box& other) { return spaced.overlaps(other); }));
    const bool crossed = std::any_of(mLines.begin(), mLines.end(), [&](const Segment& line) {
        return touches(spaced, line.a, line.b);
    });
    return crossed ? sum + lineCost : sum;
}

Box LabelPlacer::place(Point point, Point size, double unit, std::size_t* kept) {
    Box best{};
    double bestCost = std::numeric_limits<double>::infinity();
    std::size_t bestNumber = 0;
    std::size_t number = 0;
    for (const double distance : {16.0, 26.0, 38.0}) {
        for (const auto& side : sides) {
            const Box box = boxBeside(point, size, side, distance * unit);
            const bool again = kept != nullptr && number == *kept;
            const double boxCost =
                cost(box) + (again ? -keptGain : 0.1 * static_cast<double>(number));
            if (boxCost < bestCost) {
                best = box;
                bestCost = boxCost;
                bestNumber = number;
            }
            ++number;
        }
    }
    if (kept != nullptr) {
        *kept = bestNumber;
    }
    block(best);
    return best;
}

std::optional<Box> LabelPlacer::placeOneOf(const std::vector<Point>& middles, Point size) {
    std::optional<Box> best;
    double bestCost = overlapCost;
    for (const Point& middle : middles) {
        const Box box = boxAt(middle, size);
        const double boxCost = cost(box);
        if (boxCost < bestCost) {
            best = box;
            bestCost = boxCost;
        }
    }
    if (best) {
        block(*best);
    }
    return best;
}

}  // namespace MovingMap
