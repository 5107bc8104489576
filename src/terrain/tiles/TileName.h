// Reads the origin of an SRTM tile from the name of its file.
//
// A high-resolution name begins N45E006, the south-west corner; a low-resolution one W020N90, the
// north-west corner of a tile 50 degrees high. The second field between dots is the product, as in
// N45E006.SRTMGL1.hgt.zip. (The SRTM collections user guide.)
#pragma once

#include <optional>
#include <string>

namespace Orlek::Detail {

struct TileName {
    double latOrigin = 0.0;  ///< degrees, of the south-west corner
    double lonOrigin = 0.0;
    bool lowRes = false;
};

/// The origin that the last part of `path` gives, or nothing when its name holds no whole one.
/// Besides the products SRTMGL1, SRTMGL3 and SRTMGL30 any other name that begins as a
/// high-resolution tile does is taken for one: N43E007.hgt.zip is how most tiles are called.
std::optional<TileName> parseTileName(const std::string& path);

}  // namespace Orlek::Detail
