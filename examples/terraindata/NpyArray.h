// NumPy's array files (.npy), the part of the format that elevation archives use.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace TerrainData {

/// An array of a .npy file: its element type, its shape and its elements' bytes in C order.
struct NpyArray {
    std::string type;  ///< As the file spells it: "<i2" is a little-endian 16-bit integer.
    std::vector<std::size_t> shape;
    std::vector<std::uint8_t> bytes;
};

/// Takes a .npy file apart. Throws std::runtime_error with the reason when it is none, is cut
/// short or is stored in Fortran order.
NpyArray parseNpy(std::span<const std::uint8_t> file);

/// The array as signed 16-bit numbers. Throws std::runtime_error unless its type is "<i2".
std::vector<std::int16_t> toInt16(const NpyArray& array);

/// The one number of an array without dimensions. Throws std::runtime_error unless it is a "<f8".
double toNumber(const NpyArray& array);

}  // namespace TerrainData
