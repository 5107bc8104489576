// Packages that look random, yet follow from a seed and their number: the receiver makes the same
// ones again and compares every byte.
#pragma once

#include <Orlek/Network/MsgHeader.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace OrlekTest {

constexpr std::uint32_t longestPayload = 1048551;
/// Ids below are left to packages without data; the two highest cannot be told from failures.
constexpr std::uint32_t firstDataId = 16;
constexpr std::uint32_t lastDataId = 0xFFFFFFFD;

class RandomPackages {
public:
    RandomPackages(std::uint64_t seed, unsigned side) : mSeed(seed * 2 + side) {}

    void make(std::uint32_t number, Orlek::Network::MsgHeader& header) {
        std::seed_seq sequence{mSeed, std::uint64_t{number}};
        mRandom.seed(sequence);
        header = {};
        header.user0 = number;
        header.id = upTo(lastDataId - firstDataId) + firstDataId;
        header.length = size();
        for (std::size_t at = 0; at < header.length; at += sizeof(std::uint64_t)) {
            const std::uint64_t word = mRandom();
            std::memcpy(mPayload.data() + at, &word, sizeof(word));
        }
    }

    /// Of the package made last.
    const std::byte* payload() const { return mPayload.data(); }

private:
    std::uint32_t upTo(std::uint32_t largest) {
        return std::uniform_int_distribution<std::uint32_t>(0, largest)(mRandom);
    }

    /// Mostly small, sometimes empty, now and then the longest there are.
    std::uint32_t size() {
        const std::uint32_t kind = upTo(199);
        if (kind < 20) {
            return 0;
        }
        return kind < 150   ? upTo(200)
               : kind < 190 ? upTo(20000)
               : kind < 198 ? upTo(200000)
                            : longestPayload - upTo(20);
    }

    std::uint64_t mSeed;
    std::mt19937_64 mRandom;
    std::vector<std::byte> mPayload =
        std::vector<std::byte>(longestPayload + sizeof(std::uint64_t));
};

}  // namespace OrlekTest
