// Queries of a loaded tile beside a hand-written lookup on a raw array, the rules of the normal
// written out sample by sample, and GDAL's read of two by two posts; and a whole relief of 1280 by
// 800 pixels beside gdaldem, which runs as a process of its own and writes its picture to a file.
#include <Orlek/FileSystem/ZipFile.h>
#include <Orlek/Geodetic/HeightMap.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <utility>
#include <vector>

#include "support/DataDir.h"
#include "support/TempDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TerrainRules.h"
#ifdef ORLEK_HAVE_GDAL
#include <gdal.h>
#endif

namespace {

using Orlek::Geodetic::HeightMap;
using OrlekTest::RuleTile;

constexpr const char* tileName = "N42E001.SRTMGL3.hgt.zip";
constexpr int count = 1201;
using Points = std::vector<std::pair<double, double>>;

Points randomPoints() {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> within(0.01, 0.99);
    Points points(1 << 14);
    for (auto& [lat, lon] : points) {
        lat = 42 + within(random);
        lon = 1 + within(random);
    }
    return points;
}

/// A straight flight across the tile, about a post every second step.
Points pathPoints() {
    Points points;
    for (int n = 0; n < 1 << 11; ++n) {
        points.emplace_back(42.1 + n * 0.0003, 1.05 + n * 0.0004);
    }
    return points;
}

/// The tile in an array of the same layout, and what one would write for it by hand.
struct RawTile : RuleTile {
    double lookup(double lat, double lon) const {
        const double u = (lat - latOrigin) / latSpacing;
        const double v = (lon - lonOrigin) / lonSpacing;
        const int i = static_cast<int>(u);
        const int j = static_cast<int>(v);
        const std::int16_t* corner = samples.data() + j * count + i;
        const double fu = u - i;
        const double fv = v - j;
        const double a = corner[0] + (corner[count] - corner[0]) * fv;
        const double b = corner[1] + (corner[count + 1] - corner[1]) * fv;
        return a + (b - a) * fu;
    }
};

RawTile rawTile(const std::string& archive) {
    RawTile tile;
    static_cast<RuleTile&>(tile) = {42, 1, 1.0 / 1200, 1.0 / 1200, count, count, {}};
    tile.samples.resize(count * count);
    unsigned int size = 0;
    unsigned char* bytes = Orlek::FileSystem::ZipFile(archive).readFirstFile(size);
    for (std::size_t n = 0; n < tile.samples.size() && 2 * n + 1 < size; ++n) {
        const auto sample = static_cast<std::int16_t>(bytes[2 * n] << 8 | bytes[2 * n + 1]);
        const std::size_t row = n / count;
        const std::size_t column = n % count;
        tile.samples[column * count + (count - 1 - row)] =
            sample < -9000 ? std::int16_t{0} : sample;
    }
    std::free(bytes);
    return tile;
}

template <typename Query>
void overPoints(benchmark::State& state, const Points& points, Query query) {
    for (auto _ : state) {
        double sum = 0;
        for (const auto& [lat, lon] : points) {
            sum += query(lat, lon);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * std::ssize(points));
}

constexpr int width = 1280;
constexpr int height = 800;
constexpr double west = 1.05;
constexpr double north = 42.95;
constexpr double pixelDeg = 0.0007;

/// Normal and height of each pixel in four unsigned shorts, as the terrain texture takes them.
void relief(HeightMap& map, std::vector<unsigned short>& texels) {
    unsigned short* out = texels.data();
    for (int y = 0; y < height; ++y) {
        const double lat = north - y * pixelDeg;
        for (int x = 0; x < width; ++x) {
            const double lon = west + x * pixelDeg;
            unsigned char n[3];
            map.getNormal(lat, lon, true, false, n[0], n[1], n[2]);
            const double metres = map.getAltitude(lat, lon, true, false);
            for (const unsigned char component : n) {
                *out++ = static_cast<unsigned short>(component * 257);
            }
            *out++ = static_cast<unsigned short>(metres * 16);
        }
    }
}

/// The same pixels of the same area, for gdaldem.
std::string hillshadeCommand(const std::string& archive, const OrlekTest::TempDir& dir) {
    const std::string source = dir.path("area.tif");
    char window[128];
    std::snprintf(window, sizeof window, "-projwin %.6f %.6f %.6f %.6f -outsize %d %d", west, north,
                  west + width * pixelDeg, north - height * pixelDeg, width, height);
    const std::string cut = "gdal_translate -q -r bilinear " + std::string(window) + " '/vsizip/" +
                            archive + "/N42E001.hgt' " + source + " >/dev/null 2>&1";
    if (std::system(cut.c_str()) != 0) {
        return {};
    }
    return "gdaldem hillshade -q -s 111120 -of ENVI " + source + " " + dir.path("shade.raw") +
           " >/dev/null 2>&1";
}

template <typename Function>
void add(const char* name, benchmark::TimeUnit unit, Function function) {
    benchmark::RegisterBenchmark(name, function)->Unit(unit)->UseRealTime();
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (OrlekTest::terrainDir().empty()) {
        std::fprintf(stderr, "no real tiles: nothing to measure\n");
        return 0;
    }
    const OrlekTest::TempDir dir;
    const std::string archive = OrlekTest::terrainDir() + "/" + tileName;
    std::filesystem::create_symlink(std::filesystem::canonical(archive), dir.path(tileName));
    HeightMap map;
    OrlekTest::scan(map, dir.path());
    map.getAltitude(42.5, 1.5, true, false);
    const RawTile raw = rawTile(archive);
    const Points random = randomPoints();
    const Points path = pathPoints();
    const auto us = benchmark::kMicrosecond;

    const auto orlek = [&](double lat, double lon) {
        return map.getAltitude(lat, lon, true, false);
    };
    const auto bare = [&](double lat, double lon) { return raw.lookup(lat, lon); };
    add("altitude/random/bare", us,
        [&](benchmark::State& state) { overPoints(state, random, bare); });
    add("altitude/random/orlek", us,
        [&](benchmark::State& state) { overPoints(state, random, orlek); });
    add("altitude/path/bare", us, [&](benchmark::State& state) { overPoints(state, path, bare); });
    add("altitude/path/orlek", us,
        [&](benchmark::State& state) { overPoints(state, path, orlek); });
    const double latSpacingM = raw.latSpacingMetres();
    const double lonSpacingM = raw.lonSpacingMetres();
    const auto rules = [&](double lat, double lon) {
        return raw.normal(lat, lon, latSpacingM, lonSpacingM)[0];
    };
    const auto normal = [&](double lat, double lon) {
        unsigned char x, y, z;
        map.getNormal(lat, lon, true, false, x, y, z);
        return x;
    };
    add("normal/random/rules", us,
        [&](benchmark::State& state) { overPoints(state, random, rules); });
    add("normal/random/orlek", us,
        [&](benchmark::State& state) { overPoints(state, random, normal); });
    add("normal/path/rules", us, [&](benchmark::State& state) { overPoints(state, path, rules); });
    add("normal/path/orlek", us, [&](benchmark::State& state) { overPoints(state, path, normal); });
#ifdef ORLEK_HAVE_GDAL
    GDALAllRegister();
    GDALDatasetH dataset = GDALOpen(("/vsizip/" + archive + "/N42E001.hgt").c_str(), GA_ReadOnly);
    GDALRasterBandH band = GDALGetRasterBand(dataset, 1);
    add("altitude/random/gdal", us, [&](benchmark::State& state) {
        overPoints(state, random, [&](double lat, double lon) {
            const double u = (43.0 - lat) * 1200;
            const double v = (lon - 1.0) * 1200;
            const int row = static_cast<int>(u);
            const int column = static_cast<int>(v);
            double post[4] = {};
            if (GDALRasterIO(band, GF_Read, column, row, 2, 2, post, 2, 2, GDT_Float64, 0, 0) !=
                CE_None) {
                state.SkipWithError("GDAL cannot read it");
            }
            const double top = post[0] + (post[1] - post[0]) * (v - column);
            const double bottom = post[2] + (post[3] - post[2]) * (v - column);
            return top + (bottom - top) * (u - row);
        });
    });
#endif
    std::vector<unsigned short> texels(std::size_t{width} * height * 4);
    add("relief/orlek", benchmark::kMillisecond, [&](benchmark::State& state) {
        for (auto _ : state) {
            relief(map, texels);
            benchmark::ClobberMemory();
        }
    });
    const std::string hillshade = hillshadeCommand(archive, dir);
    if (hillshade.empty()) {
        std::fprintf(stderr, "no gdal-bin: gdaldem is left out\n");
    } else {
        add("relief/gdaldem", benchmark::kMillisecond, [&](benchmark::State& state) {
            for (auto _ : state) {
                if (std::system(hillshade.c_str()) != 0) {
                    state.SkipWithError("gdaldem failed");
                }
            }
        });
    }
    benchmark::RunSpecifiedBenchmarks();
#ifdef ORLEK_HAVE_GDAL
    GDALClose(dataset);
#endif
    return 0;
}
