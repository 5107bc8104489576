// Areas of the globe, and those that tiles cover.
#pragma once

#include <optional>

#include "Arguments.h"
#include "Inventory.h"

namespace OrlekTiles {

/// Between two parallels and two meridians, in degrees. Beyond the antimeridian east is above 180.
struct Area {
    double south = 0.0;
    double west = 0.0;
    double north = 0.0;
    double east = 0.0;
};

/// What a tile covers of its cell.
Area areaOf(const TileFile& file);

Area shifted(Area area, double degreesEast);

/// The shift by a turn or none that brings area @p a onto area @p b; nothing when they do not
/// overlap.
std::optional<double> shiftOnto(const Area& a, const Area& b);

/// The area of --south, --west, --north and --east, across the antimeridian when west is given
/// above east; a bound that is not given is that of all tiles that the library takes. Throws
/// UsageError when a bound is no number on the globe or two are the wrong way round,
/// std::runtime_error when no tile lies within.
Area chosenArea(const Arguments& arguments, const Inventory& inventory);

}  // namespace OrlekTiles
