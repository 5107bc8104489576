// The targets of a feed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>

#include "Canvas.h"
#include "LabelPlacer.h"
#include "Scene.h"

namespace MovingMap {

/// On which side of its target each label stands, by the targets' numbers.
using LabelPlaces = std::map<std::uint32_t, std::size_t>;

/// Draws where the targets have been, paler the longer ago.
void drawTrails(Canvas& canvas, const MapView& view, const Live& live);

/// Draws the targets as arrowheads along their tracks: filled when they are near the own ship in
/// distance and altitude, hollow otherwise, grey and fading when their data are old.
void drawTargets(Canvas& canvas, const MapView& view, const Scene& scene);

/// Adds a label to each target in @p area, the nearest first: callsign, altitude against the own
/// ship in hundreds of feet, an arrow when it climbs or descends, the age when its data are old.
/// @param places of the labels in the last picture; gets those of this one
void addTargetLabels(Canvas& canvas, const MapView& view, const Scene& scene, LabelPlacer& placer,
                     const Box& area, LabelPlaces& places);

}  // namespace MovingMap
