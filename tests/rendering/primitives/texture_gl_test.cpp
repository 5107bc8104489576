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
using Orlek::Math::Vector2;
using Orlek::Math::Vector3;
using Orlek::Math::Vector4;
using Positions = std::vector<Vector3<float>>;
using Uvs = std::vector<Vector2<float>>;

constexpr int compression = 8;

const Pixel red{255, 0, 0, 255}, green{0, 255, 0, 255}, blue{0, 0, 255, 255},
    white{255, 255, 255, 255}, black{0, 0, 0, 255};

class TextureTest : public GlTest {
protected:
    void expect(int x, int y, const Pixel& colour) const {
        const Pixel seen = pixel(x, y);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(seen[i], colour[i], compression) << "pixel " << x << "," << y << "/" << i;
        }
    }

    /// RGBA pixels of four tiles: red, green over blue, white.
    static Bytes tiles(int side) {
        Bytes bytes;
        for (int y = 0; y < 2 * side; ++y) {
            for (int x = 0; x < 2 * side; ++x) {
                const Pixel& colour = y < side ? (x < side ? red : green) : x < side ? blue : white;
                bytes.insert(bytes.end(), colour.begin(), colour.end());
            }
        }
        return bytes;
    }

    static Bytes block(std::uint32_t columns, std::uint32_t rows, const Bytes& pixels) {
        Bytes bytes(12, 0xEE);
        std::memcpy(bytes.data(), &columns, 4);
        std::memcpy(bytes.data() + 4, &rows, 4);
        bytes.insert(bytes.end(), pixels.begin(), pixels.end());
        return bytes;
    }

    void TearDown() override {
        texture.clear();
        GlTest::TearDown();
    }

    void draw(Texture& shown) const {
        wipe();
        silently([&] { shown.render(); });
    }

    /// The strip of a square of that side, its lower left corner at x, y.
    static Positions squareAt(float x, float y, float side) {
        return {{x, y, 0}, {x, y + side, 0}, {x + side, y, 0}, {x + side, y + side, 0}};
    }
    static constexpr float far = 3.0F;
    inline static const Uvs whole{{0, 1}, {0, 0}, {1, 1}, {1, 0}};
    inline static const Uvs wide{{0, far}, {0, 0}, {far, far}, {far, 0}};

    Texture texture;
};

TEST_F(TextureTest, ShowsTheImageUprightAroundTheOrigin) {
    draw(texture);
    EXPECT_EQ(drawnPixels(), 0) << "nothing without an image";
    MatrixTranslate(50, 40, 0);
    for (int i = 0; i < 2; ++i) {
        texture.load(tiles(8).data(), 16, 16, GL_RGBA);
        draw(texture);
        EXPECT_EQ(newNames(), 5) << "a texture, a vertex array, three buffers";
    }
    EXPECT_EQ(texture.width(), 16U);
    EXPECT_EQ(texture.height(), 16U);
    EXPECT_EQ(drawnPixels(), 16 * 16);
    expect(43, 46, red);
    expect(56, 46, green);
    expect(43, 33, blue);
    expect(56, 33, white);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_PRIMITIVE_RESTART), GL_FALSE);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);

    texture.setColor({0.2F, 0.4F, 1, 0.5F});
    draw(texture);
    expect(56, 33, {25, 51, 127, 255});
}

TEST_F(TextureTest, DrawsStripsThatAreNotJoined) {
    texture.load(block(16, 16, tiles(8)).data(), GL_RGBA);
    texture.addTexture(squareAt(40, 40, 10), whole);
    draw(texture);
    EXPECT_GT(drawnPixels(), 100 + 64 + 100) << "the quad of load and what follows are one strip";

    texture.clearVertex();
    draw(texture);
    EXPECT_EQ(drawnPixels(), 0);
    texture.addTexture(squareAt(10, 10, 20), {{0, 0.5F}, {0, 0}, {0.5F, 0.5F}, {0.5F, 0}});
    std::vector<Vector4<float>> fourth;
    for (const Vector3<float>& p : squareAt(100, 50, 20)) {
        fourth.emplace_back(p.x, p.y, p.z, 9.0F);
    }
    texture.addTexture(fourth, whole);
    draw(texture);
    EXPECT_EQ(drawnPixels(), 2 * 400);
    expect(20, 20, red);
    expect(104, 66, red);
    expect(116, 54, white);

    // A third strip, vertex by vertex.
    const Positions third = squareAt(150, 10, 10);
    for (std::size_t i = 0; i < 3; ++i) {
        texture.addVertex(third[i], whole[i]);
    }
    texture.addVertex(Vector4<float>(160, 20, 0, 5), whole[3]);
    draw(texture);
    EXPECT_EQ(drawnPixels(), 2 * 400 + 100);
    expect(152, 17, red);
    expect(157, 12, white);
}

TEST_F(TextureTest, VerticesAfterLoadContinueItsQuad) {
    texture.load(tiles(8).data(), 16, 16, GL_RGBA);
    texture.addVertex(Vector3<float>(28, -8, 0), {1, 1});
    texture.addVertex(Vector3<float>(28, 8, 0), {1, 0});
    MatrixTranslate(50, 40, 0);
    draw(texture);
    EXPECT_EQ(drawnPixels(), 16 * 36);
}

TEST_F(TextureTest, ReadsNothingBeyondShortListsOfCoordinates) {
    texture.load(tiles(8).data(), 16, 16, GL_RGBA);
    texture.clearVertex();
    texture.addTexture(squareAt(10, 10, 20), {whole[0]});
    draw(texture);
    EXPECT_EQ(drawnPixels(), 400);
    expect(28, 28, red);
    texture.addTexture(Positions{}, {whole[1], whole[2], whole[3]});
    draw(texture);
    expect(28, 12, white);
    texture.clearVertex();
    texture.addTexture(Positions{}, {});
    draw(texture);
    EXPECT_EQ(drawnPixels(), 0);
}

TEST_F(TextureTest, WrapsAsSetBeforeLoad) {
    // The columns right of the image, 8 pixels apart: its second half, then its first.
    const struct {
        unsigned mode;
        Pixel second, third;
    } rows[] = {{GL_CLAMP_TO_EDGE, green, green},
                {GL_REPEAT, red, green},
                {GL_MIRRORED_REPEAT, green, red}};
    for (const auto& row : rows) {
        texture.setWrapMode(row.mode);
        texture.load(tiles(8).data(), 16, 16, GL_RGBA);
        texture.clearVertex();
        texture.addTexture(squareAt(0, 0, 48), wide);
        draw(texture);
        expect(4, 44, red);
        expect(20, 44, row.second);
        expect(28, 44, row.third);
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
        GLint smallest = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 8, GL_TEXTURE_WIDTH, &smallest);
        EXPECT_EQ(smallest, mipmaps ? 1 : 0);
        texture.clearVertex();
        texture.addTexture(squareAt(10, 10, 8), whole);
        draw(texture);
        int grey = 0;
        for (int x = 10; x < 18; ++x) {
            grey += std::abs(pixel(x, 14)[0] - 128) <= compression ? 1 : 0;
        }
        EXPECT_EQ(grey, mipmaps ? 8 : 0);
    }
}

TEST_F(TextureTest, TakesFormatsAndOddWidths) {
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 77);
    const struct {
        unsigned format;
        Bytes texel;
        Pixel shown;
    } rows[] = {{GL_RED, {200}, {200, 0, 0, 255}},  {GL_LUMINANCE, {200}, {200, 200, 200, 255}},
                {GL_RGB, {255, 0, 0}, red},         {GL_BGR, {255, 0, 0}, blue},
                {GL_BGRA, {0, 255, 0, 255}, green}, {GL_RGBA, {255, 255, 255, 0}, black}};
    for (const auto& row : rows) {
        // 7 columns of one colour and a last row of black: a wrong row length shears it.
        Bytes pixels;
        for (int i = 0; i < 7 * 8; ++i) {
            pixels.insert(pixels.end(), row.texel.begin(), row.texel.end());
        }
        pixels.resize(pixels.size() + 4 * 7 * row.texel.size());
        texture.load(pixels.data(), 7, 12, row.format);
        texture.clearVertex();
        texture.addTexture({{0, 0, 0}, {0, 12, 0}, {7, 0, 0}, {7, 12, 0}}, whole);
        draw(texture);
        for (const int x : {0, 6}) {
            expect(x, 11, row.shown);
            expect(x, 5, row.shown);
            expect(x, 2, black);
        }
    }
    EXPECT_EQ(integer(GL_UNPACK_ROW_LENGTH), 77);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
}

TEST_F(TextureTest, MakesTexturesForOthers) {
    glEnable(0x1234);  // an error of the application's, which is discarded
    EXPECT_EQ(texture.createTexture(nullptr), 0U);
    unsigned name = 0;
    captureStderr(
        [&] { silently([&] { name = texture.createTexture(block(16, 16, tiles(8)).data()); }); });
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    ASSERT_NE(name, 0U);
    EXPECT_EQ(static_cast<unsigned>(integer(GL_TEXTURE_BINDING_2D)), name);
    Bytes stored(16 * 16 * 4);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, stored.data());
    EXPECT_EQ(stored, tiles(8)) << "not compressed";
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &wrap);
    EXPECT_EQ(wrap, GL_REPEAT);
    draw(texture);
    EXPECT_EQ(drawnPixels(), 0) << "it is not the object's";
    glDeleteTextures(1, &name);
}

TEST_F(TextureTest, RefusesImagesThatNoTextureCanHold) {
    const std::string line = "Error <Texture> <Nix> 1281\n";
    texture.load(tiles(8).data(), 16, 16, GL_RGBA);
    texture.load(static_cast<const unsigned char*>(nullptr), 5, 5, GL_RGBA);
    texture.load(static_cast<const void*>(nullptr), GL_RGBA);
    const Bytes lying = block(0xFFFFFFFF, 0x40000001, Bytes(4));
    EXPECT_EQ(captureStdout([&] { texture.load(lying.data(), GL_RGBA); }), line);
    EXPECT_EQ(captureStdout([&] { EXPECT_EQ(texture.createTexture(lying.data()), 0U); }), line);
    EXPECT_EQ(texture.width(), 16U);
    MatrixTranslate(50, 40, 0);
    draw(texture);
    EXPECT_EQ(drawnPixels(), 256) << "the earlier image stays";
}

}  // namespace
