// A picture of a map, laid over the relief.
#pragma once

#include <string>

#include "Image.h"
#include "MapView.h"
#include "ReliefImage.h"

namespace MovingMap {

/// An area between two parallels and two meridians, in degrees; it does not cross the 180th.
struct Bounds {
    double south = 0.0;
    double west = 0.0;
    double north = 0.0;
    double east = 0.0;
};

/// Reads "south,west,north,east". Throws std::runtime_error that says what is wrong.
Bounds parseBounds(const std::string& text);

/// A map whose rows are parallels and whose columns are meridians, evenly spaced.
class MapImage {
public:
    /// @param image its top row lies at the northern bound
    MapImage(OrlekSupport::Image image, const Bounds& bounds);

    /// Red, green, blue and alpha, 0 to 255, between the pixels around a position; outside the
    /// bounds transparent.
    std::array<double, 4> at(const Position& position) const;

    /// The size of a pixel from north to south in metres.
    double metresPerPixel() const;

private:
    OrlekSupport::Image mImage;
    Bounds mBounds;
};

/// Reads a PNG file. Throws std::runtime_error that names it when it cannot be used.
MapImage readMapImage(const std::string& path, const Bounds& bounds);

/// Lays a map over a sampled relief: fills its map texture, where the map is transparent with the
/// colours of the heights, and blends the map into its water.
/// @param share of the map against the height colours and the water, 0 to 1
/// @param step pixels of the view for each texel, as the relief was sampled
void layMap(const MapImage& map, double share, const MapView& view, int step, ReliefImage& relief);

}  // namespace MovingMap
