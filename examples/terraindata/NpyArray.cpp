// The .npy format, version 1 and 2 (NumPy enhancement proposal 1):
//
//   offset  0   6 bytes  0x93 'N' 'U' 'M' 'P' 'Y'
//   offset  6   2 bytes  major and minor version
//   offset  8   2 bytes  length of the header, little-endian (version 2: 4 bytes)
//   then the header, the text of a Python dictionary with three keys, such as
//     {'descr': '<i2', 'fortran_order': False, 'shape': (344, 403), }
//   then the elements.
#include "NpyArray.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace TerrainData {

namespace {

[[noreturn]] void fail(const std::string& reason) {
    throw std::runtime_error("not a usable .npy array: " + reason);
}

std::size_t littleEndian(std::span<const std::uint8_t> bytes) {
    std::size_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        value = value << 8 | bytes[i];
    }
    return value;
}

// The text of one value of the header's dictionary: everything behind "'key':".
std::string_view valueOf(std::string_view header, std::string_view key) {
    const std::string quoted = std::string("'").append(key).append("':");
    const std::size_t at = header.find(quoted);
    if (at == std::string_view::npos) {
        fail("its header lacks " + quoted);
    }
    std::string_view value = header.substr(at + quoted.size());
    value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    return value;
}

// What stands between the first of `open` and the next of `close`.
std::string_view between(std::string_view text, char open, char close) {
    const std::size_t last = text.find(close, 1);
    if (text.empty() || text.front() != open || last == std::string_view::npos) {
        fail("its header is malformed");
    }
    return text.substr(1, last - 1);
}

std::vector<std::size_t> parseShape(std::string_view text) {
    std::vector<std::size_t> shape;
    while (!text.empty()) {
        std::size_t extent = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), extent);
        if (error != std::errc()) {
            fail("its shape is malformed");
        }
        shape.push_back(extent);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        text.remove_prefix(std::min(text.find_first_not_of(", "), text.size()));
    }
    return shape;
}

std::size_t elementCount(const NpyArray& array, std::size_t limit) {
    std::size_t count = 1;
    for (const std::size_t extent : array.shape) {
        if (extent != 0 && count > limit / extent) {
            fail("its shape is larger than its data");
        }
        count *= extent;
    }
    return count;
}

void requireElements(const NpyArray& array, std::string_view type, std::size_t size) {
    if (array.type != type) {
        fail("its elements are " + array.type + ", expected " + std::string(type));
    }
    if (elementCount(array, array.bytes.size()) * size != array.bytes.size()) {
        fail("its shape does not fit its data");
    }
}

}  // namespace

NpyArray parseNpy(std::span<const std::uint8_t> file) {
    constexpr std::string_view magic = "\x93NUMPY";
    if (file.size() < 12 ||
        !std::equal(magic.begin(), magic.end(), file.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; })) {
        fail("it does not begin with its signature");
    }
    const std::size_t lengthBytes = file[6] == 1 ? 2 : 4;
    const std::size_t start = 8 + lengthBytes;
    const std::size_t length = littleEndian(file.subspan(8, lengthBytes));
    if (length > file.size() - start) {
        fail("its header is cut short");
    }
    const auto* text = reinterpret_cast<const char*>(file.data() + start);
    const std::string_view header(text, length);
    if (!valueOf(header, "fortran_order").starts_with("False")) {
        fail("it is in Fortran order");
    }
    const auto data = file.subspan(start + length);
    return {std::string(between(valueOf(header, "descr"), '\'', '\'')),
            parseShape(between(valueOf(header, "shape"), '(', ')')),
            {data.begin(), data.end()}};
}

std::vector<std::int16_t> toInt16(const NpyArray& array) {
    requireElements(array, "<i2", 2);
    std::vector<std::int16_t> values;
    values.reserve(array.bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < array.bytes.size(); i += 2) {
        const unsigned bits = array.bytes[i] | static_cast<unsigned>(array.bytes[i + 1]) << 8;
        values.push_back(static_cast<std::int16_t>(static_cast<std::uint16_t>(bits)));
    }
    return values;
}

double toNumber(const NpyArray& array) {
    static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == 8);
    requireElements(array, "<f8", 8);
    if (array.bytes.size() != 8) {
        fail("it holds more than one number");
    }
    return std::bit_cast<double>(static_cast<std::uint64_t>(littleEndian(array.bytes)));
}

}  // namespace TerrainData
