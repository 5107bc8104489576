// The shaded terrain on pixels read back, against the shading formula evaluated here in double.
#include <Orlek/OpenGL/TextureTerrain.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

#include "support/GlTest.h"

namespace {

using Orlek::OpenGL::TextureTerrain;
using OrlekTest::captureStdout;
using OrlekTest::liveNames;
using OrlekTest::Pixel;
using Vec3 = std::array<double, 3>;

constexpr unsigned rgba = 0x1908;
constexpr unsigned rgb = 0x1907;

// Unit 0 last: it stays active.
constexpr std::array<GLenum, 3> usedUnits{GL_TEXTURE2, GL_TEXTURE1, GL_TEXTURE0};

Vec3 normalised(Vec3 v) {
    const double length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    return {v[0] / length, v[1] / length, v[2] / length};
}

double dot(const Vec3& a, const Vec3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The inputs of one pixel; the initial values are those of a new object.
struct Shading {
    std::array<double, 4> map{0.8, 0.4, 0.2, 1.0};
    Vec3 normal{0.0, 0.0, 1.0};
    int heightStep = 1;  // texel of the colour map
    std::array<double, 4> color{1, 1, 1, 1};
    Vec3 light{0, 0, 0};
    bool shading = false;
    double factor = 0.5;
    double contrast = 1.0;
    double brightness = 1.0;
    double osm = 0.0;
};

const std::array<Vec3, 4> heightColors{{{0, 0, 1}, {0.2, 0.6, 0.1}, {0.6, 0.4, 0.2}, {1, 1, 1}}};

Pixel expected(const Shading& s) {
    const Vec3 towardsLight = normalised({-s.light[0], -s.light[1], -s.light[2]});
    const double a = s.shading ? std::max(dot(towardsLight, normalised(s.normal)), 0.0) : 1.0;
    const double b = (1 - s.factor) + a * s.factor;
    const Vec3& height = heightColors[static_cast<std::size_t>(s.heightStep)];
    Pixel pixel{};
    for (std::size_t i = 0; i < 3; ++i) {
        double c = s.map[i] * s.color[i] * b * s.osm + height[i] * b * (1 - s.osm);
        c = (s.contrast * (c - 0.5) + 0.5) * s.brightness;
        pixel[i] = static_cast<int>(std::lround(std::clamp(c, 0.0, 1.0) * 255));
    }
    pixel[3] = 255;
    return pixel;
}

class TerrainTest : public OrlekTest::GlTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        std::vector<float> texels;
        for (const Vec3& color : heightColors) {
            texels.insert(texels.end(), color.begin(), color.end());
        }
        glGenTextures(1, &colorMap);
        glBindTexture(GL_TEXTURE_1D, colorMap);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB8, 4, 0, GL_RGB, GL_FLOAT, texels.data());
        glBindTexture(GL_TEXTURE_1D, 0);
    }
    void TearDown() override {
        for (const GLenum unit : usedUnits) {
            glActiveTexture(unit);
            glBindTexture(GL_TEXTURE_1D, 0);
            glBindTexture(GL_TEXTURE_2D, 0);
        }
        glDeleteTextures(1, &colorMap);
        GlTest::TearDown();
    }

    static void addSquare(TextureTerrain& terrain, float from, float to) {
        for (const float x : {from, to}) {
            for (const float y : {from, to}) {
                terrain.addVertex(Orlek::Math::Vector3<float>(x, y, 0),
                                  {(x - from) / (to - from), (y - from) / (to - from)});
            }
        }
    }

    static std::array<unsigned short, 4> encoded(const Shading& s) {
        std::array<unsigned short, 4> texel{};
        const Vec3 n = normalised(s.normal);
        for (std::size_t i = 0; i < 3; ++i) {
            texel[i] = static_cast<unsigned short>(std::lround((n[i] * 0.5 + 0.5) * 65535));
        }
        texel[3] = static_cast<unsigned short>(std::lround((s.heightStep + 0.5) / 4 * 65535));
        return texel;
    }

    /// The colour of a one-texel terrain with these inputs.
    Pixel rendered(const Shading& s) const {
        TextureTerrain terrain;
        std::array<unsigned char, 4> map{};
        std::ranges::transform(s.map, map.begin(), [](double v) {
            return static_cast<unsigned char>(std::lround(v * 255));
        });
        terrain.load(map.data(), 1, 1, rgba);
        terrain.loadNormals(encoded(s).data(), 1, 1, rgba);
        terrain.setColorMap(colorMap);
        terrain.setColor({static_cast<float>(s.color[0]), static_cast<float>(s.color[1]),
                          static_cast<float>(s.color[2]), static_cast<float>(s.color[3])});
        terrain.setLightDirection({static_cast<float>(s.light[0]), static_cast<float>(s.light[1]),
                                   static_cast<float>(s.light[2])});
        terrain.setShading(s.shading);
        terrain.setShadingFactor(s.factor);
        terrain.setShadingContrast(s.contrast);
        terrain.setShadingBrightness(s.brightness);
        terrain.setTerrainOsm(s.osm);
        addSquare(terrain, 20, 60);
        silently([&] { terrain.render(); });
        EXPECT_EQ(drawn(19, 30), false);
        const Pixel result = pixel(40, 40);
        terrain.clear();
        return result;
    }

    GLuint colorMap = 0;
};

TEST_F(TerrainTest, FollowsTheFormula) {
    const Vec3 slope{-0.3, 0.5, 0.8};
    const Vec3 light{1, -1, -1};
    const std::pair<const char*, Shading> cases[] = {
        {"height colours only", {}},
        {"map only", {.osm = 1.0}},
        {"tinted map", {.color = {0.5, 1.0, 0.25, 1.0}, .osm = 1.0}},
        {"half and half", {.heightStep = 2, .osm = 0.5}},
        {"lit slope", {.normal = slope, .light = light, .shading = true}},
        {"lit slope, all shading",
         {.normal = slope, .heightStep = 3, .light = light, .shading = true, .factor = 1.0}},
        {"slope turned away",
         {.normal = slope, .heightStep = 3, .light = {-1, 1, 0.2}, .shading = true, .factor = 0.7}},
        {"shading off: light and normal have no effect",
         {.normal = slope, .heightStep = 3, .light = light}},
        {"contrast", {.heightStep = 2, .contrast = 1.5}},
        {"brightness", {.heightStep = 2, .brightness = 0.6}},
        {"all at once",
         {.normal = slope,
          .heightStep = 1,
          .color = {0.9, 0.8, 0.7, 1.0},
          .light = light,
          .shading = true,
          .factor = 0.8,
          .contrast = 1.2,
          .brightness = 1.1,
          .osm = 0.3}}};
    for (const auto& [what, shading] : cases) {
        glClear(GL_COLOR_BUFFER_BIT);
        const Pixel actual = rendered(shading);
        const Pixel wanted = expected(shading);
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_NEAR(actual[i], wanted[i], 2) << what << ", component " << i;
        }
    }
}

TEST_F(TerrainTest, InterpolatesBetweenTexels) {
    TextureTerrain terrain;
    const std::array<unsigned char, 8> map{0, 0, 0, 255, 255, 255, 255, 255};
    terrain.load(map.data(), 2, 1, rgba);
    terrain.setTerrainOsm(1.0);
    addSquare(terrain, 10, 90);
    silently([&] { terrain.render(); });
    EXPECT_LE(pixel(11, 50)[0], 1);
    EXPECT_GE(pixel(88, 50)[0], 254);
    for (const int x : {40, 50, 60}) {
        const double u = (x + 0.5 - 10) / 80;
        EXPECT_NEAR(pixel(x, 50)[0], 255 * (u * 2 - 0.5), 3);
    }
    terrain.clear();
}

TEST_F(TerrainTest, SendsItsUniforms) {
    auto& handler = Orlek::OpenGL::GlHandler::instance();
    handler.activateShader(4);
    const unsigned program = handler.activeShaderHandle();
    handler.deactivateShader();
    const auto values = [&](const char* name) {
        std::array<float, 4> v{};
        glGetUniformfv(program, glGetUniformLocation(program, name), v.data());
        return v;
    };
    TextureTerrain terrain;
    terrain.setShading(true);
    terrain.setLightDirection({1, 2, 3});
    silently([&] { terrain.render(); });  // no vertices, no textures
    EXPECT_EQ(values("shadingOn")[0], 0.0F) << "there are no normals";
    EXPECT_EQ(values("lightDirection")[2], 3.0F);
    EXPECT_EQ(values("Texture1")[0], 1.0F);
    EXPECT_EQ(values("Texture2")[0], 2.0F);

    const std::array<unsigned short, 4> texel{};
    terrain.loadNormals(texel.data(), 1, 1, rgba);
    silently([&] { terrain.render(); });
    EXPECT_EQ(values("shadingOn")[0], 1.0F);

    terrain.setShading(false);
    terrain.setLightDirection({7, 8, 9});
    silently([&] { terrain.render(); });
    EXPECT_EQ(values("shadingOn")[0], 0.0F);
    EXPECT_EQ(values("lightDirection")[2], 3.0F) << "not set without shading";
    terrain.clear();
}

TEST_F(TerrainTest, LeavesTheStateItPromises) {
    TextureTerrain terrain;
    const std::array<unsigned char, 4> map{};
    terrain.load(map.data(), 1, 1, rgba);
    terrain.setColorMap(colorMap);
    addSquare(terrain, 0, 10);
    glActiveTexture(GL_TEXTURE5);
    silently([&] { terrain.render(); });
    EXPECT_EQ(integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
    EXPECT_EQ(integer(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
    for (const GLenum unit : usedUnits) {
        glActiveTexture(unit);
        EXPECT_EQ(glIsEnabled(GL_TEXTURE_1D), GL_FALSE);
        EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);
    }
    terrain.clear();
}

TEST_F(TerrainTest, ReportsTheSizeMadeLast) {
    TextureTerrain terrain;
    EXPECT_EQ(terrain.width(), 0U);
    const std::vector<unsigned char> map(256 * 128 * 3);
    const std::vector<unsigned short> normals(64 * 32 * 4);
    terrain.load(map.data(), 256, 128, rgb);
    EXPECT_EQ(terrain.width(), 256U);
    EXPECT_EQ(terrain.height(), 128U);
    terrain.loadNormals(normals.data(), 64, 32, rgba);
    EXPECT_EQ(terrain.width(), 64U);
    EXPECT_EQ(terrain.height(), 32U);
    terrain.load(static_cast<const unsigned char*>(nullptr), 5, 5, rgba);
    terrain.load(static_cast<const void*>(nullptr), rgba);
    terrain.loadNormals(nullptr, 5, 5, rgba);
    EXPECT_EQ(terrain.width(), 64U);

    std::vector<unsigned char> block(12 + 3 * 2 * 4, 0);
    const std::array<std::uint32_t, 3> head{3, 2, 0xFFFFFFFF};
    std::memcpy(block.data(), head.data(), sizeof head);
    std::fill(block.begin() + 12, block.end(), static_cast<unsigned char>(200));
    terrain.load(static_cast<const void*>(block.data()), rgba);
    EXPECT_EQ(terrain.width(), 3U);
    EXPECT_EQ(terrain.height(), 2U);
    terrain.setTerrainOsm(1.0);
    addSquare(terrain, 10, 50);
    silently([&] { terrain.render(); });
    EXPECT_NEAR(pixel(30, 30)[1], 157, 1);  // 200 blended with its own alpha over black

    // A block that promises more than any texture holds changes nothing.
    const std::array<std::uint32_t, 4> lie{0xFFFFFFFF, 0xFFFFFFFF, 0, 0};
    EXPECT_EQ(captureStdout([&] { terrain.load(static_cast<const void*>(lie.data()), rgba); }),
              "Error <TextureTerrain> <Nix> 1281\n");
    EXPECT_EQ(terrain.width(), 3U);
    terrain.clear();
}

TEST_F(TerrainTest, OwnsItsObjectsTogetherWithItsCopies) {
    const int before = liveNames();
    const std::array<unsigned char, 4> map{255, 0, 0, 255};
    const std::array<unsigned short, 4> normals{};
    {
        TextureTerrain terrain;
        terrain.load(map.data(), 1, 1, rgba);
        terrain.load(map.data(), 1, 1, rgba);  // releases the first one
        terrain.loadNormals(normals.data(), 1, 1, rgba);
        terrain.setTerrainOsm(1.0);
        addSquare(terrain, 10, 50);
        silently([&] { terrain.render(); });
        EXPECT_EQ(liveNames() - before, 2 + 3);

        std::optional<TextureTerrain> copy(terrain);
        silently([&] { copy->render(); });
        EXPECT_EQ(liveNames() - before, 5);
        terrain.clear();
        EXPECT_EQ(liveNames() - before, 5) << "the copy still draws with them";
        silently([&] { copy->render(); });
        EXPECT_EQ(pixel(30, 30), (Pixel{255, 0, 0, 255}));
        copy->clear();
        EXPECT_EQ(liveNames(), before);

        // After clear() the geometry is made anew; without a texture the map is black.
        silently([&] { terrain.render(); });
        EXPECT_EQ(pixel(30, 30), (Pixel{0, 0, 0, 255}));
        terrain.load(map.data(), 1, 1, rgba);
        silently([&] { terrain.render(); });
        EXPECT_EQ(pixel(30, 30), (Pixel{255, 0, 0, 255}));
    }
    EXPECT_EQ(liveNames() - before, 4) << "the destructor makes no GL call";
    TextureTerrain next;
    silently([&] { next.render(); });  // the next upload deletes what was left
    next.clear();
    EXPECT_EQ(liveNames(), before);
}

}  // namespace
