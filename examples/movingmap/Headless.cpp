// One context and one picture object serve all files.
#include "Headless.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

#include "MapPicture.h"
#include "Png.h"
#include "ProgressBar.h"

namespace MovingMap {

namespace {

constexpr int finest = 1;

// Returns whether there was terrain everywhere.
bool save(const Options& options, const std::string& path, MapPicture& picture,
          const Scene& scene) {
    const Point size(options.width, options.height);
    picture.draw(scene, size, options.centre.value_or(scene.own), finest);
    OrlekSupport::writePng(
        path, OrlekSupport::readFramebuffer(static_cast<int>(size.x), static_cast<int>(size.y)));
    return picture.terrainComplete();
}

void noteMissingTerrain(bool complete) {
    if (!complete) {
        std::printf("where the map is hatched there is no elevation data\n");
    }
}

void saveFrames(const Options& options, const Flight& flight, MapPicture& picture) {
    bool complete = true;
    OrlekSupport::ProgressBar progress(static_cast<std::size_t>(options.frames));
    for (int i = 0; i < options.frames; ++i) {
        const double share = options.frames > 1 ? i / (options.frames - 1.0) : 0.0;
        complete &= save(options, numberedPath(options.screen.file, i + 1, options.frames), picture,
                         flight.sceneAt(share * flight.path().lengthM()));
        progress.show(static_cast<std::size_t>(i) + 1);
    }
    progress.hide();
    noteMissingTerrain(complete);
}

using Clock = std::chrono::steady_clock;

void collectUntil(LiveFlight& live, Clock::time_point moment) {
    live.update();
    while (Clock::now() < moment) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        live.update();
    }
}

// The picture's path and what the feed's plate says, in a line.
void sayLive(const std::string& path, const Scene& scene) {
    std::printf("%s", path.c_str());
    for (const LiveNote& note : notesOf(*scene.live)) {
        std::printf(": %s", note.text.c_str());
    }
    std::printf("\n");
    std::fflush(stdout);
}

// Pictures at even intervals, the last one at the end of the collection.
void saveLive(const Options& options, LiveFlight& live, MapPicture& picture) {
    const int count = std::max(options.frames, 1);
    const Clock::time_point start = Clock::now();
    const std::chrono::duration<double> interval(options.feedSeconds / count);
    bool complete = true;
    for (int i = 1; i <= count; ++i) {
        collectUntil(live, start + std::chrono::duration_cast<Clock::duration>(interval * i));
        const Scene scene = live.scene();
        const std::string path =
            options.frames > 0 ? numberedPath(options.screen.file, i, count) : options.screen.file;
        complete &= save(options, path, picture, scene);
        sayLive(path, scene);
    }
    noteMissingTerrain(complete);
}

}  // namespace

std::string numberedPath(const std::string& path, int number, int count) {
    const std::string digits = std::to_string(number);
    const std::size_t width = std::to_string(count).size();
    const std::string name = path.substr(path.find_last_of('/') + 1);
    const std::size_t dot = name.find_last_of('.');
    const std::string extension = dot == std::string::npos ? "" : name.substr(dot);
    return path.substr(0, path.size() - extension.size()) + "-" +
           std::string(width - digits.size(), '0') + digits + extension;
}

void drawPictures(const Options& options, const Flight& flight, Orlek::Geodetic::HeightMap& terrain,
                  const Charts& charts, LiveFlight* live) {
    MapPicture picture(options.font, options.scale, options.style, terrain, flight.route(),
                       flight.path(), charts);
    if (live != nullptr) {
        saveLive(options, *live, picture);
    } else if (options.frames > 0) {
        saveFrames(options, flight, picture);
        std::printf("%d pictures: %s to %s\n", options.frames,
                    numberedPath(options.screen.file, 1, options.frames).c_str(),
                    numberedPath(options.screen.file, options.frames, options.frames).c_str());
    } else {
        noteMissingTerrain(save(options, options.screen.file, picture, flight.scene()));
        std::printf("%s\n", options.screen.file.c_str());
    }
}

}  // namespace MovingMap
