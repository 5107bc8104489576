// Uploads: streams that are too short, pixel settings of the application, sizes, deleted names.
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <memory>
#include <tuple>
#include <vector>

#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/Texture.h"
#include "support/GlTest.h"

namespace {

using namespace Orlek::Detail;
using OrlekTest::captureStdout;
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

    const Bytes pixels{1, 2, 3, 4, 5, 6};
    std::shared_ptr<Mesh> mesh;
};

TEST_F(UploadTest, ShortStreamsStayDisabled) {
    const std::vector<Orlek::Math::Vector3<float>> vertices(3);
    for (const std::size_t count : {2U, 3U, 1U}) {
        const std::vector<Orlek::Math::Vector4<float>> colors(count);
        const Stream streams[] = {streamOf(Attribute::Vertex, vertices),
                                  streamOf(Attribute::Color, colors)};
        syncMesh("mesh", mesh, streams);
        EXPECT_TRUE(enabled(*mesh, 0));
        EXPECT_EQ(enabled(*mesh, 4), count == 3) << count;
    }
}

TEST_F(UploadTest, DestructorsLeaveTheirNamesToTheNextUpload) {
    const std::vector<float> values(4);
    const Stream streams[] = {streamOf(Attribute::Vertex, values)};
    const std::vector<std::uint32_t> indices{0, 1, 2};
    syncMesh("mesh", mesh, streams, indices);
    std::shared_ptr<Texture> texture = Texture::create(imageRecipe, {pixels.data(), 1, 1, rgba});
    mesh.reset();
    texture.reset();
    EXPECT_EQ(newNames(), 4);
    syncMesh("mesh", mesh, streams);
    EXPECT_EQ(newNames(), 2);
    releaseShare(mesh);
    EXPECT_EQ(newNames(), 0);
    glBindTexture(GL_TEXTURE_2D, 0);
}

TEST_F(UploadTest, ReadsTightRowsWhateverTheApplicationHasSet) {
    const std::tuple<GLenum, int, int> settings[] = {
        {GL_UNPACK_ALIGNMENT, 8, 4}, {GL_UNPACK_ROW_LENGTH, 100, 0}, {GL_UNPACK_SKIP_ROWS, 3, 0}};
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
    for (const auto& [name, value, usual] : settings) {
        glPixelStorei(name, value);
    }
    const std::shared_ptr<Texture> texture = Texture::create(coverageRecipe, {pixels.data(), 3, 2});
    for (const auto& [name, value, usual] : settings) {
        EXPECT_EQ(integer(name), value);
        glPixelStorei(name, usual);
    }
    EXPECT_EQ(static_cast<GLuint>(integer(GL_PIXEL_UNPACK_BUFFER_BINDING)), buffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glDeleteBuffers(1, &buffer);
    Bytes stored(6);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RED, GL_UNSIGNED_BYTE, stored.data());
    EXPECT_EQ(stored, pixels);
}

TEST_F(UploadTest, TexturesHaveTheParametersOfTheirRecipe) {
    const Bytes image(64);
    const struct {
        const TextureRecipe& recipe;
        GLint minification, alphaSource, smallest;
    } rows[] = {{imageRecipe, GL_LINEAR, GL_ALPHA, 0},
                {coverageRecipe, GL_LINEAR_MIPMAP_LINEAR, GL_RED, 1}};
    for (const auto& row : rows) {
        const auto texture = Texture::create(row.recipe, {image.data(), 4, 4, rgba});
        const std::pair<GLenum, GLint> parameters[] = {{GL_TEXTURE_MIN_FILTER, row.minification},
                                                       {GL_TEXTURE_MAG_FILTER, GL_LINEAR},
                                                       {GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE},
                                                       {GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE},
                                                       {GL_TEXTURE_SWIZZLE_A, row.alphaSource}};
        GLint value = 0;
        for (const auto& [name, expected] : parameters) {
            glGetTexParameteriv(GL_TEXTURE_2D, name, &value);
            EXPECT_EQ(value, expected) << name;
        }
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 2, GL_TEXTURE_WIDTH, &value);
        EXPECT_EQ(value, row.smallest);
    }
}

TEST_F(UploadTest, RefusesWhatNoTextureCanHoldAndNamesTheFailingStep) {
    const auto largest = static_cast<std::size_t>(integer(GL_MAX_TEXTURE_SIZE));
    silently([&] {
        EXPECT_EQ(Texture::create(imageRecipe, {pixels.data(), largest + 1, 1, rgba}), nullptr);
        EXPECT_EQ(Texture::create(imageRecipe, {pixels.data(), 1, 0xFFFFFFFF, rgba}), nullptr);
    });
    EXPECT_EQ(newNames(), 0);
    const TextureRecipe recipe{.labels = {"glGenTextures", "glBindTexture", "glTexParameteri"}};
    provokingErrors([&] {
        EXPECT_EQ(captureStdout([&] {
                      Texture::create(recipe, {pixels.data(), 1, 1, 0x1234});
                  }),
                  "Error <glTexParameteri> <Nix> 1280\n");
    });
}

}  // namespace
