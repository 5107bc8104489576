// Decodes DTED records, eight longitude lines side by side: the repair rule runs from sample to
// sample along a line, so the parallel work is across lines.
#include "terrain/tiles/DtedRecords.h"

#include "terrain/tiles/DtedHeader.h"
#include "terrain/tiles/SampleLanes.h"

namespace Orlek::Detail {

namespace {

/// (a + b) / 2 rounded toward zero. The sum is never formed, as it may need a 17th bit: the shift
/// rounds down, and one is added back where that went below an odd negative sum.
SampleLanes mean(SampleLanes a, SampleLanes b) {
    const SampleLanes differing = a ^ b;
    const SampleLanes roundedDown = (a & b) + (differing >> 1);
    return roundedDown + (differing & (roundedDown >> 15) & 1);
}

std::int16_t mean(int a, int b) {
    return static_cast<std::int16_t>((a + b) / 2);
}

/// One line from sample `first` on; the samples before it are in `line` already.
void decodeLine(const std::byte* record, std::size_t first, std::size_t numLat,
                std::int16_t* line) {
    const std::byte* source = record + dtedRecordPrefix;
    for (std::size_t k = first; k < numLat; ++k) {
        line[k] = voidToZero(loadSample(source + 2 * k));
        if (k >= 2 && line[k - 2] == line[k - 1]) {
            line[k - 1] = mean(line[k - 2], line[k]);
        }
    }
}

/// Eight lines. Samples leave one step late, once the repair can no longer change them.
void decodeEightLines(const std::byte* records, std::size_t numLat, std::int16_t* samples) {
    const std::size_t recordSize = dtedRecordSize(numLat);
    SampleLanes last;
    for (std::size_t line = 0; line < laneCount; ++line) {
        last[line] = voidToZero(loadSample(records + line * recordSize + dtedRecordPrefix));
    }
    SampleLanes lastButOne = ~last;  // equal to no first sample
    std::size_t done = 0;
    for (; done + laneCount < numLat; done += laneCount) {
        SampleBlock block;
        for (std::size_t line = 0; line < laneCount; ++line) {
            block[line] =
                loadLanes(records + line * recordSize + dtedRecordPrefix + 2 * (done + 1));
        }
        block = transposed(block);
        for (SampleLanes& step : block) {
            const SampleLanes next = step;
            // The repaired sample equals the one before it, so the mean is of values not repaired.
            const SampleLanes change = (last ^ mean(last, next)) & (lastButOne == last);
            lastButOne = last ^ change;
            step = lastButOne;
            last = next;
        }
        block = transposed(block);
        for (std::size_t line = 0; line < laneCount; ++line) {
            storeLanes(block[line], samples + line * numLat + done);
        }
    }
    for (std::size_t line = 0; line < laneCount; ++line) {
        samples[line * numLat + done] = last[line];
        decodeLine(records + line * recordSize, done + 1, numLat, samples + line * numLat);
    }
}

}  // namespace

void decodeDtedRecords(const std::byte* records, std::size_t lineCount, std::size_t numLat,
                       std::int16_t* samples) {
    const std::size_t recordSize = dtedRecordSize(numLat);
    std::size_t line = 0;
    for (; line + laneCount <= lineCount; line += laneCount) {
        decodeEightLines(records + line * recordSize, numLat, samples + line * numLat);
    }
    for (; line < lineCount; ++line) {
        decodeLine(records + line * recordSize, 0, numLat, samples + line * numLat);
    }
}

}  // namespace Orlek::Detail
