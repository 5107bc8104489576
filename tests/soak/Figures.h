// What the soak measures, and whether it is within its bounds.
#pragma once

#include <array>
#include <cstdio>
#include <vector>

namespace OrlekTest {

/// Times of frames in milliseconds, with memory for all of them from the beginning.
class FrameTimes {
public:
    explicit FrameTimes(std::size_t most) : mMs(most, -1.0F) {}

    void add(double ms) {
        if (mCount < mMs.size()) {
            mMs[mCount++] = static_cast<float>(ms);
        }
    }

    struct Spread {
        double median = 0.0;
        double p999 = 0.0;  ///< The 99.9th percentile.
        double longest = 0.0;
    };
    Spread spread() const;
    std::size_t count() const { return mCount; }

private:
    std::vector<float> mMs;
    std::size_t mCount = 0;
};

/// A number that must stay the same.
class Constant {
public:
    void add(int value);
    bool holds() const { return mLow == mHigh; }
    int low() const { return mLow; }
    int high() const { return mHigh; }

private:
    bool mAny = false;
    int mLow = 0;
    int mHigh = 0;
};

struct Figures {
    explicit Figures(std::size_t mostFrames) : work(mostFrames), interval(mostFrames) {}

    FrameTimes work;      ///< From taking what has come until the picture is complete.
    FrameTimes interval;  ///< From a frame's beginning to the next one's.
    /// Second by second in each period. Every other one has the same tiles.
    std::array<std::vector<long>, 12> memoryKib;
    Constant descriptors;
    Constant names;
    unsigned long rounds = 0;
    unsigned long connections = 0;
    unsigned long tileChanges = 0;
    unsigned long settingsWritten = 0;
    unsigned long faults = 0;          ///< Messages that were lost or came out of order or damaged.
    unsigned long datagramFaults = 0;  ///< The same of the datagrams that were not damaged.
    unsigned long dropped = 0;  ///< Datagrams that found no room while a frame took a second.
    bool complete = false;      ///< All that was sent has come.
};

/// Prints the figures.
/// @param whole whether the run was long enough for the bounds of memory and frames to count, and
///        the machine must have been fast enough for no datagram to be dropped
/// @return whether all are within their bounds
bool report(std::FILE* out, const Figures& figures, bool whole);

}  // namespace OrlekTest
