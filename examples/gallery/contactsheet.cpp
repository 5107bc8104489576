// orlek-gallery-contactsheet OUT PICTURE...: all pictures small on one, three in a row.
#include <GL/gl.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include "HeadlessContext.h"
#include "Png.h"
#include "Sheet.h"

namespace {

using OrlekSupport::Image;

constexpr int columns = 3;
constexpr int reduction = 3;
constexpr int gap = 16;
constexpr int nameHeight = 30;
constexpr int tileWidth = Gallery::pageWidth / reduction;
constexpr int tileHeight = Gallery::pageHeight / reduction;

// Upper left corner of a tile, from the upper left of the sheet.
std::pair<int, int> corner(std::size_t number) {
    const int column = static_cast<int>(number) % columns;
    const int row = static_cast<int>(number) / columns;
    return {gap + column * (tileWidth + gap), gap + row * (tileHeight + nameHeight)};
}

// The mean of the pixels that one pixel of the tile covers.
std::uint8_t mean(const Image& image, int x, int y, std::size_t channel) {
    int sum = 0;
    for (int row = 0; row < reduction; ++row) {
        for (int column = 0; column < reduction; ++column) {
            sum += image.at(x * reduction + column, y * reduction + row)[channel];
        }
    }
    return static_cast<std::uint8_t>((sum + reduction * reduction / 2) / (reduction * reduction));
}

void paste(Image& sheet, const Image& picture, int left, int top) {
    for (int y = 0; y < tileHeight; ++y) {
        for (int x = 0; x < tileWidth; ++x) {
            const std::size_t first =
                4U * static_cast<std::size_t>((top + y) * sheet.width + left + x);
            for (std::size_t channel = 0; channel < 3; ++channel) {
                sheet.rgba[first + channel] = mean(picture, x, y, channel);
            }
        }
    }
}

Image readPage(const std::string& path) {
    Image image = OrlekSupport::readPng(path);
    if (image.width != Gallery::pageWidth || image.height != Gallery::pageHeight) {
        throw std::runtime_error(path + " is no page of the gallery");
    }
    return image;
}

// Ground and names, drawn with the library; the tiles go between them.
Image drawNames(int width, int height, const std::vector<std::string>& names) {
    using namespace Orlek::OpenGL;
    glViewport(0, 0, width, height);
    glClearColor(0.02F, 0.03F, 0.04F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    GlHandler::instance().setViewPort({static_cast<float>(width), static_cast<float>(height)});
    MatrixLoadIdent();
    MatrixTranslate(-1.0, -1.0, 0.0);
    MatrixScale(2.0 / width, 2.0 / height, 1.0);
    Gallery::Text font;
    Gallery::load(font, "DejaVuSans.ttf", 14, Gallery::white);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto [left, top] = corner(i);
        font.renderFont(left, height - top - tileHeight - 19.0, names[i],
                        Gallery::Text::BOTTOM_LEFT);
    }
    return OrlekSupport::readFramebuffer(width, height);
}

void draw(const std::string& out, const std::vector<std::string>& paths) {
    const int rows = (static_cast<int>(paths.size()) + columns - 1) / columns;
    const int width = gap + columns * (tileWidth + gap);
    const int height = gap + rows * (tileHeight + nameHeight);
    std::vector<std::string> names;
    names.reserve(paths.size());
    for (const std::string& path : paths) {
        names.push_back(std::filesystem::path(path).stem().string());
    }
    const OrlekSupport::HeadlessContext context(width, height);
    Image sheet = drawNames(width, height, names);
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const auto [left, top] = corner(i);
        paste(sheet, readPage(paths[i]), left, top);
    }
    OrlekSupport::writePng(out, sheet);
    std::printf("%s\n", out.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "Usage: %s OUT PICTURE...\n", argv[0]);
        return 1;
    }
    try {
        draw(argv[1], {argv + 2, argv + argc});
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-gallery-contactsheet: %s\n", error.what());
        return 1;
    }
}
