// Samples of polygon operations, each with both outlines and the rings that came out, filled, and
// the page that they stand on.
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

/// A page of two rows of three samples.
class CutSheet {
public:
    CutSheet(const char* title, const char* subtitle) : mSheet(title, subtitle, 3, 2) {}

    void add(int column, int row, const char* code, const char* note, const Ring& self,
             const Ring& other, Polygon2D::BoolOperation operation);
    void draw(double /*seconds*/);

private:
    Gallery::Sheet mSheet;
    std::vector<CutSample> mCuts;
};

}  // namespace Polygons
