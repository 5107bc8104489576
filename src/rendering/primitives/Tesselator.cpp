// GLU calls back with plain C functions, so the result under construction is static.
#include <GL/glu.h>
#include <Orlek/OpenGL/Tesselator.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

#include "rendering/geometry/OutlineWork.h"
#include "rendering/geometry/Positions.h"

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

// GLU goes round in circles when its sweep meets edges whose lengths differ by dozens of powers of
// ten: what it computes of the one is less than the rounding of the other. It is given the corners
// on a grid, along each axis so fine that floats of the outline's size lie on it, and so coarse
// that doubles can tell exactly on which side of an edge a corner lies; in its answer the corners
// are the outline's own. Axes differ without harm: the sweep never mixes them.
class CornerGrid {
public:
    explicit CornerGrid(const std::vector<Math::Vector3<float>>& outline) {
        Math::Vector3<float> extent;
        for (const auto& p : outline) {
            extent.x = std::max(extent.x, std::fabs(p.x));
            extent.y = std::max(extent.y, std::fabs(p.y));
            extent.z = std::max(extent.z, std::fabs(p.z));
        }
        mUnits = {unitOf(extent.x), unitOf(extent.y), unitOf(extent.z)};
    }

    std::array<double, 3> onGrid(const Math::Vector3<float>& p) const {
        return {rounded(p.x, mUnits[0]), rounded(p.y, mUnits[1]), rounded(p.z, mUnits[2])};
    }

private:
    static double unitOf(float extent) {
        constexpr int bits = 25;
        return extent > 0.0F ? std::ldexp(1.0, std::ilogb(extent) - bits) : 1.0;
    }
    static double rounded(float coordinate, double unit) {
        return std::nearbyint(coordinate / unit) * unit;
    }

    std::array<double, 3> mUnits;
};

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
    mCoords.clear();
    mCoords.reserve(mVertices.size());  // GLU keeps pointers to them
    const CornerGrid grid(mVertices);
    for (const Math::Vector3<float>& p : mVertices) {
        auto place = grid.onGrid(p);
        gluTessVertex(tess.get(), place.data(),
                      mCoords.emplace_back(Coordinates{p.x, p.y, p.z}).data());
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

void Tesselator::combineCB(double coords[3], double* /*vertexData*/[4], float /*weight*/[4],
                           double** outData) {
    mAllocatedVertices.push_back(std::make_unique<double[]>(3));
    *outData = mAllocatedVertices.back().get();
    std::copy_n(coords, 3, *outData);
}

void Tesselator::endCB() {}

void Tesselator::errorCB(unsigned /*error*/) {}

}  // namespace Orlek::OpenGL
