// The shaded terrain on pixels read back, against the shading formula evaluated here in double.
#include <Orlek/OpenGL/TextureTerrain.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "support/GlTest.h"

namespace {

using Orlek::OpenGL::TextureTerrain;
using OrlekTest::Pixel;
using Vec3 = std::array<double, 3>;

const std::array<float, 12> heightColors{0, 0, 1, 0.2F, 0.6F, 0.1F, 0.6F, 0.4F, 0.2F, 1, 1, 1};
const std::array<unsigned char, 4> mapTexel{204, 102, 51, 255};

double dot(const Vec3& a, const Vec3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The inputs of one pixel, at first those of a new object.
struct Shading {
    Vec3 normal{0, 0, 1};
    std::size_t heightStep = 1;  // texel of the colour map
    std::array<float, 3> color{1, 1, 1};
    std::array<float, 3> light{0, 0, 0};
    bool shading = false;
    double factor = 0.5;
    double contrast = 1.0;
    double brightness = 1.0;
    double osm = 0.0;
    bool normals = true;  // loaded
};

Pixel expected(const Shading& s) {
    const Vec3 towardsLight{-s.light[0], -s.light[1], -s.light[2]};
    const double lengths = std::sqrt(dot(towardsLight, towardsLight) * dot(s.normal, s.normal));
    const double lit = std::max(dot(towardsLight, s.normal) / lengths, 0.0);
    const double b = (1 - s.factor) + (s.shading && s.normals ? lit : 1.0) * s.factor;
    Pixel pixel{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double height = heightColors[3 * s.heightStep + i];
        double c = mapTexel[i] / 255.0 * s.color[i] * b * s.osm + height * b * (1 - s.osm);
        c = (s.contrast * (c - 0.5) + 0.5) * s.brightness;
        pixel[i] = static_cast<int>(std::lround(std::clamp(c, 0.0, 1.0) * 255));
    }
    return pixel;
}

class TerrainTest : public OrlekTest::GlTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        for (const float u : {0.0F, 1.0F}) {
            terrain.addVertex(Orlek::Math::Vector3<float>(10 + u * 80, 10, 0), {u, 0});
            terrain.addVertex(Orlek::Math::Vector4<float>(10 + u * 80, 90, 0, 7), {u, 1});
        }
        glGenTextures(1, &colorMap);
        glBindTexture(GL_TEXTURE_1D, colorMap);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB8, 4, 0, GL_RGB, GL_FLOAT, heightColors.data());
    }
    void TearDown() override {
        terrain.clear();
        glDeleteTextures(1, &colorMap);
        GlTest::TearDown();
    }

    /// The colour of a one-texel terrain with these inputs.
    Pixel rendered(const Shading& s) const {
        TextureTerrain shaded(terrain);  // what it leaves, the next one's upload deletes
        shaded.load(mapTexel.data(), 1, 1, GL_RGBA);
        if (s.normals) {
            const double length = std::sqrt(dot(s.normal, s.normal));
            std::array<unsigned short, 4> texel{};
            std::ranges::transform(s.normal, texel.begin(), [&](double n) {
                return static_cast<unsigned short>((n / length * 0.5 + 0.5) * 65535);
            });
            texel[3] = static_cast<unsigned short>((2 * s.heightStep + 1) * 65535 / 8);
            shaded.loadNormals(texel.data(), 1, 1, GL_RGBA);
        }
        shaded.setColorMap(colorMap);
        shaded.setColor({s.color[0], s.color[1], s.color[2], 1.0F});
        shaded.setLightDirection({s.light[0], s.light[1], s.light[2]});
        shaded.setShading(s.shading);
        shaded.setShadingFactor(s.factor);
        shaded.setShadingContrast(s.contrast);
        shaded.setShadingBrightness(s.brightness);
        shaded.setTerrainOsm(s.osm);
        return draw(shaded);
    }

    /// The pixel that `drawable` gives a wiped picture.
    static Pixel draw(TextureTerrain& drawable) {
        wipe();
        silently([&] { drawable.render(); });
        EXPECT_FALSE(drawn(9, 30));
        return pixel(40, 40);
    }

    TextureTerrain terrain;  // a square from pixel 10 to pixel 90
    GLuint colorMap = 0;
};

TEST_F(TerrainTest, FollowsTheFormula) {
    const Vec3 slope{-0.3, 0.5, 0.8};
    const std::array<float, 3> light{1, -1, -1};
    const std::pair<const char*, Shading> cases[] = {
        {"height colours only", {}},
        {"tinted map", {.color = {0.5F, 1.0F, 0.25F}, .osm = 1.0}},
        {"lit slope", {.normal = slope, .light = light, .shading = true, .factor = 1.0}},
        {"turned away", {.normal = slope, .light = {-1, 1, 0.2F}, .shading = true, .factor = 0.7}},
        {"shading off: no effect of the light", {.normal = slope, .heightStep = 3, .light = light}},
        {"shading without normals",
         {.light = light, .shading = true, .osm = 1.0, .normals = false}},
        {"all at once", {slope, 2, {0.9F, 0.8F, 0.7F}, light, true, 0.8, 1.2, 1.1, 0.3, true}}};
    for (const auto& [what, shading] : cases) {
        const Pixel actual = rendered(shading);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(actual[i], expected(shading)[i], 2) << what << ", component " << i;
        }
    }
}

TEST_F(TerrainTest, InterpolatesBetweenTexelsAndLeavesTheStateItPromises) {
    const std::array<unsigned char, 8> map{0, 0, 0, 255, 255, 255, 255, 255};
    terrain.load(map.data(), 2, 1, GL_RGBA);
    terrain.setTerrainOsm(1.0);
    terrain.setColorMap(colorMap);
    glActiveTexture(GL_TEXTURE5);
    draw(terrain);
    for (const int x : {11, 40, 50, 60, 88}) {
        EXPECT_NEAR(pixel(x, 50)[0], 255 * std::clamp((x - 9.5) / 40 - 0.5, 0.0, 1.0), 3) << x;
    }
    EXPECT_EQ(integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(integer(GL_BLEND), GL_TRUE);
    EXPECT_EQ(integer(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
    for (const GLenum unit : {2U, 1U, 0U}) {
        glActiveTexture(GL_TEXTURE0 + unit);
        EXPECT_EQ(integer(GL_TEXTURE_1D) + integer(GL_TEXTURE_2D), 0);
    }
}

TEST_F(TerrainTest, ReportsTheSizeMadeLast) {
    const auto size = [&] { return std::pair(terrain.width(), terrain.height()); };
    terrain.load(std::vector<unsigned char>(256 * 128 * 3).data(), 256, 128, GL_RGB);
    EXPECT_EQ(size(), std::pair(256U, 128U));
    terrain.loadNormals(std::vector<unsigned short>(64 * 32 * 4).data(), 64, 32, GL_RGBA);
    EXPECT_EQ(size(), std::pair(64U, 32U));
    terrain.load(static_cast<const unsigned char*>(nullptr), 5, 5, GL_RGBA);
    terrain.load(static_cast<const void*>(nullptr), GL_RGBA);
    terrain.loadNormals(nullptr, 5, 5, GL_RGBA);
    EXPECT_EQ(size(), std::pair(64U, 32U)) << "null pointers change nothing";
    std::array<std::uint32_t, 3 + 3 * 2> block{3, 2, 0xFFFFFFFF};
    std::fill(block.begin() + 3, block.end(), 0xC8C8C8C8);
    terrain.load(static_cast<const void*>(block.data()), GL_RGBA);
    EXPECT_EQ(size(), std::pair(3U, 2U));
    terrain.setTerrainOsm(1.0);
    EXPECT_NEAR(draw(terrain)[1], 157, 1);  // 200 blended with its own alpha over black

    const std::array<std::uint32_t, 4> lie{0xFFFFFFFF, 0xFFFFFFFF, 0, 0};  // no texture holds it
    EXPECT_EQ(OrlekTest::captureStdout(
                  [&] { terrain.load(static_cast<const void*>(lie.data()), GL_RGBA); }),
              "Error <TextureTerrain> <Nix> 1281\n");
    EXPECT_EQ(size(), std::pair(3U, 2U));
}

TEST_F(TerrainTest, OwnsItsObjectsTogetherWithItsCopies) {
    const int before = newNames();
    TextureTerrain first(terrain);
    first.load(mapTexel.data(), 1, 1, GL_RGBA);
    first.load(mapTexel.data(), 1, 1, GL_RGBA);  // releases the texture before
    first.loadNormals(std::array<unsigned short, 4>{}.data(), 1, 1, GL_RGBA);
    first.setTerrainOsm(1.0);
    draw(first);
    TextureTerrain copy(first);
    draw(copy);
    first.clear();
    EXPECT_EQ(newNames() - before, 2 + 3) << "the copy still draws with them";
    EXPECT_EQ(draw(copy), (Pixel{204, 102, 51, 255}));
    copy.clear();
    EXPECT_EQ(newNames(), before);
}

}  // namespace
