// Turns the data records of a DTED file into elevations.
//
// Each record is one longitude line, west to east: 8 bytes of counts, the big-endian samples from
// south to north, and a checksum of 4 bytes. Along a line, a sample that repeats its southern
// neighbour is replaced by the mean of its two neighbours, rounded toward zero, which softens
// terraces; a replaced sample counts in the test of the next one.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Orlek::Detail {

/// Decodes `lineCount` records of `numLat` samples each (at least 2) into `samples`, which has room
/// for lineCount * numLat. Missing posts become 0 before the repair. Samples are read as two's
/// complement.
void decodeDtedRecords(const std::byte* records, std::size_t lineCount, std::size_t numLat,
                       std::int16_t* samples);

}  // namespace Orlek::Detail
