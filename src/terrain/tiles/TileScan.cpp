// Finds the tiles below a directory.
#include "terrain/tiles/TileScan.h"

#include <Orlek/FileSystem/Directory.h>

#include <exception>

#include "platform/Report.h"
#include "platform/Thread.h"

namespace Orlek::Detail {

namespace {

void registerDted(const std::string& file, TileMap& tiles) {
    auto tile = std::make_shared<HeightTile>();
    if (!tile->openHeader(file)) {
        return;
    }
    const TileKey key = tile->key();
    report("read DT File <%s> %d %d 0x%x size %d\n", file.c_str(), latIndexOf(key) - 90,
           lonIndexOf(key) - 180, key, static_cast<int>(tiles.size()));
    tiles[key] = std::move(tile);
}

void registerSrtm(const std::string& file, TileMaps& maps) {
    auto tile = std::make_shared<HeightTile>();
    if (!tile->parseName(file)) {
        return;
    }
    TileMap& tiles = tile->lowRes() ? maps.low : maps.high;
    tiles[tile->key()] = std::move(tile);
}

}  // namespace

TileFormat tileFormat(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    const std::string_view extension =
        dot != std::string_view::npos ? path.substr(dot) : std::string_view();
    if (extension == ".DT1") {
        return TileFormat::dted;
    }
    return extension == ".zip" ? TileFormat::srtm : TileFormat::none;
}

void scanDirectory(const std::string& path, TileMaps& maps) {
    const std::vector<std::string> entries = FileSystem::Directory(path).entryList(true);
    report("basePath <%s> size %d\n", path.c_str(), static_cast<int>(entries.size()));
    for (const std::string& entry : entries) {
        const TileFormat format = tileFormat(entry);
        if (format == TileFormat::dted) {
            registerDted(entry, maps.high);
        } else if (format == TileFormat::srtm) {
            registerSrtm(entry, maps);
        }
    }
}

std::shared_ptr<const TileMaps> TileScan::result() const {
    return hasResult() ? mResult : nullptr;
}

std::shared_ptr<const TileMaps> TileScan::takeResult() {
    if (!hasResult()) {
        return nullptr;
    }
    mStage.store(Stage::idle, std::memory_order_relaxed);
    return std::move(mResult);
}

void TileScan::start(const std::string& path, const std::shared_ptr<const TileMaps>& known) {
    wait();
    mResult = known;
    mStage.store(Stage::running, std::memory_order_relaxed);
    try {
        mThread = startThread([this, path, known] { run(path, *known); });
    } catch (const std::exception&) {  // no thread, or no memory for one
        run(path, *known);
    }
}

void TileScan::wait() {
    if (mThread.joinable()) {
        mThread.join();
    }
}

void TileScan::run(const std::string& path, const TileMaps& known) noexcept {
    try {
        const auto maps = std::make_shared<TileMaps>(known);
        mResult = maps;
        scanDirectory(path, *maps);
    } catch (const std::exception&) {
        // Out of memory: the tiles found until then are still right.
    }
    mStage.store(Stage::finished, std::memory_order_release);
}

}  // namespace Orlek::Detail
