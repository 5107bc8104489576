// Raw inflate (RFC 1951) of one byte range of a file, handed out in pieces of any size. Compressed
// bytes are read in chunks that stay in cache, so the memory needed is fixed; large pieces cost the
// same as inflating all at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "platform/MallocArray.h"
#include "platform/RegularFile.h"

struct z_stream_s;

namespace Orlek::Detail {

/// Owns its file while open. One thread at a time.
class InflateStream {
public:
    /// Starts at `offset` of a file. False when the range does not lie inside it, or there is no
    /// memory.
    bool open(RegularFile file, std::uint64_t offset, std::uint32_t compressedSize);

    /// Fills `out` with the next bytes and returns how many it got: fewer than asked for only when
    /// the stream ended or is broken, of which atEnd() tells one from the other.
    std::size_t read(std::span<std::byte> out);

    /// Whether the file could not give the bytes that it had when it was opened.
    bool isCut() const { return mCut; }

    /// Whether the deflate stream ended properly and exactly here. Reads on as far as it must to
    /// know, so a few compressed bytes at most.
    bool atEnd();

private:
    enum class State : std::uint8_t { closed, running, ended, broken };
    struct EndInflate {
        void operator()(z_stream_s* stream) const;
    };

    void refill();
    int inflateInto(std::byte* out, unsigned int room);

    RegularFile mFile;
    std::uint64_t mOffset = 0;
    std::uint32_t mRemaining = 0;  // compressed bytes not read from the file yet
    std::size_t mChunkSize = 0;
    MallocArray<std::byte> mChunk;
    std::unique_ptr<z_stream_s, EndInflate> mStream;
    State mState = State::closed;
    bool mCut = false;
};

}  // namespace Orlek::Detail
