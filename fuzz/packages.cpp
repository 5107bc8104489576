// Any bytes as a stream, put in by cuts: the first byte seeds the sizes of the cuts. Whatever
// comes, what is found is what a plain look at the waiting bytes finds, and each package handed out
// is exactly the bytes of the stream that stood there.
#include <algorithm>
#include <cstring>

#include "FuzzTarget.h"
#include "network/PackageFraming.h"

using Orlek::Detail::PackageFraming;
using State = PackageFraming::State;

namespace {

unsigned long numberAt(const std::uint8_t* bytes, int count) {
    unsigned long value = 0;
    while (count-- > 0) {
        value = value << 8U | bytes[count];
    }
    return value;
}

// The header is 24 bytes: at 4 the version 0x1203, at 12 the length, little-endian.
State expectedOf(const std::uint8_t* bytes, std::size_t count) {
    if (count < 24) {
        return State::incomplete;
    }
    const unsigned long length = numberAt(bytes + 12, 4);
    if (numberAt(bytes + 4, 2) != 0x1203) {
        return State::wrongVersion;
    }
    if (length > 0xFFFFF - 24) {
        return State::tooLong;
    }
    return count < 24 + length ? State::incomplete : State::package;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    std::uint32_t seed = data[0];
    static PackageFraming framing;  // its buffer takes longer to make than most inputs
    framing.clear();
    std::size_t start = 1;  // of the bytes that wait
    for (std::size_t at = 1; at < size;) {
        const auto room = framing.room();
        require(room.size() == PackageFraming::capacity - (at - start));
        seed = seed * 1664525U + 1013904223U;
        const std::size_t cut = std::min<std::size_t>(1 + (seed >> 16) % 64, size - at);
        std::memcpy(room.data(), data + at, cut);
        framing.added(cut);
        at += cut;
        for (;;) {
            const auto found = framing.next();
            require(found.state == expectedOf(data + start, at - start));
            if (found.state == State::incomplete) {
                break;
            }
            if (found.state != State::package) {
                start = at;
                continue;
            }
            require(std::memcmp(&found.header, data + start, sizeof(found.header)) == 0);
            require(found.payload.size() == found.header.length);
            require(found.payload.empty() ||
                    std::memcmp(found.payload.data(), data + start + sizeof(found.header),
                                found.payload.size()) == 0);
            start += sizeof(found.header) + found.payload.size();
            require(start <= at);
        }
    }
    return 0;
}
