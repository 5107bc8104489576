#include "text/raster/BitmapLocations.h"

#include <algorithm>
#include <cstdint>

namespace Orlek::Detail {
namespace {

constexpr std::size_t headSize = 8;
constexpr std::size_t sizeRecord = 48;
constexpr std::size_t rangeRecord = 8;
constexpr std::size_t mostRanges = 65536;

std::uint64_t numberAt(std::span<const std::byte> table, std::uint64_t offset, std::size_t bytes) {
    std::uint64_t number = 0;
    for (const std::byte byte : table.subspan(offset, bytes)) {
        number = number << 8U | std::to_integer<std::uint64_t>(byte);
    }
    return number;
}

// False also for what lies outside of the table, where nobody will look for it.
bool isComposite(std::span<const std::byte> table, std::uint64_t range, std::uint64_t list) {
    const std::uint64_t index = list + numberAt(table, range + 4, 4);
    if (index + rangeRecord > table.size()) {
        return false;
    }
    const std::uint64_t imageFormat = numberAt(table, index + 2, 2);
    return imageFormat == 8 || imageFormat == 9;
}

}  // namespace

bool hasCompositeBitmaps(std::span<const std::byte> table) {
    if (table.size() < headSize) {
        return false;
    }
    const std::uint64_t sizes =
        std::min<std::uint64_t>(numberAt(table, 4, 4), (table.size() - headSize) / sizeRecord);
    std::size_t seen = 0;
    for (std::uint64_t size = 0; size < sizes; ++size) {
        const std::uint64_t record = headSize + size * sizeRecord;
        const std::uint64_t list = numberAt(table, record, 4);
        const std::uint64_t count = numberAt(table, record + 8, 4);
        for (std::uint64_t i = 0; i < count; ++i) {
            const std::uint64_t range = list + i * rangeRecord;
            if (range + rangeRecord > table.size()) {
                break;
            }
            if (++seen > mostRanges || isComposite(table, range, list)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace Orlek::Detail
