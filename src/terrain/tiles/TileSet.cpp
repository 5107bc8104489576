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
    if (!mCurrentTile || mCurrentTile->loaded()) {
        return true;
    }
    if (load) {
        loadCurrent();
    }
    return load;
}

void TileSet::keepOnly(const TileMap& tiles) {
    mLoadedTiles.remove_if([&](const std::shared_ptr<HeightTile>& tile) {
        const auto found = tiles.find(tile->key());
        return found == tiles.end() || found->second != tile;
    });
}

void TileSet::loadCurrent() {
    // Listed first: without memory for the list no tile is loaded that nobody would unload.
    const auto listed = std::find(mLoadedTiles.begin(), mLoadedTiles.end(), mCurrentTile);
    if (listed != mLoadedTiles.end()) {
        mLoadedTiles.splice(mLoadedTiles.begin(), mLoadedTiles, listed);
    } else {
        mLoadedTiles.push_front(mCurrentTile);
    }
    mCurrentTile->load();
    if (mLoadedTiles.size() > mLimit) {
        mLoadedTiles.back()->unload();
        mLoadedTiles.pop_back();
    }
}

}  // namespace Orlek::Detail
