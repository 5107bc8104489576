// ZIP entries beside zlib's inflate of the same bytes alone, and the listing of a directory with
// the first bytes of each file beside the bare calls of the C library. Loads go into fresh memory,
// as the first ones of a program do: malloc is kept from serving large blocks from freed ones.
// "zlib/warm" shows what inflate costs without the page faults of fresh memory.
#include <Orlek/FileSystem/Directory.h>
#include <Orlek/FileSystem/ZipFile.h>
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "FirstEntry.h"
#include "files/InflateStream.h"
#include "files/ZipArchive.h"
#include "platform/RegularFile.h"
#include "support/DataDir.h"

namespace {

using namespace Orlek;

// A tile archive and the size of its rows.
struct Archive : OrlekBench::FirstEntry {
    std::size_t rowSize = 0;
};

Archive openTile(const std::string& name, std::size_t columns) {
    return {OrlekBench::readFirstEntry(OrlekTest::terrainDir() + "/" + name), columns * 2};
}

void zlibFresh(benchmark::State& state, const Archive& archive) {
    for (auto _ : state) {
        auto* out = static_cast<Bytef*>(std::malloc(archive.entry.uncompressedSize));
        if (!OrlekBench::inflateAtOnce(archive, out)) {
            state.SkipWithError("inflate failed");
        }
        benchmark::DoNotOptimize(out);
        std::free(out);
    }
}

void zlibWarm(benchmark::State& state, const Archive& archive) {
    std::vector<Bytef> out(archive.entry.uncompressedSize);
    for (auto _ : state) {
        if (!OrlekBench::inflateAtOnce(archive, out.data())) {
            state.SkipWithError("inflate failed");
        }
        benchmark::DoNotOptimize(out.data());
    }
}

void zipFile(benchmark::State& state, const Archive& archive) {
    for (auto _ : state) {
        unsigned int size = 0;
        unsigned char* content = FileSystem::ZipFile(archive.path).readFirstFile(size);
        if (content == nullptr) {
            state.SkipWithError("read failed");
        }
        benchmark::DoNotOptimize(content);
        std::free(content);
    }
}

// What a loader of tiles stands on: bands of rows that stay in cache.
void bands(benchmark::State& state, const Archive& archive, std::size_t rows) {
    for (auto _ : state) {
        Detail::InflateStream stream;
        std::uint32_t size = 0;
        Detail::openFirstEntry(archive.path, stream, size);
        std::vector<std::byte> band(archive.rowSize * rows);
        std::size_t total = 0;
        for (std::size_t got = stream.read(band); got > 0; got = stream.read(band)) {
            benchmark::DoNotOptimize(band.data());
            total += got;
        }
        if (total != size || !stream.atEnd()) {
            state.SkipWithError("read failed");
        }
    }
}

// A folder of small files, removed at the end.
class TileFolder {
public:
    explicit TileFolder(int count)
        : mPath(std::filesystem::temp_directory_path() /
                ("orlek-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directory(mPath);
        for (int i = 0; i < count; ++i) {
            const std::string name = std::to_string(10000 + i).append("N47E011.DT1");
            std::ofstream(mPath / name) << std::string(3428, '0');
        }
    }
    ~TileFolder() { std::filesystem::remove_all(mPath); }
    TileFolder(const TileFolder&) = delete;
    TileFolder& operator=(const TileFolder&) = delete;
    std::string path() const { return mPath.string(); }

private:
    std::filesystem::path mPath;
};

constexpr int tileCount = 2000;

void bareScan(benchmark::State& state, const TileFolder& folder) {
    for (auto _ : state) {
        DIR* directory = opendir(folder.path().c_str());
        std::array<char, 80> header{};
        int count = 0;
        while (const dirent* entry = readdir(directory)) {
            const int file = openat(dirfd(directory), entry->d_name, O_RDONLY);
            count += read(file, header.data(), header.size()) == std::ssize(header) ? 1 : 0;
            benchmark::DoNotOptimize(header);
            close(file);
        }
        closedir(directory);
        if (count != tileCount) {
            state.SkipWithError("files are missing");
        }
    }
}

void listingScan(benchmark::State& state, const TileFolder& folder) {
    for (auto _ : state) {
        std::array<std::byte, 80> header{};
        int count = 0;
        for (const std::string& path : FileSystem::Directory(folder.path()).entryList(true)) {
            Detail::RegularFile file;
            count += file.open(path) && file.readAt(0, header) == header.size() ? 1 : 0;
            benchmark::DoNotOptimize(header);
        }
        if (count != tileCount) {
            state.SkipWithError("files are missing");
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    std::vector<Archive> archives;
    if (OrlekTest::terrainDir().empty()) {
        std::fprintf(stderr, "no real tiles: the ZIP benchmarks are left out\n");
    } else {
        archives.push_back(openTile("N42E001.SRTMGL3.hgt.zip", 1201));
        archives.push_back(openTile("N43E007.SRTMGL3.hgt.zip", 1201));
        archives.push_back(openTile("N48W125.SRTMGL1.hgt.zip", 3601));
    }
    for (const Archive& archive : archives) {
        const std::string& name = archive.entry.fileName;
        const auto add = [&](const char* what, auto function, auto... arguments) {
            benchmark::RegisterBenchmark((name + "/" + what).c_str(), function, std::cref(archive),
                                         arguments...)
                ->Unit(benchmark::kMillisecond);
        };
        add("zlib/warm", zlibWarm);
        add("zlib/fresh", zlibFresh);
        add("ZipFile", zipFile);
        add("bands/16", bands, 16);
        add("bands/128", bands, 128);
    }
    const TileFolder folder(tileCount);
    benchmark::RegisterBenchmark("scan/bare", bareScan, std::cref(folder))
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan/Directory", listingScan, std::cref(folder))
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
