// One sample of a polygon operation: both outlines, and the rings that came out, filled.
#pragma once

#include <Orlek/Math.h>

#include <string>
#include <vector>

#include "Sheet.h"

namespace Polygons {

using Orlek::Math::Polygon2D;
using Ring = std::vector<Orlek::Math::Vector2<double>>;

class CutSample {
public:
    /// Cuts at once; the counts stand in the upper corner of the sample.
    /// @param box where to draw; the rings are in shares of its size
    CutSample(Gallery::Sheet& sheet, const Gallery::Box& box, const Ring& self, const Ring& other,
              Polygon2D::BoolOperation operation);

    void draw();

private:
    void addResult(const Gallery::Box& box, const Polygon2D& ring);

    std::vector<Orlek::OpenGL::Polygon> mFills;
    Orlek::OpenGL::LineLoops mSelf;
    Orlek::OpenGL::LineLoops mOther;
    Orlek::OpenGL::LineLoops mRings;
    Orlek::OpenGL::LineLoops mHoles;
    std::vector<Orlek::OpenGL::Polygon> mStarts;
};

}  // namespace Polygons
