// Vectors, matrices, scalar functions and 2D polygons.
#include "interface.h"

#include <array>
#include <cstdint>
#include <list>
#include <vector>

namespace interface {
namespace {
using namespace Orlek::Math;
using V2f = Vector2<float>;
using V2d = Vector2<double>;
using V3f = Vector3<float>;
using V3d = Vector3<double>;
using V4f = Vector4<float>;
using Disc = Circle<double>;

static_assert(sizeof(V2f) == 8 && sizeof(V2d) == 16 && sizeof(V3f) == 12 && sizeof(V3d) == 24);
static_assert(sizeof(V4f) == 16 && sizeof(Matrix4<float>) == 64);
static_assert(std::is_trivially_copyable_v<Matrix4<float>>);
static_assert(std::is_convertible_v<V2d, V2f>);

void vector2() {
    value<V2f>();
    made<V2f, float, float>();
    member<float>(&V2f::x);
    member<float>(&V2f::y);
    member<V2f(const V2f&) const>(&V2f::operator+);
    member<float() const>(&V2f::Length);
    member<float() const>(&V2f::LengthSquared);
    member<void(double)>(&V2f::Rotate);
    member<void(double, double)>(&V2f::Scale);

    value<V2d>();
    made<V2d, double, double>();
    member<double>(&V2d::x);
    member<double>(&V2d::y);
    member<V2d(const V2d&) const>(&V2d::operator-);
    member<V2d(const V2d&) const>(&V2d::operator+);
    member<void(const V2d&)>(&V2d::operator+=);
    member<V2f() const>(&V2d::operator Vector2<float>);
    member<double() const>(&V2d::Heading);
    member<int(const V2d&) const>(&V2d::LeftRight);
    member<double() const>(&V2d::Length);
    member<double() const>(&V2d::LengthSquared);
    member<void()>(&V2d::Normalize);
    member<void(double)>(&V2d::Rotate);
    member<double(const V2d&) const>(&V2d::angle);
    member<bool(const V2d&) const>(&V2d::linearTo);
}

void vector3And4() {
    value<V3f>();
    made<V3f, float, float, float>();
    member<float>(&V3f::x);
    member<float>(&V3f::y);
    member<float>(&V3f::z);
    member<V3f(const V3f&) const>(&V3f::operator-);
    member<V3f(const V3f&) const>(&V3f::operator+);
    member<V3f(float) const>(&V3f::operator/);
    member<V3f(float) const>(&V3f::operator*);
    member<V3f(const V3f&) const>(&V3f::Cross);
    member<float() const>(&V3f::Length);
    member<void()>(&V3f::Normalize);
    member<V3f() const>(&V3f::Normalized);

    value<V3d>();
    made<V3d, double, double, double>();
    member<double>(&V3d::x);
    member<double>(&V3d::y);
    member<double>(&V3d::z);
    member<V3d(const V3d&) const>(&V3d::operator-);
    member<V3d(const V3d&) const>(&V3d::Cross);
    member<void(double)>(&V3d::RotateZ);

    value<V4f>();
    made<V4f, float, float, float, float>();
    member<float>(&V4f::x);
    member<float>(&V4f::y);
    member<float>(&V4f::z);
    member<float>(&V4f::w);

    value<Matrix4<float>>();
    member<float[16]>(&Matrix4<float>::m);
}

void shapes() {
    made<Disc, double, double, double>();
    copied<Disc>();
    member<double>(&Disc::x);
    member<double>(&Disc::y);
    member<double>(&Disc::radius);
    member<bool(const Disc&, V2d&, V2d&) const>(&Disc::cross);
    member<bool(const V2d&, V2d&, V2d&) const>(&Disc::tangent);

    value<Line>();
    made<Line, V2d>();
    made<Line, V2d, V2d>();
    member<V2d() const>(&Line::p1);
    member<V2d() const>(&Line::p2);
    member<void(V2d)>(&Line::setP1);
    member<void(V2d)>(&Line::setP2);
    member<bool(Line) const>(&Line::cross);
    member<V2d(Line, bool&) const>(&Line::crossLine);
    member<double(V2d, bool&, double&) const>(&Line::distanceToPoint);

    value<Filter>();
    function<double(double, double, double, double*)>(&Filter::pt1);
}

void functions() {
    function<double(double, double, double)>(&circLimit<double>);
    function<float(float, float, float)>(&clampTo<float>);
    function<float(float, float, float, float, float)>(&interpolate<float>);
    function<double(V2f, V2f)>(&angle);
    function<double(const double*, double)>(&getCubicValue);
    function<double(const double*, double)>(&getCubicDerivate);
    function<double(const double(*)[4], double, double)>(&getBiCubicValue);
    function<V2d(const double(*)[4], double, double)>(&getBiCubicDerivate);
    function<bool(V2f, V2f, V2f, V2f, V2f&, double&, double&)>(&crossLines);
    function<bool(V2d, V2d, V2d, V2d, V2d&, double&, double&)>(&crossLines);
    function<void(V2f, V2f, double, int, V2f&, V2f&)>(&getParallelLine);
    function<void(V2f, V2f, V2f, double, int, V2f&)>(&getInnerCross);
}

}  // namespace

void math() {
    vector2();
    vector3And4();
    shapes();
    functions();
}

void polygons() {
    using Ring = std::vector<V2d>;
    using RingF = std::vector<V2f>;
    static_assert(static_cast<int>(Polygon2D::Intersection) == 0);
    static_assert(static_cast<int>(Polygon2D::Union) == 1);
    static_assert(static_cast<int>(Polygon2D::Difference) == 2);

    value<Polygon2D>();
    member<void(V2f)>(&Polygon2D::addVertex);
    member<void(V2d)>(&Polygon2D::addVertex);
    member<void(RingF&)>(&Polygon2D::setVertexes);
    member<void(Ring&)>(&Polygon2D::setVertexes);
    member<RingF() const>(&Polygon2D::vertexes);
    member<Ring() const>(&Polygon2D::vertexesD);
    member<void()>(&Polygon2D::clear);
    member<void()>(&Polygon2D::invert);
    member<bool(V2d) const>(&Polygon2D::pointInside);
    member<bool(V2f) const>(&Polygon2D::pointInside);
    member<std::list<Polygon2D>(Polygon2D, Polygon2D::BoolOperation)>(&Polygon2D::boolOperation);

    using Node = Polygon2D::PolygonNode;
    value<Node>();
    member<V2d>(&Node::point);
    member<std::vector<std::uint32_t>>(&Node::successors);
    member<bool>(&Node::visited);

    using Cross = Polygon2D::Cross;
    value<Cross>();
    member<std::uint32_t>(&Cross::index);
    member<std::array<std::uint32_t, 2>>(&Cross::edgeA);
    member<double>(&Cross::tA);
    member<std::array<std::uint32_t, 2>>(&Cross::edgeB);
    member<double>(&Cross::tB);
    member<std::uint32_t>(&Cross::node);
    member<V2f>(&Cross::point);

    function<int(RingF)>(&getWindingDirection);
    function<int(Ring)>(&getWindingDirection);
    function<bool(V2d, Ring)>(&pointInPolygon);
}

}  // namespace interface
