// Chooses the tile of a query and keeps a bounded number of tiles loaded: the most recently loaded
// stay, the one loaded longest ago is unloaded.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

#include "terrain/tiles/HeightTile.h"
#include "terrain/tiles/TileKey.h"

namespace Orlek::Detail {

using TileMap = std::map<TileKey, std::shared_ptr<HeightTile>>;

/// Copies share tiles, each with a limit of its own. One thread at a time.
class TileSet {
public:
    /// @param limit tiles loaded at a time.
    explicit TileSet(std::size_t limit) : mLimit(limit) {}

    /// Makes the tile of `key` current. A key that is current already changes nothing, not even
    /// when its tile is unloaded and `load` is true. Returns false when the tile is not loaded and
    /// `load` forbids to.
    bool select(const TileMap& tiles, TileKey key, bool load) {
        return key == mCurrentKey || change(tiles, key, load);
    }

    /// What current() would be after selecting the one-degree cell of a point, in degrees, if that
    /// is clear without looking anything up; otherwise null.
    [[nodiscard]] const HeightTile* currentAt(double lat, double lon) const {
        return mCurrentCell.holds(lat, lon) ? mCurrentTile.get() : nullptr;
    }

    /// Forgets loaded tiles that are not among these any more, so that their memory goes with their
    /// last user; the current one stays until another is selected.
    void keepOnly(const TileMap& tiles);

    /// The tile last selected, loaded or not; null when there is none under that key.
    [[nodiscard]] const HeightTile* current() const { return mCurrentTile.get(); }

private:
    bool change(const TileMap& tiles, TileKey key, bool load);
    void loadCurrent();
    void addCurrent();

    TileKey mCurrentKey = noTileKey;
    DegreeCell mCurrentCell;  ///< of mCurrentKey when there is a tile, otherwise without points
    std::shared_ptr<HeightTile> mCurrentTile;
    std::vector<std::shared_ptr<HeightTile>> mLoadedTiles;  ///< most recently loaded last
    std::size_t mLimit;
};

}  // namespace Orlek::Detail
