#include "network/PackageFraming.h"

#include <cstring>

namespace Orlek::Detail {

PackageFraming::PackageFraming() : mBytes(std::make_unique_for_overwrite<std::byte[]>(capacity)) {}

std::span<std::byte> PackageFraming::room() {
    if (mOffset > 0) {
        mEnd -= mOffset;
        std::memmove(mBytes.get(), mBytes.get() + mOffset, mEnd);
        mOffset = 0;
    }
    return {mBytes.get() + mEnd, capacity - mEnd};
}

}  // namespace Orlek::Detail
