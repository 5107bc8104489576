// Angles, crossings and parallels in the plane.
#include <Orlek/Math/Plane.h>

#include <cmath>

#include "math/Crossing.h"
#include "math/Degrees.h"

namespace Orlek::Math {
namespace {

template <typename Vector>
bool crossSegments(Vector p1, Vector p2, Vector p3, Vector p4, Vector& cross, double& t,
                   double& s) {
    const auto crossing =
        Detail::crossInfinite(Detail::directedLine(p1, p2), Detail::directedLine(p3, p4));
    if (!crossing)
        return false;
    cross = crossing->point;
    t = crossing->t;
    s = crossing->s;
    return crossing->withinBoth();
}

}  // namespace

double angle(Vector2<float> a, Vector2<float> b) {
    const double dot = a.x * b.x + a.y * b.y;
    const double lengths = double{a.Length()} * double{b.Length()};
    return std::acos(dot / lengths) * Detail::degreesPerRadian;
}

bool crossLines(Vector2<float> p1, Vector2<float> p2, Vector2<float> p3, Vector2<float> p4,
                Vector2<float>& cross, double& t, double& s) {
    return crossSegments(p1, p2, p3, p4, cross, t, s);
}

bool crossLines(Vector2<double> p1, Vector2<double> p2, Vector2<double> p3, Vector2<double> p4,
                Vector2<double>& cross, double& t, double& s) {
    return crossSegments(p1, p2, p3, p4, cross, t, s);
}

void getParallelLine(Vector2<float> p1, Vector2<float> p2, double distance, int side,
                     Vector2<float>& q1, Vector2<float>& q2) {
    const Vector2<float> along(p2.x - p1.x, p2.y - p1.y);
    Vector2<float> offset = along;
    const double factor = distance / double{along.Length()};
    offset.Scale(factor, factor);
    const Vector2<float> sideways =
        side == 0 ? Vector2<float>(-offset.y, offset.x) : Vector2<float>(offset.y, -offset.x);
    q1 = p1 + sideways;
    q2 = p2 + sideways;
}

void getInnerCross(Vector2<float> a, Vector2<float> b, Vector2<float> c, double distance, int side,
                   Vector2<float>& corner) {
    Vector2<float> a1;
    Vector2<float> b1;
    Vector2<float> b2;
    Vector2<float> c2;
    getParallelLine(a, b, distance, side, a1, b1);
    getParallelLine(b, c, distance, side, b2, c2);
    double t = 0.0;
    double s = 0.0;
    crossLines(a1, b1, b2, c2, corner, t, s);
}

}  // namespace Orlek::Math
