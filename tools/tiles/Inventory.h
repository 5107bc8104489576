// The files of a directory, sorted into tiles and others as the library does it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Reason.h"
#include "terrain/tiles/HeightTile.h"
#include "terrain/tiles/TileScan.h"

namespace OrlekTiles {

using Orlek::Detail::HeightTile;
using Orlek::Detail::TileFormat;

struct TileFile {
    std::string path;
    TileFormat format = TileFormat::none;
    std::unique_ptr<HeightTile> tile;  ///< null when the library does not register the file
    std::optional<Reason> notTaken;    ///< why it is none, or none that answers a query
};

struct Inventory {
    std::vector<TileFile> files;          ///< by path
    std::vector<std::string> unreadable;  ///< directories that could not be listed
};

/// Lists a directory and all below it. Reads the headers of DTED files, and of archives only the
/// names, as the library's scan does. Throws std::runtime_error when there is no such directory.
Inventory takeInventory(const std::string& directory);

/// Whether any query leads to the cell of a tile; noSuchCell says why not.
bool canBeAsked(const HeightTile& tile);
inline const Reason noSuchCell{"no such cell",
                               "no tile of its kind has that corner: it lies off the globe, or off "
                               "the 40 by 50 degrees of the low-resolution tiles"};

/// Notes each directory that could not be listed. @return whether there are any.
bool noteUnreadable(const Inventory& inventory);

/// The cell of a tile, "N36W085": its south-west corner in whole degrees.
std::string cellName(const HeightTile& tile);

}  // namespace OrlekTiles
