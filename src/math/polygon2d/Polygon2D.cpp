// Polygon2D: the operations step by step; what each step does stands in the files beside this one.
#include <Orlek/Math/Polygon2D.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

#include "math/polygon2d/CrossingGraph.h"
#include "math/polygon2d/EdgeCrossings.h"
#include "math/polygon2d/RingWalk.h"

namespace Orlek::Math {
namespace {

using Detail::Ring;
using Detail::RingRelation;

/// Up to here inserting crossings one by one is faster than sorting them.
constexpr std::size_t fewCrossings = 12;

Vector2<float> toFloat(Vector2<double> point) {
    return point;
}

using Vertexes = std::vector<Vector2<double>>;

std::list<Polygon2D> only(Vertexes& ring) {
    std::list<Polygon2D> result(1);
    result.front().setVertexes(ring);
    return result;
}

/// The result when one ring or both have no vertex.
std::list<Polygon2D> resultOfEmpty(Vertexes& self, Vertexes& other,
                                   Polygon2D::BoolOperation operation) {
    if (operation == Polygon2D::Union)
        return only(self.empty() ? other : self);
    if (operation == Polygon2D::Difference && !self.empty())
        return only(self);
    return {};
}

/// The result when one ring lies in the other or they count as apart.
std::list<Polygon2D> resultWithoutWalk(RingRelation relation, Vertexes& self, Vertexes& other,
                                       Polygon2D::BoolOperation operation) {
    const bool apart = relation == RingRelation::apart;
    const bool otherInside = relation == RingRelation::otherInside;
    if (operation == Polygon2D::Difference && apart)
        return only(self);
    if (operation == Polygon2D::Difference || apart)
        return {};
    return only(otherInside == (operation == Polygon2D::Union) ? self : other);
}

/// Every way to one node leads to another instead.
void replaceSuccessor(Polygon2D::PolygonNode& node, std::uint32_t from, std::uint32_t to) {
    std::replace(node.successors.begin(), node.successors.end(), from, to);
}

/// Moves a later crossing of the edge that was split at a node to its half of it.
void moveToHalf(std::array<std::uint32_t, 2>& edge, double position, std::uint32_t node,
                double splitPosition) {
    edge[splitPosition > position ? 1 : 0] = node;
}

}  // namespace

void Polygon2D::addVertex(Vector2<float> vertex) {
    mVertexes.emplace_back(vertex.x, vertex.y);
}

void Polygon2D::addVertex(Vector2<double> vertex) {
    mVertexes.push_back(vertex);
}

void Polygon2D::setVertexes(std::vector<Vector2<float>>& vertexes) {
    mVertexes.clear();
    mVertexes.reserve(vertexes.size());
    for (const Vector2<float> vertex : vertexes)
        addVertex(vertex);
}

void Polygon2D::setVertexes(std::vector<Vector2<double>>& vertexes) {
    mVertexes = vertexes;
}

std::vector<Vector2<float>> Polygon2D::vertexes() const {
    return {mVertexes.begin(), mVertexes.end()};
}

std::vector<Vector2<double>> Polygon2D::vertexesD() const {
    return mVertexes;
}

void Polygon2D::clear() {
    mVertexes.clear();
}

void Polygon2D::invert() {
    std::reverse(mVertexes.begin(), mVertexes.end());
}

bool Polygon2D::pointInside(Vector2<double> point) const {
    return Detail::pointInsideRing(mVertexes, point);
}

bool Polygon2D::pointInside(Vector2<float> point) const {
    return pointInside(Vector2<double>(point.x, point.y));
}

std::list<Polygon2D> Polygon2D::boolOperation(Polygon2D other, BoolOperation operation) {
    if (mVertexes.empty() || other.mVertexes.empty())
        return resultOfEmpty(mVertexes, other.mVertexes, operation);
    const int wanted = operation == Difference ? 0 : 1;
    if (Detail::windingDirection<Vector2<double>>(mVertexes, std::identity()) != 1)
        invert();
    if (Detail::windingDirection<Vector2<double>>(other.mVertexes, toFloat) != wanted)
        other.invert();

    const Detail::RingPair rings(mVertexes, other.mVertexes);
    const RingRelation relation = Detail::relationOf(rings);
    if (relation != RingRelation::crossing)
        return resultWithoutWalk(relation, mVertexes, other.mVertexes, operation);
    if (!Detail::findCrossings(rings, mCrosses)) {
        mNodes.clear();
        std::printf("Polygon2D::boolOperation Error: more than %zu crossings\n",
                    Detail::mostCrossings);
        return {};
    }
    Detail::layNodes(rings.self, rings.other, mCrosses, mNodes);
    if (mCrosses.size() > fewCrossings)
        Detail::splitEdges(rings.self.size(), rings.other.size(), mCrosses, mNodes);
    else
        for (Cross& cross : mCrosses)
            insertNode(cross);

    std::list<Polygon2D> result;
    const auto turn = operation == Union ? Detail::Turn::left : Detail::Turn::right;
    for (int start = getNextUnvisitedCrossNode(); start >= 0;
         start = Detail::nextUnvisitedCross(mNodes, start))
        result.emplace_back().mVertexes = Detail::walkRing(mNodes, start, turn);
    return result;
}

void Polygon2D::insertNode(Cross& cross) {
    mNodes[cross.node].successors.assign({cross.edgeA[1], cross.edgeB[1]});
    replaceSuccessor(mNodes[cross.edgeA[0]], cross.edgeA[1], cross.node);
    replaceSuccessor(mNodes[cross.edgeB[0]], cross.edgeB[1], cross.node);
    for (std::size_t i = cross.index + 1; i < mCrosses.size(); ++i) {
        Cross& later = mCrosses[i];
        if (later.edgeA == cross.edgeA)
            moveToHalf(later.edgeA, later.tA, cross.node, cross.tA);
        else if (later.edgeB == cross.edgeB)
            moveToHalf(later.edgeB, later.tB, cross.node, cross.tB);
        else if (later.edgeA == cross.edgeB)
            moveToHalf(later.edgeA, later.tA, cross.node, cross.tB);
        else if (later.edgeB == cross.edgeA)
            moveToHalf(later.edgeB, later.tB, cross.node, cross.tA);
    }
}

int Polygon2D::getNextUnvisitedCrossNode() {
    return Detail::nextUnvisitedCross(mNodes, 0);
}

int getWindingDirection(std::vector<Vector2<float>> ring) {
    return Detail::windingDirection<Vector2<float>>(ring, std::identity());
}

int getWindingDirection(std::vector<Vector2<double>> ring) {
    return Detail::windingDirection<Vector2<double>>(ring, std::identity());
}

bool pointInPolygon(Vector2<double> point, std::vector<Vector2<double>> ring) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vector2<double> from = ring[i];
        const Vector2<double> along = Detail::edgeEnd<Vector2<double>>(ring, i) - from;
        const double angle = -std::atan2(along.y, along.x);
        const double left =
            std::sin(angle) * (point.x - from.x) + std::cos(angle) * (point.y - from.y);
        if (left > 0.0)
            return false;
    }
    return true;
}

}  // namespace Orlek::Math
