// Samples an area from its tiles, one tile at a time.
#pragma once

#include <set>

#include "Area.h"
#include "ReliefImage.h"
#include "ReliefSampler.h"

namespace OrlekTiles {

/// Fills a relief image, north up. Height maps keep hundreds of tiles loaded, which a picture of a
/// country cannot afford; here each is loaded once, and unloaded before the next. Every texel is
/// sampled in the tile that a height map would take for its centre.
class TileSampler {
public:
    /// The image gets the width and height and starts without terrain.
    TileSampler(const Inventory& inventory, const Area& area, int width, int height,
                MovingMap::ReliefImage& image);

    /// Samples the texels of a tile. @return why it cannot be loaded, if so; nothing is sampled
    /// then
    std::optional<Reason> add(const TileFile& file);

    /// Whether every texel lies in a tile that was sampled.
    bool covered() const { return mSampled == mImage.cover.size() / 4; }
    double metresPerTexel() const { return mMetresPerTexel; }

private:
    struct Range {
        int first;
        int end;
    };

    Range columnsOf(const Area& area) const;
    Range rowsOf(const Area& area) const;
    bool owns(const HeightTile& tile, int column, int row) const;
    void sample(const HeightTile& tile, Range columns, int row);

    Area mArea;
    int mWidth;
    int mHeight;
    double mMetresPerTexel;
    MovingMap::SampleGrid mGrid;
    std::set<Orlek::Detail::TileKey> mHighCells;  ///< where low-resolution tiles are not asked
    std::size_t mSampled = 0;
    MovingMap::ReliefImage& mImage;
};

}  // namespace OrlekTiles
