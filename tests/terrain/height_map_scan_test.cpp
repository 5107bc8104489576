// The scan and its hand-over: destruction and assignment while it runs, scans that follow, copies,
// objects on several threads. Meant for the thread sanitizer too.
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <memory>

#include "support/Capture.h"
#include "support/TempDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Geodetic::HeightMap;

void writeTile(const TempDir& dir, int lat, int lon, int elevation) {
    dir.write(std::to_string(lat) + "_" + std::to_string(lon) + ".DT1",
              dtedFile(dtedLabelAt(lat, lon), [=](int, int) { return elevation; }));
}

void writeTiles(const TempDir& dir, int count) {
    for (int n = 0; n < count; ++n) {
        writeTile(dir, n / 100, n % 100, 100 + n);
    }
}

/// Queries `lat`, `lon` until a scan has brought its tile.
void waitForTile(HeightMap& map, double lat, double lon) {
    while (normalAt(map, lat, lon, true) == noTile) {
        leaveCell(map);
        std::this_thread::yield();
    }
}

std::size_t linesIn(const std::string& text, const std::string& start) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
        count += text.compare(at, start.size(), start) == 0 ? 1U : 0U;
    }
    return count;
}

TEST(HeightMapScan, DestructionWaits) {
    const TempDir dir;
    writeTiles(dir, 200);
    const std::string printed = captureStdout([&] {
        for (int n = 0; n < 50; ++n) {
            HeightMap map;
            map.setDataPath(dir.path());
            map.loadData();
            if (n % 2 == 1) {
                map.getAltitude(0.1, 0.1, true, false);
            }
        }
    });
    EXPECT_EQ(linesIn(printed, "read DT File"), 50U * 200U);
}

TEST(HeightMapScan, AssignmentWaitsAndTakesTheOthersPlace) {
    const TempDir dir;
    const TempDir other;
    writeTiles(dir, 200);
    writeTile(other, 50, 50, 5);
    captureStdout([&] {
        HeightMap ready;
        scan(ready, other.path());
        for (int n = 0; n < 20; ++n) {
            HeightMap map;
            map.setDataPath(dir.path());
            map.loadData();
            map = ready;
            EXPECT_EQ(map.getAltitude(50.1, 50.1, true, false), 5.0);
            EXPECT_EQ(normalAt(map, 0.1, 0.1, true), noTile);
        }
    });
}

TEST(HeightMapScan, QueriesSeeAllTilesOrNone) {
    const TempDir dir;
    writeTiles(dir, 300);
    captureStdout([&] {
        for (int n = 0; n < 10; ++n) {
            HeightMap map;
            map.setDataPath(dir.path());
            map.loadData();
            Normal normal{};
            while (!map.getNormal(2.1, 99.1, true, false, normal[0], normal[1], normal[2])) {
                ASSERT_EQ(normal, noTile);
            }
            ASSERT_EQ(normal, flat);
            ASSERT_EQ(map.getAltitude(0.1, 0.1, true, false), 100.0);
        }
    });
}

TEST(HeightMapScan, AnotherCallWhileOneRunsDoesNothing) {
    const TempDir dir;
    writeTiles(dir, 300);
    const std::string printed = captureStdout([&] {
        HeightMap map;
        map.setDataPath(dir.path());
        for (int n = 0; n < 5; ++n) {
            map.loadData();
        }
        waitUntilReady(map);
    });
    EXPECT_EQ(linesIn(printed, "basePath"), 1U);
}

TEST(HeightMapScan, ASecondScanAddsAndReplaces) {
    const TempDir dir;
    writeTile(dir, 45, 6, 100);
    const std::string printed = captureStdout([&] {
        HeightMap map;
        scan(map, dir.path());
        EXPECT_EQ(map.getAltitude(45.1, 6.1, true, false), 100.0);
        writeTile(dir, 45, 6, 200);
        writeTile(dir, 45, 7, 300);
        map.loadData();
        while (normalAt(map, 45.1, 7.1, true) == noTile) {
            // Until the scan has finished, what was there stays in use; there is no gap.
            const double metres = map.getAltitude(45.1, 6.1, true, false);
            ASSERT_TRUE(metres == 100.0 || metres == 200.0) << metres;
        }
        EXPECT_EQ(map.getAltitude(45.1, 7.1, true, false), 300.0);
        EXPECT_EQ(map.getAltitude(45.1, 6.1, true, false), 200.0);
        // As soon as a scan is seen to have finished, the next can start.
        writeTile(dir, 45, 8, 400);
        map.loadData();
        waitForTile(map, 45.1, 8.1);
    });
    EXPECT_EQ(linesIn(printed, "basePath"), 3U);
    // The tiles known before are counted: only the first line of all has none.
    EXPECT_EQ(printed.find("size 0\n"), printed.rfind("size 0\n")) << printed;
}

TEST(HeightMapScan, TheTileInUseOutlivesItsReplacement) {
    const TempDir dir;
    writeTile(dir, 45, 6, 100);
    captureStdout([&] {
        HeightMap map;
        scan(map, dir.path());
        ASSERT_EQ(map.getAltitude(45.1, 6.1, true, false), 100.0);
        writeTile(dir, 45, 6, 200);
        map.loadData();
        HeightMap snapshot(map);
        map = snapshot;  // waits
        EXPECT_EQ(map.getAltitude(45.2, 6.2, true, false), 100.0);
        leaveCell(map);
        EXPECT_GE(map.getAltitude(45.2, 6.2, true, false), 100.0);
    });
}

TEST(HeightMapScan, CopiesShareTilesAndState) {
    const TempDir dir;
    writeTile(dir, 45, 6, 100);
    auto map = std::make_unique<HeightMap>();
    captureStdout([&] { scan(*map, dir.path()); });
    map->getAltitude(45.1, 6.1, false, false);
    HeightMap copy(*map);
    EXPECT_EQ(copy.getAltitude(45.1, 6.1, true, false), 0.0);  // the current key came along
    leaveCell(copy);
    EXPECT_EQ(copy.getAltitude(45.1, 6.1, true, false), 100.0);
    EXPECT_EQ(map->getAltitude(45.1, 6.1, false, false), 100.0);  // loaded for both
    map.reset();
    EXPECT_EQ(copy.getAltitude(45.1, 6.1, false, false), 100.0);
    HeightMap& self = copy;
    copy = self;
    EXPECT_EQ(copy.getAltitude(45.1, 6.1, false, false), 100.0);
    const std::string printed = captureStdout([&] {
        copy.loadData();
        HeightMap end = copy;
    });
    HeightMap empty;
    HeightMap notReady(empty);
    Normal n{};
    EXPECT_FALSE(notReady.getNormal(45.1, 6.1, true, false, n[0], n[1], n[2]));
}

TEST(HeightMapScan, TwoObjectsOnTwoThreads) {
    const TempDir dir;
    writeTiles(dir, 60);
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
        std::thread first(work);
        std::thread second(work);
        first.join();
        second.join();
    });
    EXPECT_EQ(wrong, 0);
}

}  // namespace
