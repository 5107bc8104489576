// Moving pictures on pixels read back, and the pixel settings that they leave.
#include <Orlek/OpenGL/Video.h>

#include <vector>

#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class VideoTest : public GlTest {
protected:
    /// Puts a frame whose red tells the column and whose green the row, from the top.
    static void put(Video& shown, int columns, int rows, int third) {
        std::vector<unsigned char> bytes;
        for (int i = 0; i < columns * rows; ++i) {
            for (const int value : {10 + i % columns, 100 + i / columns, third}) {
                bytes.push_back(static_cast<unsigned char>(value));
            }
        }
        shown.putFrame(bytes.data());
    }

    /// Every pixel of a frame that is drawn with its lower left corner in the origin.
    static void expectFrame(Video& shown, int columns, int rows, int third) {
        MatrixPush();
        MatrixTranslate(columns * 0.5, rows * 0.5, 0);
        EXPECT_EQ(pixelsOf(shown), columns * rows);
        MatrixPop();
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                ASSERT_EQ(pixel(x, y), (Pixel{10 + x, 100 + rows - 1 - y, third, 255}))
                    << x << "," << y;
            }
        }
    }

    void show(int columns, int rows, int third) {
        video.init(static_cast<unsigned>(columns), static_cast<unsigned>(rows));
        put(video, columns, rows, third);
        expectFrame(video, columns, rows, third);
    }

    Video video;
};

TEST_F(VideoTest, ShowsTheLastFrameTopRowFirst) {
    put(video, 13, 7, 1);
    EXPECT_EQ(pixelsOf(video), 0) << "nothing without init";
    show(13, 7, 1);
    EXPECT_EQ(video.width(), 13U);
    EXPECT_EQ(video.height(), 7U);
    for (const int third : {200, 77}) {
        put(video, 13, 7, third);
        expectFrame(video, 13, 7, third);
    }
    video.putFrame(nullptr);
    expectFrame(video, 13, 7, 77);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
    video.setColor({1, 1, 0, 0.5F});
    MatrixTranslate(6.5, 3.5, 0);
    pixelsOf(video);
    EXPECT_NEAR(pixel(12, 6)[0], 11, 1);
    EXPECT_NEAR(pixel(12, 6)[1], 50, 1);
    EXPECT_EQ(pixel(12, 6)[2], 0);
}

TEST_F(VideoTest, ChangesSizeAndStartsAgainAfterClear) {
    show(13, 7, 1);
    show(20, 5, 2);
    EXPECT_EQ(newNames(), 5) << "a texture, a pixel buffer, a vertex array, two buffers";
    Video copy = video;
    put(video, 20, 5, 60);
    expectFrame(copy, 20, 5, 60);
    video.clear();
    put(video, 20, 5, 3);
    show(4, 4, 3);
}

TEST_F(VideoTest, KeepsTheApplicationsPixelSettingsAndNoPixelBuffer) {
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 2);
    video.init(13, 7);
    EXPECT_EQ(integer(GL_PIXEL_UNPACK_BUFFER_BINDING), 0);
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
    put(video, 13, 7, 5);
    EXPECT_EQ(integer(GL_PIXEL_UNPACK_BUFFER_BINDING), 0);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(integer(GL_UNPACK_SKIP_PIXELS), 2);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    glDeleteBuffers(1, &buffer);
    expectFrame(video, 13, 7, 5);
}

TEST_F(VideoTest, KeepsThePictureWhenTheBufferCannotBeMapped) {
    video.init(4, 4);
    EXPECT_NE(integer(GL_TEXTURE_BINDING_2D), 0);
    put(video, 4, 4, 9);
    // The pixel buffer is the youngest one; mapping it twice is an error.
    GLuint name = mostNames;
    while (name > 0 && glIsBuffer(name) == GL_FALSE) {
        --name;
    }
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, name);
    ASSERT_NE(glMapBuffer(GL_PIXEL_UNPACK_BUFFER, GL_WRITE_ONLY), nullptr);
    provokingErrors([&] { put(video, 4, 4, 200); });
    EXPECT_EQ(integer(GL_PIXEL_UNPACK_BUFFER_BINDING), 0);
    GlHandler::clearError();
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, name);
    glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    expectFrame(video, 4, 4, 9);
}

TEST_F(VideoTest, DrawsOnVerticesOfTheApplication) {
    show(4, 4, 50);
    video.clearVertex();
    EXPECT_EQ(pixelsOf(video), 0);
    video.addVertex(Orlek::Math::Vector3<float>(10, 10, 0), {0, 1});
    video.addVertex(Orlek::Math::Vector4<float>(10, 50, 0, 7), {0, 0});
    video.addVertex(Orlek::Math::Vector3<float>(50, 10, 0), {1, 1});
    EXPECT_NEAR(pixelsOf(video), 800, 20);
    EXPECT_EQ(pixel(11, 46), (Pixel{10, 100, 50, 255}));
}

TEST_F(VideoTest, RefusesSizesThatNoTextureHas) {
    show(4, 4, 80);
    EXPECT_EQ(captureStdout([&] { video.init(0xFFFFFFFF, 0x80000001); }),
              "Error <Video> <Nix> 1281\n");
    EXPECT_EQ(video.width(), 4U);
    expectFrame(video, 4, 4, 80);
    video.init(0, 0);
    silently([&] { put(video, 1, 1, 0); });
    EXPECT_EQ(pixelsOf(video), 0);
}

}  // namespace
