#include <GL/gl.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <numbers>

#include "Commands.h"
#include "HeadlessContext.h"
#include "Number.h"
#include "Ortho.h"
#include "Png.h"
#include "ProgressBar.h"
#include "ReliefLayers.h"
#include "TileSampler.h"
#include "Voids.h"
#include "platform/AtomicFile.h"

namespace OrlekTiles {

namespace {

using OrlekSupport::Image;

struct Size {
    int width;
    int height;
};

/// The height gives the middle parallel its true scale.
Size sizeOf(const Arguments& arguments, const Area& area) {
    constexpr int smallest = 16;
    constexpr int largest = 8192;
    constexpr double mostPixels = 32.0 * 1024 * 1024;
    const std::string text = arguments.value("--width").value_or("1600");
    const std::optional<int> width = OrlekSupport::parseNumber(text, smallest, largest);
    if (!width) {
        throw UsageError("--width: '" + text + "' is no number of pixels from 16 to 8192");
    }
    const double middle = (area.south + area.north) / 2.0 * std::numbers::pi / 180.0;
    const double height = *width * (area.north - area.south) /
                          ((area.east - area.west) * std::max(std::cos(middle), 1e-6));
    if (!(height <= largest && height * *width <= mostPixels)) {
        throw std::runtime_error(
            "the picture would be too large: at most 8192 pixels a side and 32 million in all; "
            "choose a smaller --width or another area");
    }
    return {*width, std::max(1, static_cast<int>(std::lround(height)))};
}

/// @return how many tiles could not be loaded
int sampleTiles(const Inventory& inventory, const Area& area, Size size,
                MovingMap::ReliefImage& image) {
    TileSampler sampler(inventory, area, size.width, size.height, image);
    OrlekSupport::ProgressBar progress(inventory.files.size());
    int bad = 0;
    for (std::size_t i = 0; i < inventory.files.size(); ++i) {
        const TileFile& file = inventory.files[i];
        if (!file.notTaken && shiftOnto(areaOf(file), area)) {
            if (const std::optional<Reason> reason = sampler.add(file)) {
                progress.hide();
                Console::note(file.path + ": " + reason->word + ": " + reason->text);
                ++bad;
            }
        }
        progress.show(i + 1);
    }
    MovingMap::hatchVoids(image, sampler.metresPerTexel(), 1);
    image.complete = image.complete && sampler.covered();
    return bad;
}

/// Throws std::runtime_error where OpenGL does not draw.
Image draw(const MovingMap::ReliefImage& relief) {
    const OrlekSupport::HeadlessContext context(relief.width, relief.height);
    MovingMap::ReliefLayers layers;
    MovingMap::setPixelMatrix(Orlek::Math::Vector2<double>(relief.width, relief.height));
    glClearColor(1.0F, 0.0F, 1.0F, 1.0F);  // no colour of any terrain
    glClear(GL_COLOR_BUFFER_BIT);
    layers.show(relief, 1, 0.0);
    layers.draw();
    Image image = OrlekSupport::readFramebuffer(relief.width, relief.height);
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(relief.width - 1, relief.height - 1)}) {
        if (image.at(x, y) == std::array{255, 0, 255, 255}) {
            throw std::runtime_error("OpenGL drew nothing on this machine (--verbose says more)");
        }
    }
    return image;
}

[[noreturn]] void failToWrite(const std::string& path) {
    throw std::runtime_error("cannot write " + path + ": " + std::strerror(errno));
}

}  // namespace

Outcome render(const Arguments& arguments, Console& console) {
    const std::string out = arguments.value("--out").value_or("relief.png");
    const Inventory inventory = takeInventory(directoryOf(arguments));
    const bool incomplete = noteUnreadable(inventory);
    const Area area = chosenArea(arguments, inventory);
    const Size size = sizeOf(arguments, area);
    Orlek::Detail::AtomicFile file;
    if (!file.open(out)) {  // asked before the work that may take long
        failToWrite(out);
    }
    MovingMap::ReliefImage relief;
    const int bad = sampleTiles(inventory, area, size, relief);
    if (!file.write(OrlekSupport::encodePng(draw(relief))) || !file.commit()) {
        failToWrite(out);
    }
    if (!relief.complete) {
        Console::note("where the picture is hatched there is no elevation data");
    }
    console.printFields({out, std::to_string(size.width) + "x" + std::to_string(size.height)});
    return bad > 0 || incomplete ? notDone : allWell;
}

}  // namespace OrlekTiles
