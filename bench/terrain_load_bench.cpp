// Loading whole tiles beside the bare operation (zlib's inflate, one read of the file) and GDAL's
// read of the whole band, and scanning a directory of tiles beside listing it and reading 80 bytes
// of each file. Loads go into fresh memory, as the first ones of a program do: malloc is kept from
// serving large blocks from freed ones.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "FirstEntry.h"
#include "support/DataDir.h"
#include "support/TempDir.h"
#include "terrain/TileFiles.h"
#include "terrain/tiles/HeightTile.h"
#include "terrain/tiles/TileScan.h"
#ifdef ORLEK_HAVE_GDAL
#include <gdal.h>
#endif

namespace {

using Orlek::Detail::HeightTile;

/// Memory that nobody has touched yet. Malloc may serve what was freed before, without page faults.
class FreshMemory {
public:
    explicit FreshMemory(std::size_t size)
        : mSize(size),
          mMemory(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
        if (mMemory == MAP_FAILED) {
            std::perror("mmap");
            std::exit(1);
        }
    }
    ~FreshMemory() { munmap(mMemory, mSize); }
    FreshMemory(const FreshMemory&) = delete;
    FreshMemory& operator=(const FreshMemory&) = delete;
    void* get() const { return mMemory; }

private:
    std::size_t mSize;
    void* mMemory;
};

void loadTile(benchmark::State& state, HeightTile& tile) {
    for (auto _ : state) {
        tile.load();
        if (!tile.loaded()) {
            state.SkipWithError("not loaded");
        }
        tile.unload();
    }
}

void zlibAlone(benchmark::State& state, const OrlekBench::FirstEntry& first) {
    for (auto _ : state) {
        const FreshMemory out(first.entry.uncompressedSize);
        if (!OrlekBench::inflateAtOnce(first, static_cast<Bytef*>(out.get()))) {
            state.SkipWithError("inflate failed");
        }
    }
}

void readAlone(benchmark::State& state, const std::string& path) {
    const std::size_t size = std::filesystem::file_size(path);
    for (auto _ : state) {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        const FreshMemory out(size);
        if (read(file, out.get(), size) != static_cast<ssize_t>(size)) {
            state.SkipWithError("read failed");
        }
        close(file);
    }
}

#ifdef ORLEK_HAVE_GDAL
void gdalBand(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        GDALDatasetH dataset = GDALOpen(path.c_str(), GA_ReadOnly);
        const int columns = GDALGetRasterXSize(dataset);
        const int rows = GDALGetRasterYSize(dataset);
        const FreshMemory out(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) *
                              sizeof(std::int16_t));
        if (GDALRasterIO(GDALGetRasterBand(dataset, 1), GF_Read, 0, 0, columns, rows, out.get(),
                         columns, rows, GDT_Int16, 0, 0) != CE_None) {
            state.SkipWithError("GDAL cannot read it");
        }
        GDALClose(dataset);
    }
}
#endif

constexpr int tileCount = 2000;

void writeTiles(const OrlekTest::TempDir& dir) {
    for (int n = 0; n < tileCount; ++n) {
        const auto label = OrlekTest::dtedLabelAt(n / 100, n % 100);
        dir.write(std::to_string(n) + ".DT1",
                  OrlekTest::dtedFile(label, [](int, int) { return 1; }));
    }
}

void bareScan(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        DIR* directory = opendir(path.c_str());
        std::array<char, 80> header{};
        int count = 0;
        while (const dirent* entry = readdir(directory)) {
            const int file = openat(dirfd(directory), entry->d_name, O_RDONLY | O_CLOEXEC);
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

/// The lines it prints go to a file, as they do in a program that runs unattended.
void tileScan(benchmark::State& state, const std::string& path) {
    std::fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    const int sink = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(sink, STDOUT_FILENO);
    for (auto _ : state) {
        Orlek::Detail::TileMaps maps;
        Orlek::Detail::scanDirectory(path, maps);
        if (maps.high.size() != tileCount) {
            state.SkipWithError("tiles are missing");
        }
    }
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(sink);
    close(saved);
}

template <typename Function, typename Argument>
void add(const std::string& name, Function function, Argument& argument) {
    benchmark::RegisterBenchmark(name.c_str(), [function, &argument](auto& state) {
        function(state, argument);
    })->Unit(benchmark::kMillisecond);
}

struct Zipped {
    explicit Zipped(const std::string& path)
        : first(OrlekBench::readFirstEntry(path)),
          inside("/vsizip/" + path + "/" + first.entry.fileName) {
        tile.parseName(path);
        add(first.entry.fileName + "/zlib", zlibAlone, first);
        add(first.entry.fileName + "/orlek", loadTile, tile);
#ifdef ORLEK_HAVE_GDAL
        add(first.entry.fileName + "/gdal", gdalBand, inside);
#endif
    }
    OrlekBench::FirstEntry first;
    std::string inside;
    HeightTile tile;
};

struct Dted {
    explicit Dted(const std::string& file) : path(file) {
        tile.openHeader(path);
        add("DT1/read", readAlone, path);
        add("DT1/orlek", loadTile, tile);
#ifdef ORLEK_HAVE_GDAL
        add("DT1/gdal", gdalBand, path);
#endif
    }
    std::string path;
    HeightTile tile;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
#ifdef ORLEK_HAVE_GDAL
    GDALAllRegister();
#endif
    std::vector<std::unique_ptr<Zipped>> zipped;
    std::unique_ptr<Dted> dted;
    const std::string data = OrlekTest::terrainDir();
    if (data.empty()) {
        std::fprintf(stderr, "no real tiles: the loads are left out\n");
    } else {
        for (const char* name :
             {"N42E001.SRTMGL3.hgt.zip", "N43E007.SRTMGL3.hgt.zip", "N48W125.SRTMGL1.hgt.zip"}) {
            zipped.push_back(std::make_unique<Zipped>(data + "/" + name));
        }
        dted = std::make_unique<Dted>(data + "/N42E001.DT1");
    }
    const OrlekTest::TempDir dir;
    writeTiles(dir);
    const std::string path = dir.path();
    add("scan/bare", bareScan, path);
    add("scan/orlek", tileScan, path);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
