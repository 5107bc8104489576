// Images on pixels read back: where each texel goes, strips, tint, wrap, mipmaps, formats.
//
// The driver compresses the textures to blocks of 4 x 4 texels between two colours of 5, 6 and 5
// bits (llvmpipe: S3TC), so images of at least 4 x 4 texels a colour come back to within 8 of 255,
// one step of 5 bits.
#include <Orlek/OpenGL/Texture.h>

#include <cstring>
#include <vector>

#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;
using Bytes = std::vector<unsigned char>;
using Vertex = Orlek::Math::Vector3<float>;
using Vector4 = Orlek::Math::Vector4<float>;
using Positions = std::vector<Vertex>;
using Uvs = std::vector<Orlek::Math::Vector2<float>>;

constexpr int compression = 8;

const Pixel red{255, 0, 0, 255}, green{0, 255, 0, 255}, blue{0, 0, 255, 255},
    white{255, 255, 255, 255}, black{0, 0, 0, 255};

/// RGBA pixels of four tiles of 8 pixels: red, green over blue, white.
Bytes fourTiles() {
    Bytes bytes;
    for (int i = 0; i < 256; ++i) {
        const Pixel& colour = i < 128 ? (i % 16 < 8 ? red : green) : i % 16 < 8 ? blue : white;
        bytes.insert(bytes.end(), colour.begin(), colour.end());
    }
    return bytes;
}

Bytes block(std::uint32_t columns, std::uint32_t rows, const Bytes& pixels) {
    Bytes bytes(12, 0xEE);
    std::memcpy(bytes.data(), &columns, 4);
    std::memcpy(bytes.data() + 4, &rows, 4);
    bytes.insert(bytes.end(), pixels.begin(), pixels.end());
    return bytes;
}

/// The strip of a rectangle, its lower left corner at x, y.
Positions rectangle(float x, float y, float columns, float rows) {
    return {{x, y, 0}, {x, y + rows, 0}, {x + columns, y, 0}, {x + columns, y + rows, 0}};
}

const Bytes tiles = fourTiles();
const Uvs whole{{0, 1}, {0, 0}, {1, 1}, {1, 0}};

class TextureTest : public GlTest {
protected:
    static void expect(int x, int y, const Pixel& colour) {
        const Pixel seen = pixel(x, y);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(seen[i], colour[i], compression) << "pixel " << x << "," << y << "/" << i;
        }
    }

    void load() { texture.load(tiles.data(), 16, 16, GL_RGBA); }

    /// Draws what is loaded on one rectangle.
    void drawOn(const Positions& positions, const Uvs& uvs = whole) {
        texture.clearVertex();
        texture.addTexture(positions, uvs);
        pixelsOf(texture);
    }

    Texture texture;
};

TEST_F(TextureTest, ShowsTheImageUprightAroundTheOrigin) {
    EXPECT_EQ(pixelsOf(texture), 0) << "nothing without an image";
    MatrixTranslate(50, 40, 0);
    for (int i = 0; i < 2; ++i) {
        load();
        EXPECT_EQ(pixelsOf(texture), 16 * 16);
        EXPECT_EQ(newNames(), 5) << "a texture, a vertex array, three buffers";
    }
    EXPECT_EQ(texture.width(), 16U);
    EXPECT_EQ(texture.height(), 16U);
    expect(43, 46, red);
    expect(56, 46, green);
    expect(43, 33, blue);
    expect(56, 33, white);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    texture.setColor({0.2F, 0.4F, 1, 0.5F});
    glActiveTexture(GL_TEXTURE1);  // the application's
    pixelsOf(texture);
    expect(56, 33, {25, 51, 127, 255});
    texture.addVertex(Vertex(28, -8, 0), {1, 1});  // continues the quad of the image
    texture.addVertex(Vertex(28, 8, 0), {1, 0});
    EXPECT_EQ(pixelsOf(texture), 16 * 36);
}

TEST_F(TextureTest, DrawsStripsThatAreNotJoined) {
    texture.load(block(16, 16, tiles).data(), GL_RGBA);
    texture.addTexture(rectangle(40, 40, 10, 10), whole);
    EXPECT_GT(pixelsOf(texture), 100 + 64 + 100) << "the quad of load and what follows are one";
    texture.clearVertex();
    EXPECT_EQ(pixelsOf(texture), 0);
    texture.addTexture(rectangle(10, 10, 20, 20), {{0, 0.5F}, {0, 0}, {0.5F, 0.5F}, {0.5F, 0}});
    std::vector<Vector4> fourth;
    for (const Vertex& p : rectangle(100, 50, 20, 20)) {
        fourth.emplace_back(p.x, p.y, p.z, 9.0F);
    }
    texture.addTexture(fourth, whole);
    EXPECT_EQ(pixelsOf(texture), 2 * 400);
    expect(20, 20, red);
    expect(104, 66, red);
    expect(116, 54, white);
    // A third strip, vertex by vertex.
    const Positions third = rectangle(150, 10, 10, 10);
    for (std::size_t i = 0; i < 3; ++i) {
        texture.addVertex(third[i], whole[i]);
    }
    texture.addVertex(Vector4(160, 20, 0, 5), whole[3]);
    EXPECT_EQ(pixelsOf(texture), 2 * 400 + 100);
    expect(152, 17, red);
    expect(157, 12, white);
}

TEST_F(TextureTest, ReadsNothingBeyondShortListsOfCoordinates) {
    load();
    drawOn(rectangle(10, 10, 20, 20), {whole[0]});
    EXPECT_EQ(drawnPixels(), 400);
    expect(28, 28, red);
    texture.addTexture(Positions{}, {whole[1], whole[2], whole[3]});
    pixelsOf(texture);
    expect(28, 12, white);
    drawOn({}, {});
    EXPECT_EQ(drawnPixels(), 0);
}

TEST_F(TextureTest, WrapsAsSetBeforeLoad) {
    // The columns right of the image, 8 pixels apart: its second half, then its first; and the same
    // below it.
    const struct {
        unsigned mode;
        Pixel right, farRight, below, farBelow;
    } rows[] = {{GL_CLAMP_TO_EDGE, green, green, blue, blue},
                {GL_REPEAT, red, green, red, blue},
                {GL_MIRRORED_REPEAT, green, red, blue, red}};
    for (const auto& row : rows) {
        texture.setWrapMode(row.mode);
        load();
        drawOn(rectangle(0, 0, 48, 48), {{0, 3}, {0, 0}, {3, 3}, {3, 0}});
        expect(4, 44, red);
        expect(20, 44, row.right);
        expect(28, 44, row.farRight);
        expect(4, 28, row.below);
        expect(4, 20, row.farBelow);
    }
}

TEST_F(TextureTest, MipmapsAverageWhatIsDrawnSmall) {
    // Stripes of 4 texels, black and white; 64 of them on 8 pixels, whose centres are black.
    Bytes stripes;
    for (int i = 0; i < 256 * 256; ++i) {
        stripes.insert(stripes.end(), 3, i % 8 / 2 % 3 == 0 ? 0 : 255);
    }
    for (const bool mipmaps : {false, true}) {
        texture.setUseMipMaps(mipmaps);
        silently([&] { texture.load(stripes.data(), 256, 256, GL_RGB); });
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        drawOn(rectangle(10, 10, 8, 8));
        for (int x = 10; x < 18; ++x) {
            EXPECT_EQ(std::abs(pixel(x, 14)[0] - 128) <= compression, mipmaps);
        }
    }
}

TEST_F(TextureTest, TakesFormatsAndOddWidths) {
    const struct {
        unsigned format;
        Bytes texel;
        Pixel shown;
    } rows[] = {{GL_LUMINANCE, {200}, {200, 200, 200, 255}},
                {GL_BGR, {255, 0, 0}, blue},
                {GL_RGBA, {255, 255, 255, 0}, black}};
    for (const auto& row : rows) {
        // 7 columns of one colour and a last row of black: a wrong row length shears it.
        Bytes pixels;
        for (int i = 0; i < 7 * 8; ++i) {
            pixels.insert(pixels.end(), row.texel.begin(), row.texel.end());
        }
        pixels.resize(pixels.size() + 4 * 7 * row.texel.size());
        texture.load(pixels.data(), 7, 12, row.format);
        drawOn(rectangle(0, 0, 7, 12));
        for (const int x : {0, 6}) {
            expect(x, 11, row.shown);
            expect(x, 5, row.shown);
            expect(x, 2, black);
        }
    }
}

TEST_F(TextureTest, MakesTexturesForOthers) {
    unsigned name = 0;
    provokingErrors([&] {
        glEnable(0x1234);  // the application's, which is discarded
        silently([&] { name = texture.createTexture(block(16, 16, tiles).data()); });
    });
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    ASSERT_NE(name, 0U);
    EXPECT_EQ(static_cast<unsigned>(integer(GL_TEXTURE_BINDING_2D)), name);
    Bytes stored(tiles.size());
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, stored.data());
    EXPECT_EQ(stored, tiles) << "not compressed";
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &wrap);
    EXPECT_EQ(wrap, GL_REPEAT);
    EXPECT_EQ(pixelsOf(texture), 0) << "it is not the object's";
    deleteParked();
    EXPECT_TRUE(glIsTexture(name));
    glDeleteTextures(1, &name);
}

TEST_F(TextureTest, RefusesImagesThatNoTextureCanHold) {
    const std::string line = "Error <Texture> <Nix> 1281\n";
    load();
    texture.load(nullptr, 5, 5, GL_RGBA);
    texture.load(nullptr, GL_RGBA);
    EXPECT_EQ(texture.createTexture(nullptr), 0U);
    const Bytes lying = block(0xFFFFFFFF, 0x40000001, Bytes(4));
    EXPECT_EQ(captureStdout([&] { texture.load(lying.data(), GL_RGBA); }), line);
    EXPECT_EQ(captureStdout([&] { EXPECT_EQ(texture.createTexture(lying.data()), 0U); }), line);
    provokingErrors([&] {
        const Bytes small(4);
        const std::string lines =
            captureStdout([&] { texture.load(small.data(), 1, 1, GL_TEXTURE_2D); });
        EXPECT_NE(lines.find("Error <Texture> <Nix> 1280\n"), std::string::npos) << lines;
    });
    EXPECT_EQ(texture.width(), 16U);
    MatrixTranslate(50, 40, 0);
    EXPECT_EQ(pixelsOf(texture), 256) << "the earlier image stays";
}

}  // namespace
