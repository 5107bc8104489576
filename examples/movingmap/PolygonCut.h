// Outlines cut against each other.
#pragma once

#include <vector>

#include "LabelPlacer.h"
#include "Stroke.h"

namespace MovingMap {

/// The smallest upright rectangle around an outline of at least one point.
Box boxAround(const Polyline& outline);

/// The outline of a rectangle.
Polyline rectangle(const Box& box);

/// The parts of an outline inside another one, as outlines without holes; specks of less than a
/// square pixel are left out. An outline that cannot be cut, as one that crosses itself, is
/// returned whole, so that nothing that matters vanishes from a map.
std::vector<Polyline> partsInside(const Polyline& outline, const Polyline& other);

/// The same for the parts outside the other one. Where that leaves a hole, the parts share a seam.
std::vector<Polyline> partsOutside(const Polyline& outline, const Polyline& other);

}  // namespace MovingMap
