// Texture: an image from memory, whole or in pieces; tint, wrap modes, mipmaps.
#include <GL/gl.h>

#include <cmath>

#include "Images.h"
#include "Show.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

// Part of the image on part of the page. Texture coordinates run downwards from the first row.
void addPiece(Texture& texture, const Box& box, const Box& part) {
    std::vector<Orlek::Math::Vector3<float>> corners;
    for (const Point& corner : box.points({{0, 0}, {0, 1}, {1, 0}, {1, 1}})) {
        corners.emplace_back(corner.x, corner.y, 0.0F);
    }
    texture.addTexture(corners, part.points({{0, 1}, {0, 0}, {1, 1}, {1, 0}}));
}

Texture loaded(unsigned size, int square, unsigned wrap = GL_CLAMP_TO_EDGE, bool mipMaps = false) {
    Texture texture;
    texture.setWrapMode(wrap);
    texture.setUseMipMaps(mipMaps);
    texture.load(boardImage(static_cast<int>(size), square).data(), size, size, GL_RGBA);
    return texture;
}

void drawScaled(Texture& texture, Point at, double scale, const Colour& tint) {
    texture.setColor(tint);
    place(at, 0, scale, [&] { texture.render(); });
}

struct Picture {
    Sheet sheet{"Texture", "An image from memory, whole or in pieces.", 3, 2};
    Box whole = sheet.sample(0, 0, "load(pixels, 128, 128, GL_RGBA)", "a quad of its size");
    Box tinted = sheet.sample(1, 0, "setColor({r, g, b, alpha})", "times the image's colours");
    Box apart = sheet.sample(2, 0, "addTexture(positions, uvs)", "nine strips, one draw call");
    Box tiles = sheet.sample(0, 1, "setWrapMode(GL_REPEAT)", "coordinates 0 to 3");
    Box mirrors = sheet.sample(1, 1, "setWrapMode(GL_MIRRORED_REPEAT)", "coordinates 0 to 3");
    Box small = sheet.sample(2, 1, "setUseMipMaps(false), (true)", "drawn 2.5 times smaller");
    Texture image = loaded(128, 16), pieces = image, rough = loaded(256, 2);
    Texture repeated = loaded(128, 16, GL_REPEAT), mirrored = loaded(128, 16, GL_MIRRORED_REPEAT);
    Texture smooth = loaded(256, 2, GL_CLAMP_TO_EDGE, true);

    Picture() {
        repeated.clearVertex();
        addPiece(repeated, tiles.square(), {0, 0, 3, 3});
        mirrored.clearVertex();
        addPiece(mirrored, mirrors.square(), {0, 0, 3, 3});
    }

    void draw(double seconds) {
        sheet.draw();
        drawScaled(image, whole.centre(), 1, white);
        drawScaled(image, tinted.at(0.2, 0.5), 0.6, amber);
        drawScaled(image, tinted.at(0.5, 0.5), 0.6, magenta);
        drawScaled(image, tinted.at(0.8, 0.5), 0.6, glass(white));
        drawScaled(rough, small.at(0.25, 0.5), 0.4, white);
        drawScaled(smooth, small.at(0.75, 0.5), 0.4, white);
        const double gap = 0.08 + 0.06 * std::sin(2.0 * seconds);
        pieces.clearVertex();
        for (int i = 0; i < 9; ++i) {
            addPiece(pieces, apart.square().row(i / 3, 3).column(i % 3, 3).inside(gap),
                     Box{0, 0, 1, 1}.row(2 - i / 3, 3).column(i % 3, 3));
        }
        pieces.render();
        repeated.render();
        mirrored.render();
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "textures");
}
