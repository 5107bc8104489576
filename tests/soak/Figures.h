// What the soak measures, and whether it is within its bounds.
#pragma once

#include <cstdio>
#include <vector>

namespace OrlekTest {

/// Room for so many values, whose memory is there from the beginning.
inline std::vector<float> roomFor(std::size_t most) {
    std::vector<float> values(most, -1.0F);
    values.clear();
    return values;
}

struct Figures {
    Figures(std::size_t mostFrames, std::size_t periods)
        : workMs(roomFor(mostFrames)), intervalMs(roomFor(mostFrames)), memoryKib(periods) {}

    std::vector<float> workMs;      ///< From taking what has come until the picture is complete.
    std::vector<float> intervalMs;  ///< From a frame's beginning to the next one's.
    /// Second by second in each period. Every other one has the same tiles.
    std::vector<std::vector<float>> memoryKib;
    std::vector<int> descriptors;  ///< All the same, as the names of OpenGL.
    std::vector<int> names;
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
