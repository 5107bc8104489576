// Keys of tiles: the latitude index (degrees from the south pole) in the high 16 bits, the
// longitude index (degrees from the antimeridian) in the low 16 bits. The millionth of a degree
// added to a coordinate keeps an origin that was rounded down in its own cell.
#pragma once

#include <cmath>
#include <cstdint>

namespace Orlek::Detail {

using TileKey = std::uint32_t;

/// The key of no tile: of the time before the first query, and of coordinates off the globe.
inline constexpr TileKey noTileKey = 0xFFFFFFFF;

inline constexpr double keyTolerance = 0.000001;

/// Rounds toward zero and keeps the low 16 bits. `degrees` must fit a 32-bit integer.
constexpr std::uint16_t degreeIndex(double degrees) {
    return static_cast<std::uint16_t>(static_cast<std::int32_t>(degrees));
}

constexpr TileKey makeTileKey(std::uint16_t latIndex, std::uint16_t lonIndex) {
    return TileKey{latIndex} << 16U | lonIndex;
}

constexpr std::uint16_t latIndexOf(TileKey key) {
    return static_cast<std::uint16_t>(key >> 16U);
}
constexpr std::uint16_t lonIndexOf(TileKey key) {
    return static_cast<std::uint16_t>(key);
}

/// The key under which a tile with this south-west corner, in degrees, is registered.
constexpr TileKey originKey(double latOrigin, double lonOrigin) {
    return makeTileKey(degreeIndex(latOrigin + 90 + keyTolerance),
                       degreeIndex(lonOrigin + 180 + keyTolerance));
}

/// The key of the one-degree cell of a point, in degrees; noTileKey for a point off the globe or
/// one that is not a number.
inline TileKey queryKey(double lat, double lon) {
    if (!(std::fabs(lat) <= 90.0 && std::fabs(lon) <= 180.0)) {
        return noTileKey;
    }
    return makeTileKey(degreeIndex(lat + keyTolerance + 90), degreeIndex(lon + keyTolerance + 180));
}

/// A one-degree cell as a test for points that is cheaper than working out their key.
class DegreeCell {
public:
    /// Holds no point.
    DegreeCell() = default;

    /// The cell of a key. Those along the antimeridian and the poles hold no point: there a point
    /// off the globe can have the same indices.
    explicit constexpr DegreeCell(TileKey key) {
        const std::uint16_t lat = latIndexOf(key);
        const std::uint16_t lon = lonIndexOf(key);
        if (lat > 0 && lat < 180 && lon > 0 && lon < 360) {
            mLatFrom = lat;
            mLatTo = lat + 1.0;
            mLonFrom = lon;
            mLonTo = lon + 1.0;
        }
    }

    /// Whether queryKey() of the point, in degrees, is the key of this cell.
    [[nodiscard]] constexpr bool holds(double lat, double lon) const {
        const double fromPole = lat + keyTolerance + 90;
        const double fromAntimeridian = lon + keyTolerance + 180;
        return fromPole >= mLatFrom && fromPole < mLatTo && fromAntimeridian >= mLonFrom &&
               fromAntimeridian < mLonTo;
    }

private:
    double mLatFrom = 0.0;
    double mLatTo = 0.0;
    double mLonFrom = 0.0;
    double mLonTo = 0.0;
};

/// Snaps the key of a one-degree cell to the 50 by 40 degree cell around it. These start at
/// latitudes -60, -10 and 40 and at longitudes -180, -140 ... 140.
constexpr TileKey lowResKey(TileKey key) {
    if (key == noTileKey) {
        return key;
    }
    const auto aboveMinus60 = static_cast<std::uint16_t>(latIndexOf(key) - 30U);
    return TileKey{aboveMinus60 / 50U * 50U + 30U} << 16U | lonIndexOf(key) / 40U * 40U;
}

}  // namespace Orlek::Detail
