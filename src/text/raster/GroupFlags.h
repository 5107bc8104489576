// Flags of the groups of four pixels of an image, row by row, a bit each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Orlek::Detail {

class GroupFlags {
public:
    static constexpr std::size_t wordBits = 64;

    GroupFlags(std::size_t groups, std::size_t rows)
        : mWords((groups + wordBits - 1) / wordBits), mBits((mWords + 2) * rows) {}

    /// Words of a row that have flags: 1 to words(). Those on either side, 0 and words() + 1, may
    /// be read and are always 0.
    std::size_t words() const { return mWords; }
    std::uint64_t* row(std::size_t y) { return mBits.data() + y * (mWords + 2); }

    void set(std::size_t group, std::size_t y) {
        row(y)[1 + group / wordBits] |= std::uint64_t{1} << group % wordBits;
    }
    void clear() { mBits.assign(mBits.size(), 0); }

private:
    std::size_t mWords;
    std::vector<std::uint64_t> mBits;
};

}  // namespace Orlek::Detail
