#include "Inventory.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <stdexcept>
#include <utility>

#include "Console.h"
#include "files/TreeListing.h"
#include "terrain/tiles/TileKey.h"

namespace OrlekTiles {

namespace {

using namespace Orlek::Detail;

TileFile registered(std::string name) {
    TileFile file;
    file.path = std::move(name);
    const std::string& path = file.path;
    file.format = tileFormat(path);
    auto tile = std::make_unique<HeightTile>();
    if (file.format == TileFormat::none ||
        (file.format == TileFormat::srtm && !tile->parseName(path))) {
        file.notTaken = nameReason(path);
    } else if (file.format == TileFormat::dted && !tile->openHeader(path)) {
        file.notTaken = dtedReason(path, tile->fault());
    } else {
        if (!canBeAsked(*tile)) {
            file.notTaken = noSuchCell;
        }
        file.tile = std::move(tile);
    }
    return file;
}

/// What would be a tile by its name and is no file. The library passes over it in silence.
TileFile noFile(std::string name) {
    TileFile file;
    file.path = std::move(name);
    file.notTaken = Reason{"no file", "it is a link that leads nowhere, a pipe or a device"};
    return file;
}

/// Of two tiles with one corner the library keeps the one listed last.
void noteReplaced(std::vector<TileFile>& files) {
    std::map<std::pair<bool, TileKey>, TileFile*> latest;
    for (TileFile& file : files) {
        if (file.tile && !file.notTaken) {
            TileFile*& holder = latest[{file.tile->lowRes(), file.tile->key()}];
            if (holder != nullptr) {
                holder->notTaken = Reason{"replaced", file.path + " has the same cell"};
            }
            holder = &file;
        }
    }
}

}  // namespace

Inventory takeInventory(const std::string& directory) {
    // Asked beforehand, as the reason of a listing that fails is not kept.
    DirectorySearch search;
    if (!search.read(directory)) {
        throw std::runtime_error(directory + ": " + std::strerror(errno));
    }
    TreeListing listing;
    listing.list(directory, true);
    Inventory inventory;
    inventory.unreadable = std::move(listing.unreadable);
    for (std::string& path : listing.files) {
        inventory.files.push_back(registered(std::move(path)));
    }
    for (std::string& path : listing.others) {
        if (looksLikeTile(path)) {
            inventory.files.push_back(noFile(std::move(path)));
        }
    }
    noteReplaced(inventory.files);
    std::sort(inventory.files.begin(), inventory.files.end(),
              [](const TileFile& a, const TileFile& b) { return a.path < b.path; });
    return inventory;
}

bool canBeAsked(const HeightTile& tile) {
    const TileKey key = tile.key();
    // Keys of corners beyond the south pole and the antimeridian are those of cells on the globe.
    const TileGrid& grid = tile.grid();
    const bool onGlobe = latIndexOf(key) < 180 && lonIndexOf(key) < 360 &&
                         grid.latOrigin >= -90.0 && grid.lonOrigin >= -180.0;
    return onGlobe && (!tile.lowRes() || lowResKey(key) == key);
}

bool noteUnreadable(const Inventory& inventory) {
    for (const std::string& path : inventory.unreadable) {
        Console::note(path + ": this directory cannot be listed");
    }
    return !inventory.unreadable.empty();
}

std::string cellName(const HeightTile& tile) {
    const int lat = latIndexOf(tile.key()) - 90;
    const int lon = lonIndexOf(tile.key()) - 180;
    char name[32];
    std::snprintf(name, sizeof name, "%c%02d%c%03d", lat < 0 ? 'S' : 'N', std::abs(lat),
                  lon < 0 ? 'W' : 'E', std::abs(lon));
    return name;
}

}  // namespace OrlekTiles
