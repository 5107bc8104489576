// Decoding of DTED records and SRTM rows against the rules, one sample at a time.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "terrain/TerrainRules.h"
#include "terrain/TileFiles.h"
#include "terrain/tiles/DtedRecords.h"
#include "terrain/tiles/SampleLanes.h"
#include "terrain/tiles/SrtmSamples.h"

namespace {

using namespace OrlekTest;
using namespace Orlek::Detail;
using Line = std::vector<std::int16_t>;

const std::byte* bytesOf(const std::string& text) {
    return reinterpret_cast<const std::byte*>(text.data());
}

Line decoded(const std::vector<Line>& lines) {
    const std::size_t numLat = lines.front().size();
    std::string records;
    for (const Line& line : lines) {
        records.append(8, '\x55');
        for (const std::int16_t sample : line) {
            appendBigEndian(records, sample);
        }
        records.append(4, '\x55');
    }
    Line samples(lines.size() * numLat);
    decodeDtedRecords(bytesOf(records), lines.size(), numLat, samples.data());
    return samples;
}

TEST(DtedRecords, RepeatedSamplesAreReplaced) {
    struct {
        Line raw, repaired;
    } const cases[] = {
        {{10, 10, 20}, {10, 15, 20}},
        {{10, 10, 10, 20}, {10, 10, 15, 20}},
        {{0, 0, -5}, {0, -2, -5}},           // toward zero
        {{1, 1, 0, 0, 9}, {1, 0, 0, 4, 9}},  // a replaced sample feeds the next test
        {{32767, 32767, -9000}, {32767, 11883, -9000}},
        {{-32768, 0, 8}, {0, 4, 8}},  // voids are cleared first
        {{-9000, -9001}, {-9000, 0}},
        {{-1, -1, 0}, {-1, 0, 0}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(decoded({c.raw}), c.repaired);
    }
}

TEST(DtedRecords, EqualTheRuleForEveryShape) {
    std::mt19937 random(7);
    for (const std::size_t numLat : {2U, 3U, 8U, 9U, 10U, 16U, 17U, 18U, 31U, 100U}) {
        for (const std::size_t lineCount : {1U, 7U, 8U, 9U, 17U}) {
            // Narrow ranges repeat and chain; wide steps overflow a careless mean.
            for (const auto& [range, step] : {std::pair{1, 1}, {2, 1}, {1, 32767}, {40000, 1}}) {
                std::uniform_int_distribution<int> elevation(-range, range);
                std::vector<Line> lines(lineCount, Line(numLat));
                Line expected;
                for (Line& line : lines) {
                    for (std::int16_t& sample : line) {
                        sample = static_cast<std::int16_t>(elevation(random) * step);
                    }
                    Line repaired = line;
                    repairLine(repaired);
                    expected.insert(expected.end(), repaired.begin(), repaired.end());
                }
                ASSERT_EQ(decoded(lines), expected) << numLat << " " << lineCount << " " << range;
            }
        }
    }
}

TEST(SrtmSamples, GridFollowsFromTheSizeAlone) {
    EXPECT_EQ(srtmGrid(2884802)->latSpacing, 0.0008333333333333334);
    EXPECT_EQ(srtmGrid(25934402)->lonSpacing, 0.0002777777777777778);
    EXPECT_EQ(srtmGrid(57600000)->lonSpacing, 0.008333333333333333);
    for (const std::uint64_t size : {0U, 2884800U, 2884803U, 57600001U}) {
        EXPECT_FALSE(srtmGrid(size)) << size;
    }
}

TEST(SrtmSamples, RowsBecomeLinesFromTheSouth) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> elevation(-32768, 32767);
    for (const auto& [columns, rows, band] :
         {std::tuple{8, 8, 8}, {9, 25, 8}, {21, 40, 16}, {33, 31, 13}}) {
        std::vector<int> raw;
        const std::string file = srtmSamples(columns, rows, [&](int, int) {
            raw.push_back(raw.size() % 97 == 0 ? -9000 : elevation(random));
            return raw.back();
        });
        const TileGrid grid{
            0, 0, 1, 1, static_cast<std::uint32_t>(rows), static_cast<std::uint32_t>(columns)};
        Line tile(grid.sampleCount());
        for (int row = 0; row < rows;) {
            // The last band takes what is left, so that none has fewer than eight rows.
            const int count = rows - row < 2 * band ? rows - row : band;
            placeSrtmRows(bytesOf(file) + row * columns * 2, static_cast<std::uint32_t>(row),
                          static_cast<std::uint32_t>(count), grid, tile.data());
            row += count;
        }
        for (int r = 0; r < rows; ++r) {
            for (int c = 0; c < columns; ++c) {
                const int sample = raw[static_cast<std::size_t>(r * columns + c)];
                ASSERT_EQ(tile[static_cast<std::size_t>(c * rows + rows - 1 - r)],
                          sample < -9000 ? 0 : sample)
                    << r << " " << c;
            }
        }
    }
}

}  // namespace
