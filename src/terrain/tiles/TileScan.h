// Finds the tiles below a directory, on a thread of its own or on the caller's.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "terrain/tiles/TileSet.h"

namespace Orlek::Detail {

struct TileMaps {
    TileMap high;
    TileMap low;  ///< 30 arc second tiles
};

enum class TileFormat : std::uint8_t { none, dted, srtm };

/// The format that the extension of a file promises, compared as it stands.
TileFormat tileFormat(std::string_view path);

/// Registers every tile below `path`: DTED files by their header, SRTM archives by their name. A
/// tile already there under the same key is replaced.
void scanDirectory(const std::string& path, TileMaps& maps);

/// A scan on a thread of its own. It works on maps that nobody else sees and hands them over whole:
/// the owner asks hasResult, takes them, and never sees half a scan. All members belong to the
/// owner's thread.
class TileScan {
public:
    TileScan() = default;
    ~TileScan() { wait(); }
    TileScan(const TileScan&) = delete;
    TileScan& operator=(const TileScan&) = delete;

    /// Whether a scan still runs; its result is not there yet.
    [[nodiscard]] bool running() const { return stage() == Stage::running; }
    /// Whether a scan has finished and its result was not taken.
    [[nodiscard]] bool hasResult() const { return stage() == Stage::finished; }
    /// The result, left in place; null unless hasResult.
    [[nodiscard]] std::shared_ptr<const TileMaps> result() const;
    /// The result, given away; null unless hasResult.
    std::shared_ptr<const TileMaps> takeResult();

    /// Adds the tiles below `path` to those of `known`. No other scan may run and no result wait.
    /// Without a thread to be had the scan is done before this returns.
    void start(const std::string& path, const std::shared_ptr<const TileMaps>& known);
    /// Returns once no scan runs.
    void wait();

private:
    enum class Stage : std::uint8_t { idle, running, finished };

    [[nodiscard]] Stage stage() const { return mStage.load(std::memory_order_acquire); }
    void run(const std::string& path, const TileMaps& known) noexcept;

    std::atomic<Stage> mStage =
        Stage::idle;  ///< the one hand-over: what the scan wrote is seen after
    std::shared_ptr<const TileMaps> mResult;  ///< the scan's while it runs, then the owner's
    std::thread mThread;
};

}  // namespace Orlek::Detail
