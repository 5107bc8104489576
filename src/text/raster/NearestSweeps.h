// Sweeps that spread the nearest edge points over an image, without visiting pixels in vain.
//
// A pixel takes over the point of a neighbour when that is nearer than its own by more than a
// slack. What it had looked at before without taking it, it would not take now, because its own
// distance only falls. So a sweep visits only those pixels of which a neighbour has changed since
// the last sweep in the same direction, and gives the same distances as one that visits all.
// Pixels are kept in groups of four, which are tried together and visited one by one only when one
// of them would change; a visit too many does no harm.
#pragma once

#include "text/raster/EdgeSeeds.h"
#include "text/raster/GroupFlags.h"

namespace Orlek::Detail {

class NearestSweeps {
public:
    /// Begins with the edge points of the image. Throws std::bad_alloc without memory for the
    /// flags, a bit or two for each group.
    NearestSweeps(const CoverageImage& image, const EdgeDistances& edges);

    /// A sweep through the rows upwards, each to the right, and one the other way round; false when
    /// neither changed anything.
    bool iterate();

private:
    bool forwardRow(std::size_t y);
    bool backwardRow(std::size_t y);
    bool forwardGroup(std::size_t x, std::size_t y);
    bool backwardGroup(std::size_t x, std::size_t y);
    bool forwardVisit(std::size_t x, std::size_t y);
    bool backwardVisit(std::size_t x, std::size_t y);
    std::size_t groupEnd(std::size_t x) const;
    void nextSweep();

    std::size_t mWidth;
    std::size_t mHeight;
    EdgeDistances mEdges;
    GroupFlags mBefore;  ///< Groups that the sweep before changed.
    GroupFlags mNow;     ///< Groups that the present sweep has changed.
};

}  // namespace Orlek::Detail
