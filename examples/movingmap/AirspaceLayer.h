// Airspace on the map.
#pragma once

#include <vector>

#include "AirspaceFile.h"
#include "Canvas.h"
#include "LabelPlacer.h"

namespace MovingMap {

/// An airspace in the picture's coordinates.
struct AirspaceShape {
    const Airspace* airspace = nullptr;
    std::vector<Polyline> outlines;  ///< The parts in the picture.
    /// The same without what lies in airspace before this one: none when all of it does.
    std::vector<Polyline> fills;
};

/// Projects airspace and cuts it at the area's edge; what lies outside is left out. Prohibited
/// airspace comes first, then controlled, then training, each kind in the order of the file; where
/// several overlap, the first of them has the ground. The result points into @p airspace.
std::vector<AirspaceShape> projectAirspace(const std::vector<Airspace>& airspace,
                                           const MapView& view, const Box& area);

/// Fills the shapes in the colour of their kind, tinted and stippled, and draws their outlines, the
/// first shape's on top.
void drawAirspace(Canvas& canvas, const std::vector<AirspaceShape>& shapes);

/// Adds name, type and limits to the canvas, inside the fill of each shape where there is a free
/// place; a name that would cover another text is left out.
void addAirspaceLabels(Canvas& canvas, const std::vector<AirspaceShape>& shapes,
                       LabelPlacer& placer, const Box& area);

/// Whether a point lies inside a closed outline.
bool isInside(const Polyline& outline, Point point);

}  // namespace MovingMap
