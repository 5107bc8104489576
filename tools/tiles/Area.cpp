#include "Area.h"

#include <algorithm>
#include <cstdio>

#include "Number.h"
#include "terrain/tiles/TileKey.h"

namespace OrlekTiles {

namespace {

using namespace Orlek::Detail;

/// The cells in which the library looks for a tile.
Area cellOf(const HeightTile& tile) {
    const double south = latIndexOf(tile.key()) - 90.0;
    const double west = lonIndexOf(tile.key()) - 180.0;
    return tile.lowRes() ? Area{south, west, south + 50.0, west + 40.0}
                         : Area{south, west, south + 1.0, west + 1.0};
}

/// @param seam the meridian at which the globe is cut, 0 or -180
std::optional<Area> areaOfAll(const Inventory& inventory, double seam) {
    std::optional<Area> all;
    for (const TileFile& file : inventory.files) {
        if (file.notTaken) {
            continue;
        }
        Area area = areaOf(file);
        area = shifted(area, area.west < seam ? 360.0 : 0.0);
        all = all ? Area{std::min(all->south, area.south), std::min(all->west, area.west),
                         std::max(all->north, area.north), std::max(all->east, area.east)}
                  : area;
    }
    return all;
}

/// Whichever way round the globe is shorter; of equal ones, but for rounding, the usual.
std::optional<Area> areaOfAll(const Inventory& inventory) {
    const auto cutAtAntimeridian = areaOfAll(inventory, -180.0);
    const auto cutAtGreenwich = areaOfAll(inventory, 0.0);
    const auto width = [](const std::optional<Area>& area) { return area->east - area->west; };
    return cutAtGreenwich && width(cutAtGreenwich) < width(cutAtAntimeridian) - 1e-6
               ? cutAtGreenwich
               : cutAtAntimeridian;
}

void setBound(const Arguments& arguments, const std::string& option, double limit, double& bound) {
    const std::optional<std::string> text = arguments.value(option);
    if (!text) {
        return;
    }
    const std::optional<double> degrees = OrlekSupport::parseNumber(*text, -limit, limit);
    if (!degrees) {
        throw UsageError(option + ": '" + *text + "' is no number of degrees from " +
                         std::to_string(static_cast<int>(-limit)) + " to " +
                         std::to_string(static_cast<int>(limit)));
    }
    bound = *degrees;
}

}  // namespace

Area areaOf(const TileFile& file) {
    Area area = cellOf(*file.tile);
    if (file.format == TileFormat::dted) {
        const TileGrid& grid = file.tile->grid();
        area.south = std::max(area.south, grid.latOrigin);
        area.west = std::max(area.west, grid.lonOrigin);
        area.north = std::min(area.north, grid.latOrigin + (grid.numLat - 1) * grid.latSpacing);
        area.east = std::min(area.east, grid.lonOrigin + (grid.numLon - 1) * grid.lonSpacing);
    }
    return area;
}

Area shifted(Area area, double degreesEast) {
    area.west += degreesEast;
    area.east += degreesEast;
    return area;
}

std::optional<double> shiftOnto(const Area& a, const Area& b) {
    for (const double shift : {0.0, 360.0, -360.0}) {
        const Area moved = shifted(a, shift);
        if (moved.south < b.north && b.south < moved.north && moved.west < b.east &&
            b.west < moved.east) {
            return shift;
        }
    }
    return std::nullopt;
}

Area chosenArea(const Arguments& arguments, const Inventory& inventory) {
    const std::optional<Area> all = areaOfAll(inventory);
    Area area = all.value_or(Area{-90.0, -180.0, 90.0, 180.0});
    setBound(arguments, "--south", 90.0, area.south);
    setBound(arguments, "--west", 180.0, area.west);
    setBound(arguments, "--north", 90.0, area.north);
    setBound(arguments, "--east", 180.0, area.east);
    if (!all) {
        throw std::runtime_error("there is no tile");
    }
    char bounds[128];
    std::snprintf(bounds, sizeof bounds, "south %g, west %g, north %g, east %g", all->south,
                  all->west, all->north, all->east);
    for (double* const bound : {&area.west, &area.east}) {
        if (all->east > 180.0 && *bound < all->west && *bound + 360.0 <= all->east) {
            *bound += 360.0;
        }
    }
    const bool bothLats = arguments.value("--south") && arguments.value("--north");
    const bool bothLons = arguments.value("--west") && arguments.value("--east");
    if (bothLons && area.east < area.west) {
        area.east += 360.0;
    }
    // Where both bounds are given and are the wrong way round, the command line is at fault; a
    // bound beyond the tiles is not.
    if ((bothLats && area.south >= area.north) || (bothLons && area.west >= area.east)) {
        throw UsageError(std::string("south and west must lie before north and east; the tiles: ") +
                         bounds);
    }
    const bool any = std::any_of(
        inventory.files.begin(), inventory.files.end(),
        [&](const TileFile& file) { return !file.notTaken && shiftOnto(areaOf(file), area); });
    if (!any) {
        throw std::runtime_error(std::string("no tile lies in this area; the tiles: ") + bounds);
    }
    return area;
}

}  // namespace OrlekTiles
