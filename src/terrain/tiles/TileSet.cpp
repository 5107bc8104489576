// Chooses the tile of a query and keeps a bounded number of tiles loaded.
#include "terrain/tiles/TileSet.h"

#include <algorithm>

namespace Orlek::Detail {

bool TileSet::change(const TileMap& tiles, TileKey key, bool load) {
    mCurrentKey = key;
    // Points off the globe have no tile, whatever a strange file has been registered under.
    const auto found = key == noTileKey ? tiles.end() : tiles.find(key);
    mCurrentTile = found != tiles.end() ? found->second : nullptr;
    mCurrentCell = mCurrentTile ? DegreeCell(key) : DegreeCell();
    if (!mCurrentTile) {
        return true;
    }
    if (mCurrentTile->loaded()) {
        // A copy that has loaded it may be gone before it unloads it.
        if (std::find(mLoadedTiles.rbegin(), mLoadedTiles.rend(), mCurrentTile) ==
            mLoadedTiles.rend()) {
            addCurrent();
        }
        return true;
    }
    if (load) {
        loadCurrent();
    }
    return load;
}

void TileSet::keepOnly(const TileMap& tiles) {
    std::erase_if(mLoadedTiles, [&](const std::shared_ptr<HeightTile>& tile) {
        const auto found = tiles.find(tile->key());
        return found == tiles.end() || found->second != tile;
    });
}

void TileSet::loadCurrent() {
    // Listed first: without memory for the list no tile is loaded that nobody would unload.
    std::erase(mLoadedTiles, mCurrentTile);
    addCurrent();
    mCurrentTile->load();
}

void TileSet::addCurrent() {
    mLoadedTiles.push_back(mCurrentTile);
    if (mLoadedTiles.size() > mLimit) {
        mLoadedTiles.front()->unload();
        mLoadedTiles.erase(mLoadedTiles.begin());
    }
}

}  // namespace Orlek::Detail
