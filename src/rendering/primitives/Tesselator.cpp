// GLU calls back with plain C functions, so the result under construction is static.
//
// Where edges cross, GLU calculates new corners in floating point. Behind some crossings it finds
// their order changed, and goes on in steps of the last bit of a coordinate, for minutes or without
// end. An outline that crosses itself nowhere but in corners leaves it nothing to calculate but
// signs, of whole numbers that doubles hold exactly.
#include <GL/glu.h>
#include <Orlek/OpenGL/Tesselator.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "rendering/geometry/OutlineWork.h"
#include "rendering/geometry/Positions.h"
#include "rendering/geometry/SweepOutline.h"

namespace Orlek::OpenGL {

namespace {

struct DeleteTess {
    void operator()(GLUtesselator* tess) const { gluDeleteTess(tess); }
};
using TessHandle = std::unique_ptr<GLUtesselator, DeleteTess>;

// The type under which GLU keeps every callback.
template <typename Function>
_GLUfuncptr callback(Function* function) {
    return reinterpret_cast<_GLUfuncptr>(function);
}

// About a minute. Below so few corners no outline comes near.
constexpr double mostWork = 2e9;
constexpr std::size_t fewCorners = 1000;

bool isFinite(const Math::Vector3<float>& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

// GLU loops or crashes on coordinates that are not finite, and takes hours and all memory when
// thousands of edges cross each other.
bool isAcceptable(const std::vector<Math::Vector3<float>>& outline) {
    return std::ranges::all_of(outline, isFinite) &&
           (outline.size() <= fewCorners || Detail::outlineWork(outline) <= mostWork);
}

}  // namespace

unsigned int Tesselator::mStartPos = 0;
std::vector<std::unique_ptr<double[]>> Tesselator::mAllocatedVertices;
Tesselator::TessPolygon Tesselator::mTessPolygon;

Tesselator::Tesselator() = default;
Tesselator::Tesselator(const Tesselator&) = default;
Tesselator& Tesselator::operator=(const Tesselator&) = default;
Tesselator::~Tesselator() = default;

void Tesselator::addVertex(Math::Vector2<float> p) {
    addVertex(Detail::toPosition(p));
}

void Tesselator::addVertex(Math::Vector3<float> p) {
    mVertices.push_back(p);
}

void Tesselator::addVertex(Math::Vector4<float> p) {
    addVertex(Detail::toPosition(p));
}

void Tesselator::clearVertex() {
    mVertices.clear();
}

Tesselator::TessPolygon Tesselator::tesselate() {
    mTessPolygon.primitives.clear();
    mStartPos = 0;
    const TessHandle tess(gluNewTess());
    if (tess == nullptr || !isAcceptable(mVertices)) {
        return {};
    }
    gluTessProperty(tess.get(), GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
    gluTessCallback(tess.get(), GLU_TESS_COMBINE, callback(combineCB));
    gluTessCallback(tess.get(), GLU_TESS_VERTEX, callback(vertexCB));
    gluTessCallback(tess.get(), GLU_TESS_BEGIN, callback(beginCB));
    gluTessCallback(tess.get(), GLU_TESS_END, callback(endCB));
    gluTessCallback(tess.get(), GLU_TESS_ERROR, callback(errorCB));

    gluTessBeginPolygon(tess.get(), nullptr);
    gluTessBeginContour(tess.get());
    const std::vector<Detail::OutlineCorner> corners = Detail::sweepOutline(mVertices);
    mCoords.clear();
    mCoords.reserve(corners.size());  // GLU keeps pointers to them
    for (const auto& [at, place] : corners) {
        Coordinates location{static_cast<double>(at.s), static_cast<double>(at.t), 0.0};
        gluTessVertex(tess.get(), location.data(), mCoords.emplace_back(place).data());
    }
    gluTessEndContour(tess.get());
    gluTessEndPolygon(tess.get());

    mAllocatedVertices.clear();
    return std::exchange(mTessPolygon, {});
}

void Tesselator::beginCB(unsigned type) {
    constexpr std::size_t usualVertices = 8;
    mTessPolygon.primitives.push_back({{}, type, mStartPos});
    mTessPolygon.primitives.back().vertices.reserve(usualVertices);
}

void Tesselator::vertexCB(double* v) {
    mTessPolygon.primitives.back().vertices.emplace_back(
        static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2]));
    ++mStartPos;
}

// Either two corners that lie in one place or the four ends of edges that cross. What GLU has as
// the place is that on the grid.
void Tesselator::combineCB(double* /*coords*/, double* vertexData[4], float weight[4],
                           double** outData) {
    mAllocatedVertices.push_back(std::make_unique<double[]>(3));
    double* const place = mAllocatedVertices.back().get();
    *outData = place;
    const bool crossing = vertexData[2] != nullptr;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (std::size_t i = 0; i < (crossing ? 4 : 1); ++i) {
            place[axis] += vertexData[i][axis] * (crossing ? double{weight[i]} : 1.0);
        }
    }
}

void Tesselator::endCB() {}

void Tesselator::errorCB(unsigned /*error*/) {}

}  // namespace Orlek::OpenGL
