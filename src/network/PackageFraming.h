// Finds packages in the bytes of a stream. Pure: bytes in, packages out.
//
// Bytes are received behind those that wait and handed out in front, by moving an offset, so that a
// package costs the same however many wait behind it. Before a read the rest is moved to the start
// of the buffer: it is less than one package, and is moved once at most until that is complete.
// Each read thus has all the room that there is.
#pragma once

#include <Orlek/Network/MsgHeader.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>

namespace Orlek::Detail {

class PackageFraming {
public:
    static constexpr std::int16_t version = 0x1203;
    /// Bytes that the buffer holds at most, and so the longest package with its header.
    static constexpr std::size_t capacity = 0xFFFFF;

    enum class State {
        incomplete,
        package,
        wrongVersion,  ///< All bytes have been dropped.
        tooLong        ///< It would never fit. All bytes have been dropped.
    };

    struct Found {
        State state = State::incomplete;
        Network::MsgHeader header;           ///< Unless incomplete.
        std::span<const std::byte> payload;  ///< Of a package; until the next call of room().
    };

    PackageFraming();

    /// Takes the next package out.
    Found next();

    /// Where the next bytes of the stream go. Never empty after next() found nothing.
    std::span<std::byte> room();
    /// `count` bytes have been put at the start of room().
    void added(std::size_t count) { mEnd += count; }
    /// Drops all bytes that wait.
    void clear() { mOffset = mEnd = 0; }

private:
    std::unique_ptr<std::byte[]> mBytes;
    std::size_t mOffset = 0;  ///< of the first byte that waits
    std::size_t mEnd = 0;     ///< behind the last
};

// Here so that a backlog is handed out without a call into another file for each package.
inline PackageFraming::Found PackageFraming::next() {
    using Network::MsgHeader;
    Found found;
    const std::size_t waiting = mEnd - mOffset;
    if (waiting < sizeof(MsgHeader)) {
        return found;
    }
    const std::byte* start = mBytes.get() + mOffset;
    std::memcpy(&found.header, start, sizeof(MsgHeader));
    if (found.header.version != version) {
        found.state = State::wrongVersion;
        clear();
    } else if (found.header.length > capacity - sizeof(MsgHeader)) {
        found.state = State::tooLong;
        clear();
    } else if (const std::size_t size = sizeof(MsgHeader) + found.header.length; waiting >= size) {
        found.state = State::package;
        found.payload = {start + sizeof(MsgHeader), found.header.length};
        mOffset += size;
    }
    return found;
}

}  // namespace Orlek::Detail
