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
}  // namespace

void math() {
    using Ring = std::vector<V2d>;
    using RingF = std::vector<V2f>;
    using Node = Polygon2D::PolygonNode;
    using Cross = Polygon2D::Cross;
    static_assert(static_cast<int>(Polygon2D::Intersection) == 0);
    static_assert(static_cast<int>(Polygon2D::Union) == 1);
    static_assert(static_cast<int>(Polygon2D::Difference) == 2);
    value<V2f, V2d, V3f, V3d, V4f, Matrix4<float>, Line, Filter, Polygon2D, Node, Cross>();
    made<V2f, float, float>();
    made<V2d, double, double>();
    made<V3f, float, float, float>();
    made<V3d, double, double, double>();
    made<V4f, float, float, float, float>();
    made<Disc, double, double, double>();
    copied<Disc>();
    made<Line, V2d>();
    made<Line, V2d, V2d>();
    member<float>(&V2f::x, &V2f::y, &V3f::x, &V3f::y, &V3f::z, &V4f::x, &V4f::y, &V4f::z, &V4f::w);
    member<V2f(const V2f&) const>(&V2f::operator+);
    member<float() const>(&V2f::Length, &V2f::LengthSquared, &V3f::Length);
    member<void(double)>(&V2f::Rotate, &V2d::Rotate, &V3d::RotateZ);
    member<void(double, double)>(&V2f::Scale);
    member<double>(&V2d::x, &V2d::y, &V3d::x, &V3d::y, &V3d::z, &Disc::x, &Disc::y, &Disc::radius,
                   &Cross::tA, &Cross::tB);
    member<V2d(const V2d&) const>(&V2d::operator-, &V2d::operator+);
    member<void(const V2d&)>(&V2d::operator+=);
    member<V2f() const>(&V2d::operator Vector2<float>);
    member<double() const>(&V2d::Heading, &V2d::Length, &V2d::LengthSquared);
    member<int(const V2d&) const>(&V2d::LeftRight);
    member<void()>(&V2d::Normalize, &V3f::Normalize, &Polygon2D::clear, &Polygon2D::invert);
    member<double(const V2d&) const>(&V2d::angle);
    member<bool(const V2d&) const>(&V2d::linearTo);
    member<V3f(const V3f&) const>(&V3f::operator-, &V3f::operator+, &V3f::Cross);
    member<V3f(float) const>(&V3f::operator/, &V3f::operator*);
    member<V3f() const>(&V3f::Normalized);
    member<V3d(const V3d&) const>(&V3d::operator-, &V3d::Cross);
    member<float[16]>(&Matrix4<float>::m);
    member<bool(const Disc&, V2d&, V2d&) const>(&Disc::cross);
    member<bool(const V2d&, V2d&, V2d&) const>(&Disc::tangent);
    member<V2d() const>(&Line::p1, &Line::p2);
    member<void(V2d)>(&Line::setP1, &Line::setP2, &Polygon2D::addVertex);
    member<bool(Line) const>(&Line::cross);
    member<V2d(Line, bool&) const>(&Line::crossLine);
    member<double(V2d, bool&, double&) const>(&Line::distanceToPoint);
    function<double(double, double, double, double*)>(&Filter::pt1);
    function<double(double, double, double)>(&circLimit<double>);
    function<float(float, float, float)>(&clampTo<float>);
    function<float(float, float, float, float, float)>(&interpolate<float>);
    function<double(V2f, V2f)>(&angle);
    function<double(const double*, double)>(&getCubicValue, &getCubicDerivate);
    function<double(const double(*)[4], double, double)>(&getBiCubicValue);
    function<V2d(const double(*)[4], double, double)>(&getBiCubicDerivate);
    function<bool(V2f, V2f, V2f, V2f, V2f&, double&, double&)>(&crossLines);
    function<bool(V2d, V2d, V2d, V2d, V2d&, double&, double&)>(&crossLines);
    function<void(V2f, V2f, double, int, V2f&, V2f&)>(&getParallelLine);
    function<void(V2f, V2f, V2f, double, int, V2f&)>(&getInnerCross);
    member<void(V2f)>(&Polygon2D::addVertex);
    member<void(RingF&)>(&Polygon2D::setVertexes);
    member<void(Ring&)>(&Polygon2D::setVertexes);
    member<RingF() const>(&Polygon2D::vertexes);
    member<Ring() const>(&Polygon2D::vertexesD);
    member<bool(V2d) const>(&Polygon2D::pointInside);
    member<bool(V2f) const>(&Polygon2D::pointInside);
    member<std::list<Polygon2D>(Polygon2D, Polygon2D::BoolOperation)>(&Polygon2D::boolOperation);
    member<V2d>(&Node::point);
    member<std::vector<std::uint32_t>>(&Node::successors);
    member<bool>(&Node::visited);
    member<std::uint32_t>(&Cross::index, &Cross::node);
    member<std::array<std::uint32_t, 2>>(&Cross::edgeA, &Cross::edgeB);
    member<V2f>(&Cross::point);
    function<int(RingF)>(&getWindingDirection);
    function<int(Ring)>(&getWindingDirection);
    function<bool(V2d, Ring)>(&pointInPolygon);
}

}  // namespace interface
