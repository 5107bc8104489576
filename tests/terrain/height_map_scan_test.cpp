// The scan and its hand-over: destruction and assignment while it runs, scans that follow, copies,
// objects on several threads. Meant for the thread sanitizer too.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <optional>

#include "support/Capture.h"
#include "support/TempDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Geodetic::HeightMap;

std::size_t occurrences(const std::string& text, const std::string& word) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        ++count;
    }
    return count;
}

class HeightMapScan : public testing::Test {
protected:
    /// Elevations from 100 on, at (0, 0), (0, 1) ...
    void writeTiles(int count) {
        for (int n = 0; n < count; ++n) {
            writeFlatDted(dir, n / 100, n % 100, 100 + n);
        }
    }
    void start(HeightMap& map) {
        map.setDataPath(dir.path());
        map.loadData();
    }

    const TempDir dir;
};

TEST_F(HeightMapScan, DestructionWaits) {
    writeTiles(200);
    const std::string printed = captureStdout([&] {
        for (int n = 0; n < 50; ++n) {
            HeightMap map;
            start(map);
            map.getAltitude(0.1, 0.1, n % 2 == 0, false);
        }
    });
    EXPECT_EQ(occurrences(printed, "read DT File"), 50U * 200U);
}

TEST_F(HeightMapScan, AssignmentWaitsAndTakesTheOthersPlace) {
    const TempDir other;
    writeTiles(200);
    writeFlatDted(other, 50, 50, 5);
    captureStdout([&] {
        HeightMap ready;
        scan(ready, other.path());
        for (int n = 0; n < 20; ++n) {
            HeightMap map;
            start(map);
            map = ready;
            EXPECT_EQ(map.getAltitude(50.1, 50.1, true, false), 5.0);
            EXPECT_EQ(normalAt(map, 0.1, 0.1, true), noTile);
        }
    });
}

TEST_F(HeightMapScan, QueriesSeeAllTilesOrNone) {
    writeTiles(300);
    captureStdout([&] {
        for (int n = 0; n < 10; ++n) {
            HeightMap map;
            start(map);
            Normal normal{};
            while (!map.getNormal(2.1, 99.1, true, false, normal[0], normal[1], normal[2])) {
                ASSERT_EQ(normal, noTile);
            }
            ASSERT_EQ(map.getAltitude(0.1, 0.1, true, false), 100.0);
        }
    });
}

TEST_F(HeightMapScan, AnotherCallWhileOneRunsDoesNothing) {
    writeTiles(300);
    std::size_t fewest = 9;  // A scan may end between two calls, though hardly in every round.
    for (int round = 0; round < 20 && fewest > 1; ++round) {
        const std::string printed = captureStdout([&] {
            HeightMap map;
            start(map);
            map.loadData();
            map.loadData();
            waitUntilReady(map);
        });
        fewest = std::min(fewest, occurrences(printed, "basePath"));
    }
    EXPECT_EQ(fewest, 1U);
}

TEST_F(HeightMapScan, ASecondScanAddsAndReplaces) {
    writeFlatDted(dir, 45, 6, 100);
    const std::string printed = captureStdout([&] {
        HeightMap map;
        scan(map, dir.path());
        EXPECT_EQ(map.getAltitude(45.1, 6.1, true, false), 100.0);
        writeFlatDted(dir, 45, 6, 200);
        writeFlatDted(dir, 45, 7, 300);
        map.loadData();
        while (normalAt(map, 45.1, 7.1, true) == noTile) {
            // Until the scan has finished, what was there stays in use; there is no gap.
            const double metres = map.getAltitude(45.1, 6.1, true, false);
            ASSERT_TRUE(metres == 100.0 || metres == 200.0) << metres;
        }
        EXPECT_EQ(map.getAltitude(45.1, 7.1, true, false), 300.0);
        EXPECT_EQ(map.getAltitude(45.1, 6.1, true, false), 200.0);
        // As soon as a scan is seen to have finished, the next can start.
        writeFlatDted(dir, 45, 8, 400);
        map.loadData();
        while (normalAt(map, 45.1, 8.1, true) == noTile) {
            leaveCell(map);
        }
    });
    EXPECT_EQ(occurrences(printed, "basePath"), 3U);
    // The tiles known before are counted: only the first line of all has none.
    EXPECT_EQ(occurrences(printed, "size 0\n"), 1U) << printed;
}

TEST_F(HeightMapScan, TheTileInUseOutlivesItsReplacement) {
    writeFlatDted(dir, 45, 6, 100);
    captureStdout([&] {
        HeightMap map;
        scan(map, dir.path());
        ASSERT_EQ(map.getAltitude(45.1, 6.1, true, false), 100.0);
        writeFlatDted(dir, 45, 6, 200);
        map.loadData();
        map = HeightMap(map);  // waits
        EXPECT_EQ(map.getAltitude(45.2, 6.2, true, false), 100.0);
    });
}

TEST_F(HeightMapScan, CopiesShareTilesAndState) {
    writeFlatDted(dir, 45, 6, 100);
    std::optional<HeightMap> map(std::in_place);
    captureStdout([&] { scan(*map, dir.path()); });
    map->getAltitude(45.1, 6.1, false, false);
    HeightMap copy(*map);
    EXPECT_EQ(copy.getAltitude(45.1, 6.1, true, false), 0.0) << "the current key came along";
    leaveCell(copy);
    EXPECT_EQ(copy.getAltitude(45.1, 6.1, true, false), 100.0);
    EXPECT_EQ(map->getAltitude(45.1, 6.1, false, false), 100.0) << "loaded for both";
    map.reset();
    HeightMap& self = copy;
    copy = self;
    EXPECT_EQ(copy.getAltitude(45.1, 6.1, false, false), 100.0);
    captureStdout([&] {
        HeightMap scanning(copy);
        scanning.loadData();
        const HeightMap ofARunningScan = scanning;
    });
}

TEST_F(HeightMapScan, TwoObjectsOnTwoThreads) {
    writeTiles(60);
    std::atomic<int> wrong = 0;
    captureStdout([&] {
        const auto work = [&] {
            HeightMap map;
            scan(map, dir.path());
            for (int n = 0; n < 2000; ++n) {
                const int tile = n * 7 % 60;
                wrong += map.getAltitude(0.1, tile + 0.1, true, false) == 100 + tile ? 0 : 1;
            }
        };
        std::thread another(work);
        work();
        another.join();
    });
    EXPECT_EQ(wrong, 0);
}

}  // namespace
