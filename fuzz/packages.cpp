// Any bytes as a stream, put in by cuts: the first byte seeds the sizes of the cuts. Whatever
// comes, each package handed out is exactly the bytes of the stream that stood there.
#include <algorithm>
#include <cstring>

#include "FuzzTarget.h"
#include "network/PackageFraming.h"

using Orlek::Detail::PackageFraming;

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
        for (auto found = framing.next(); found.state != PackageFraming::State::incomplete;
             found = framing.next()) {
            if (found.state != PackageFraming::State::package) {
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
