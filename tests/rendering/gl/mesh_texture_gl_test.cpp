// Uploads: streams that are too short, pixel settings of the application, sizes, deleted names.
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <array>
#include <memory>
#include <vector>

#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/Texture.h"
#include "support/GlTest.h"

namespace {

using namespace Orlek::Detail;
using OrlekTest::captureStdout;
using OrlekTest::liveNames;
using Bytes = std::vector<unsigned char>;

constexpr unsigned rgba = 0x1908;

class UploadTest : public OrlekTest::GlTest {
protected:
    static bool enabled(const Mesh& mesh, GLuint location) {
        mesh.bind();
        GLint value = 0;
        glGetVertexAttribiv(location, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &value);
        glBindVertexArray(0);
        return value != 0;
    }

    static Bytes contents(GLenum format, std::size_t size) {
        Bytes pixels(size);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glGetTexImage(GL_TEXTURE_2D, 0, format, GL_UNSIGNED_BYTE, pixels.data());
        return pixels;
    }
};

TEST_F(UploadTest, ShortStreamsStayDisabled) {
    const std::vector<Orlek::Math::Vector3<float>> vertices(3);
    std::vector<Orlek::Math::Vector4<float>> colors(2);
    std::shared_ptr<Mesh> mesh;
    const auto upload = [&] {
        const Stream streams[] = {streamOf(Attribute::Vertex, vertices),
                                  streamOf(Attribute::Color, colors)};
        syncMesh(mesh, streams);
        return enabled(*mesh, 4);
    };
    EXPECT_FALSE(upload());
    EXPECT_TRUE(enabled(*mesh, 0));
    colors.resize(3);
    EXPECT_TRUE(upload());
    colors.resize(1);
    EXPECT_FALSE(upload());
    releaseShare(mesh);
}

TEST_F(UploadTest, DestructorsLeaveTheirNamesToTheNextUpload) {
    const int before = liveNames();
    const std::vector<float> values(4);
    const Stream streams[] = {streamOf(Attribute::Vertex, values)};
    const std::vector<std::uint32_t> indices{0, 1, 2};
    std::shared_ptr<Mesh> mesh;
    syncMesh(mesh, streams, indices);
    const Bytes pixel(4);
    std::shared_ptr<Texture> texture = Texture::create(imageRecipe, {pixel.data(), 1, 1, rgba});
    EXPECT_EQ(liveNames() - before, 4);
    mesh.reset();
    texture.reset();
    EXPECT_EQ(liveNames() - before, 4);
    syncMesh(mesh, streams);
    EXPECT_EQ(liveNames() - before, 2);
    releaseShare(mesh);
    EXPECT_EQ(liveNames(), before);
    glBindTexture(GL_TEXTURE_2D, 0);
}

TEST_F(UploadTest, ReadsTightRowsWhateverTheApplicationHasSet) {
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 100);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 3);
    const Bytes pixels{1, 2, 3, 4, 5, 6};
    std::shared_ptr<Texture> texture = Texture::create(coverageRecipe, {pixels.data(), 3, 2});
    EXPECT_EQ(integer(GL_UNPACK_ALIGNMENT), 8);
    EXPECT_EQ(integer(GL_UNPACK_ROW_LENGTH), 100);
    EXPECT_EQ(integer(GL_UNPACK_SKIP_ROWS), 3);
    EXPECT_EQ(static_cast<GLuint>(integer(GL_PIXEL_UNPACK_BUFFER_BINDING)), buffer);
    EXPECT_EQ(static_cast<GLuint>(integer(GL_TEXTURE_BINDING_2D)), texture->name());
    EXPECT_EQ(contents(GL_RED, 6), pixels);

    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glDeleteBuffers(1, &buffer);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    releaseShare(texture);
}

TEST_F(UploadTest, TexturesHaveTheParametersOfTheirRecipe) {
    const Bytes pixels(64);
    struct Case {
        const TextureRecipe& recipe;
        GLint minification;
        GLint alphaSource;
        GLint levels;
    };
    const Case cases[] = {{imageRecipe, GL_LINEAR, GL_ALPHA, 1},
                          {coverageRecipe, GL_LINEAR_MIPMAP_LINEAR, GL_RED, 3}};
    for (const Case& c : cases) {
        std::shared_ptr<Texture> texture = Texture::create(c.recipe, {pixels.data(), 4, 4, rgba});
        const auto parameter = [](GLenum name) {
            GLint value = 0;
            glGetTexParameteriv(GL_TEXTURE_2D, name, &value);
            return value;
        };
        EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), c.minification);
        EXPECT_EQ(parameter(GL_TEXTURE_MAG_FILTER), GL_LINEAR);
        EXPECT_EQ(parameter(GL_TEXTURE_WRAP_S), GL_CLAMP_TO_EDGE);
        EXPECT_EQ(parameter(GL_TEXTURE_WRAP_T), GL_CLAMP_TO_EDGE);
        EXPECT_EQ(parameter(GL_TEXTURE_SWIZZLE_A), c.alphaSource);
        GLint levelWidth = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, c.levels - 1, GL_TEXTURE_WIDTH, &levelWidth);
        EXPECT_EQ(levelWidth, 4 >> (c.levels - 1));
        glGetTexLevelParameteriv(GL_TEXTURE_2D, c.levels, GL_TEXTURE_WIDTH, &levelWidth);
        EXPECT_EQ(levelWidth, 0);
        releaseShare(texture);
    }
}

TEST_F(UploadTest, RefusesWhatNoTextureCanHold) {
    const int before = liveNames();
    const auto largest = static_cast<std::size_t>(integer(GL_MAX_TEXTURE_SIZE));
    const Bytes pixel(4);
    silently([&] {
        EXPECT_EQ(Texture::create(imageRecipe, {pixel.data(), largest + 1, 1, rgba}), nullptr);
        EXPECT_EQ(Texture::create(imageRecipe, {pixel.data(), 1, 0xFFFFFFFF, rgba}), nullptr);
    });
    EXPECT_EQ(liveNames(), before);
}

TEST_F(UploadTest, NamesTheFailingStep) {
    const TextureRecipe recipe{.labels = {"glGenTextures", "glBindTexture", "glTexParameteri"}};
    const Bytes pixel(4);
    std::shared_ptr<Texture> texture;
    EXPECT_EQ(captureStdout([&] {
                  texture = Texture::create(recipe, {pixel.data(), 1, 1, 0x1234});
              }),
              "Error <glTexParameteri> <Nix> 1280\n");
    releaseShare(texture);
}

TEST_F(UploadTest, BindsUnitsForOneDraw) {
    const Bytes pixel(4);
    std::shared_ptr<Texture> texture = Texture::create(imageRecipe, {pixel.data(), 1, 1, rgba});
    glActiveTexture(GL_TEXTURE3);
    {
        const TextureUnits bound(texture->name());
        EXPECT_EQ(integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0);
        EXPECT_EQ(static_cast<GLuint>(integer(GL_TEXTURE_BINDING_2D)), texture->name());
    }
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0);
    releaseShare(texture);
}

}  // namespace
