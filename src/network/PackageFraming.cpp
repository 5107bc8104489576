#include "network/PackageFraming.h"

#include <cstring>

namespace Orlek::Detail {

using Network::MsgHeader;

PackageFraming::PackageFraming() : mBytes(std::make_unique_for_overwrite<std::byte[]>(capacity)) {}

PackageFraming::Found PackageFraming::next() {
    Found found;
    if (mCount < sizeof(MsgHeader)) {
        return found;
    }
    std::memcpy(&found.header, mBytes.get() + mOffset, sizeof(MsgHeader));
    if (found.header.version != version) {
        found.state = State::wrongVersion;
        clear();
    } else if (found.header.length > capacity - sizeof(MsgHeader)) {
        found.state = State::tooLong;
        clear();
    } else if (const std::size_t size = sizeof(MsgHeader) + found.header.length; mCount >= size) {
        found.state = State::package;
        found.payload = {mBytes.get() + mOffset + sizeof(MsgHeader), found.header.length};
        mOffset += size;
        mCount -= size;
    }
    return found;
}

std::span<std::byte> PackageFraming::room() {
    if (mOffset > 0) {
        std::memmove(mBytes.get(), mBytes.get() + mOffset, mCount);
        mOffset = 0;
    }
    return {mBytes.get() + mCount, capacity - mCount};
}

}  // namespace Orlek::Detail
