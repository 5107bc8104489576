#include <Orlek/OpenGL/LineLoops.h>

#include <cmath>

#include "rendering/geometry/Positions.h"
#include "rendering/geometry/Shapes.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/primitives/LineDrawing.h"

namespace Orlek::OpenGL {

namespace {

constexpr auto loopRestart = static_cast<std::uint32_t>(LineLoops::RESTART_INDEX);
constexpr Detail::LineRecipe loopRecipe{
    .label = "LineLoops", .mode = Detail::DrawMode::LineStripAdjacency, .restart = loopRestart};

// The change of the view scale from which on stippled lines are measured anew.
constexpr double scaleStep = 0.001;

}  // namespace

LineLoops::LineLoops() = default;
LineLoops::LineLoops(const LineLoops&) = default;
LineLoops& LineLoops::operator=(const LineLoops&) = default;

LineLoops::~LineLoops() {
    clear();
}

template <typename Vector>
void LineLoops::appendLoop(const std::vector<Vector>& points) {
    if (points.empty()) {
        return;
    }
    mDirty = true;
    for (const Vector& point : points) {
        mPoints.append(Detail::toPosition(point));
    }
    mPoints.append(Detail::toPosition(points.front()));
    mPoints.restart(loopRestart);
    mLoopClosed = true;
}

void LineLoops::addLineLoop(std::vector<Math::Vector2<float>> points) {
    appendLoop(points);
}

void LineLoops::addLineLoop(std::vector<Math::Vector3<float>> points) {
    appendLoop(points);
}

void LineLoops::addLineLoop(std::vector<Math::Vector4<float>> points) {
    appendLoop(points);
}

void LineLoops::addVertex(Math::Vector2<float> position) {
    addVertex(Detail::toPosition(position));
}

void LineLoops::addVertex(Math::Vector3<float> position) {
    mPoints.append(position);
    mDirty = true;
    mLoopClosed = false;
}

void LineLoops::addVertex(Math::Vector4<float> position) {
    addVertex(Detail::toPosition(position));
}

void LineLoops::setRect(unsigned int width, unsigned int height) {
    clearVertex();
    const Detail::Quad corners = Detail::rectangleOutline(width, height);
    appendLoop(std::vector<Math::Vector3<float>>(corners.begin(), corners.end()));
}

void LineLoops::clearVertex() {
    mPoints.clear();
    mDirty = true;
    mLoopClosed = false;
}

void LineLoops::clear() {
    Detail::releaseShare(mMesh);
}

void LineLoops::setColor(Math::Vector4<float> color) {
    mStyle.color = color;
}

void LineLoops::setLineWidth(float width) {
    mStyle.lineWidth = width;
}

void LineLoops::setAntiAlias(bool on) {
    mStyle.antiAlias = on;
}

void LineLoops::setStipple(unsigned short pattern) {
    mStyle.setPattern(pattern);
}

// The closing vertex goes into what is uploaded only: vertices added later continue the open loop.
Detail::IndexedPoints LineLoops::closedPoints() const {
    Detail::IndexedPoints points = mPoints;
    if (!mLoopClosed) {
        points.append(points.vertices.front());
    }
    return points;
}

void LineLoops::setData(double scale) {
    if (mDirty || mMesh == nullptr) {
        mDirty = !Detail::uploadStrips(mMesh, loopRecipe, closedPoints());
    } else if (mStyle.stipple != 0 && std::abs(scale - mLastScale) > scaleStep) {
        mLastScale = scale;
        mDirty = true;  // until it is done
        const Detail::IndexedPoints points = closedPoints();
        mDirty =
            !(mMesh.use_count() > 1 ? Detail::uploadStrips(mMesh, loopRecipe, points)
                                    : Detail::updatePositions(mMesh, loopRecipe, points.vertices));
    }
}

void LineLoops::render(double scale) {
    if (mPoints.indices.size() < 2) {
        return;
    }
    setData(scale);
    if (mMesh != nullptr) {
        Detail::drawLines(loopRecipe, mStyle, *mMesh, mMesh->indexCount());
    }
}

}  // namespace Orlek::OpenGL
