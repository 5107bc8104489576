// Chooses the tile of a query and keeps a bounded number of tiles loaded.
#include "terrain/tiles/TileSet.h"

#include <algorithm>

namespace Orlek::Detail {

bool TileSet::change(const TileMap& tiles, TileKey key, bool load) {
    mCurrentKey = key;
    const auto found = tiles.find(key);
    mCurrentTile = found != tiles.end() ? found->second : nullptr;
    if (!mCurrentTile || mCurrentTile->loaded()) {
        return true;
    }
    if (load) {
        loadCurrent();
    }
    return load;
}

void TileSet::loadCurrent() {
    mCurrentTile->load();
    const auto listed = std::find(mLoadedTiles.begin(), mLoadedTiles.end(), mCurrentTile);
    if (listed != mLoadedTiles.end()) {
        mLoadedTiles.erase(listed);
    }
    mLoadedTiles.push_front(mCurrentTile);
    if (mLoadedTiles.size() > mLimit) {
        mLoadedTiles.back()->unload();
        mLoadedTiles.pop_back();
    }
}

}  // namespace Orlek::Detail
