// A rectangle of elevation posts, and reading one from a NumPy archive.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace TerrainData {

/// Elevations in metres on a regular grid of latitude and longitude. Angles are in tenths of arc
/// seconds, the unit of DTED headers; north and east are positive.
struct ElevationGrid {
    int rows = 0;     ///< Posts along a meridian.
    int columns = 0;  ///< Posts along a parallel.
    int west = 0;     ///< Longitude of the westernmost posts.
    int south = 0;    ///< Latitude of the southernmost posts.
    int latStep = 0;
    int lonStep = 0;
    std::vector<std::int16_t> elevations;  ///< Row by row from north to south, each west to east.

    std::int16_t at(int rowFromNorth, int column) const {
        return elevations[static_cast<std::size_t>(rowFromNorth) *
                              static_cast<std::size_t>(columns) +
                          static_cast<std::size_t>(column)];
    }
};

/// Reads a ZIP archive of .npy arrays: "elevation" (rows north to south), and the numbers "xmin",
/// "xmax", "ymin", "ymax", the outer edges of the cells in degrees, and "dx", "dy", a cell's size.
/// A post is a cell's centre, half a cell inside the edge.
///
/// The first row lies below "ymax". The other edge, "ymin", may stand a grid's height south or
/// north of it: in the archive of the Jacksboro fault it was added instead of subtracted (36.7329
/// lies north of 36.4463). Terrain decides which edge is right: counted southwards from "ymax", the
/// posts give Campbell County Airport, Riner Farm Airport and the towns around them their published
/// elevations and put the 1,076 m of the county's highest mountain where it stands; counted from
/// "ymin" all of them are a hundred metres off.
///
/// Throws std::runtime_error with the reason when an entry is missing or malformed, when edges,
/// steps and shape contradict each other, or when the posts miss the whole arc seconds.
ElevationGrid readNumpyArchive(const std::string& path);

}  // namespace TerrainData
