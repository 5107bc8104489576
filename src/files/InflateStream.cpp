// The library's only use of zlib.
#include "files/InflateStream.h"

#include <zlib.h>

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace Orlek::Detail {

namespace {

// Small enough that malloc serves it from memory in use already, which costs no page faults.
constexpr std::size_t largestChunk = std::size_t{64} * 1024;
constexpr int rawDeflate = -MAX_WBITS;

}  // namespace

void InflateStream::EndInflate::operator()(z_stream_s* stream) const {
    const std::unique_ptr<z_stream> owner(stream);
    inflateEnd(stream);
}

bool InflateStream::open(RegularFile file, std::uint64_t offset, std::uint32_t compressedSize) {
    mState = State::closed;
    mStream.reset();
    if (offset > file.size() || compressedSize > file.size() - offset) {
        return false;
    }
    mFile = std::move(file);
    mOffset = offset;
    mRemaining = compressedSize;
    mCut = false;
    mChunkSize = std::clamp<std::size_t>(compressedSize, 1, largestChunk);
    mChunk = mallocArray<std::byte>(mChunkSize);
    std::unique_ptr<z_stream> stream(new (std::nothrow) z_stream());
    if (!mChunk || !stream || inflateInit2(stream.get(), rawDeflate) != Z_OK) {
        return false;
    }
    mStream.reset(stream.release());
    mState = State::running;
    return true;
}

void InflateStream::refill() {
    const std::span chunk(mChunk.get(), std::min<std::size_t>(mChunkSize, mRemaining));
    const std::size_t got = mFile.readAt(mOffset, chunk);
    mOffset += got;
    // A file that shrank, or cannot be read, gives what it has, and the stream stays short.
    mCut = mCut || got < chunk.size();
    mRemaining = mCut ? 0 : mRemaining - static_cast<std::uint32_t>(got);
    mStream->next_in = reinterpret_cast<Bytef*>(mChunk.get());
    mStream->avail_in = static_cast<uInt>(got);
}

int InflateStream::inflateInto(std::byte* out, unsigned int room) {
    if (mStream->avail_in == 0) {
        refill();
    }
    mStream->next_out = reinterpret_cast<Bytef*>(out);
    mStream->avail_out = room;
    const int result = inflate(mStream.get(), Z_NO_FLUSH);
    if (result == Z_STREAM_END) {
        mState = State::ended;
    } else if (result != Z_OK && result != Z_BUF_ERROR) {
        mState = State::broken;
    }
    return result;
}

std::size_t InflateStream::read(std::span<std::byte> out) {
    std::size_t done = 0;
    while (done < out.size() && mState == State::running) {
        constexpr std::size_t largestRoom = std::numeric_limits<uInt>::max();
        const auto room = static_cast<uInt>(std::min(out.size() - done, largestRoom));
        if (inflateInto(out.data() + done, room) == Z_BUF_ERROR) {
            mState = State::broken;  // there was room, so the compressed bytes ran out
        }
        done += room - mStream->avail_out;
    }
    return done;
}

bool InflateStream::atEnd() {
    // With no room for output, inflate goes on over codes that make none: the end of the block.
    std::byte noOutput{};
    while (mState == State::running && inflateInto(&noOutput, 0) == Z_OK) {
    }
    return mState == State::ended;
}

}  // namespace Orlek::Detail
