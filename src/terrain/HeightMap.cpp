// Answers terrain queries from the tiles that a scan has found.
#include <Orlek/Geodetic/HeightMap.h>

#include <utility>

#include "terrain/tiles/TileScan.h"
#include "terrain/tiles/TileSet.h"

namespace Orlek::Geodetic {

using Detail::HeightTile;
using Detail::TileKey;

/// What copies take over, beside the scan, which they don't. Only the owner's thread sees it: the
/// scan works on maps of its own until they are taken.
struct ORLEK_NO_EXPORT HeightMap::State {
    Detail::TileScan scan;
    bool ready = false;
    std::string dataPath;
    std::shared_ptr<const Detail::TileMaps> maps = std::make_shared<Detail::TileMaps>();
    Detail::TileSet high{MAX_TILES_LOADED};
    Detail::TileSet low{MAX_TILES_LOADED_LOW};

    void copyFrom(const State& other);
    void takeTiles(std::shared_ptr<const Detail::TileMaps> found);
    void takeScan();
    bool isReady();
    const HeightTile* findTile(double lat, double lon, bool load, bool lowRes);
    double altitude(double lat, double lon, bool load, bool lowRes);
};

void HeightMap::State::copyFrom(const State& other) {
    scan.wait();
    scan.takeResult();
    const auto found = other.scan.result();
    ready = found || other.ready;
    dataPath = other.dataPath;
    high = other.high;
    low = other.low;
    takeTiles(found ? found : other.maps);
}

// Tiles whose place others have taken can't be asked for any more.
void HeightMap::State::takeTiles(std::shared_ptr<const Detail::TileMaps> found) {
    maps = std::move(found);
    high.keepOnly(maps->high);
    low.keepOnly(maps->low);
}

void HeightMap::State::takeScan() {
    takeTiles(scan.takeResult());
    ready = true;
}

inline bool HeightMap::State::isReady() {
    if (scan.hasResult()) [[unlikely]] {
        takeScan();
    }
    return ready;
}

/// The tile that answers for a point, loaded or not; null when none covers it.
inline const HeightTile* HeightMap::State::findTile(double lat, double lon, bool load,
                                                    bool lowRes) {
    const TileKey key = Detail::queryKey(lat, lon);
    if (!lowRes) {
        high.select(maps->high, key, load);
        if (high.current() != nullptr) [[likely]] {
            return high.current();
        }
    }
    low.select(maps->low, Detail::lowResKey(key), load);
    return low.current();
}

[[gnu::noinline]] double HeightMap::State::altitude(double lat, double lon, bool load,
                                                    bool lowRes) {
    double metres = 0.0;
    if (isReady()) {
        if (const HeightTile* tile = findTile(lat, lon, load, lowRes)) {
            tile->altitude(lat, lon, metres);
        }
    }
    return metres;
}

HeightMap::HeightMap() : mState(std::make_unique<State>()) {}

HeightMap::HeightMap(const HeightMap& other) : HeightMap() {
    mState->copyFrom(*other.mState);
}

HeightMap& HeightMap::operator=(const HeightMap& other) {
    if (this != &other) {
        mState->copyFrom(*other.mState);
    }
    return *this;
}

HeightMap::~HeightMap() = default;

void HeightMap::setDataPath(const std::string& path) {
    mState->dataPath = path;
}

void HeightMap::loadData() {
    if (mState->scan.running()) {
        return;
    }
    mState->isReady();
    mState->scan.start(mState->dataPath, mState->maps);
}

double HeightMap::getAltitude(double lat, double lon, bool load, bool lowRes) {
    double metres = 0.0;
    // In the cell of the last query there is nothing to look up and no scan to take: even new tiles
    // have to wait for another cell.
    if (!lowRes) [[likely]] {
        const HeightTile* tile = mState->high.currentAt(lat, lon);
        if (tile != nullptr && tile->altitudeInside(lat, lon, metres)) [[likely]] {
            return metres;
        }
    }
    return mState->altitude(lat, lon, load, lowRes);
}

bool HeightMap::getNormal(double lat, double lon, bool load, bool lowRes, unsigned char& x,
                          unsigned char& y, unsigned char& z) {
    if (!lowRes) [[likely]] {
        const HeightTile* tile = mState->high.currentAt(lat, lon);
        if (tile != nullptr) [[likely]] {
            tile->normal(lat, lon, x, y, z);
            return true;
        }
    }
    x = 128;
    y = 128;
    z = 255;
    if (!mState->isReady()) {
        return false;
    }
    if (const HeightTile* tile = mState->findTile(lat, lon, load, lowRes)) {
        tile->normal(lat, lon, x, y, z);
    }
    return true;
}

}  // namespace Orlek::Geodetic
