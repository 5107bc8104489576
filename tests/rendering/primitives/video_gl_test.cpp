// Moving pictures on pixels read back, and the pixel settings that they leave.
#include <Orlek/OpenGL/Video.h>

#include <vector>

#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;
using Bytes = std::vector<unsigned char>;

class VideoTest : public GlTest {
protected:
    /// RGB bytes whose red tells the column and whose green the row, from the top.
    static Bytes frame(int columns, int rows, int third) {
        Bytes bytes;
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                for (const int value : {10 + x, 100 + y, third}) {
                    bytes.push_back(static_cast<unsigned char>(value));
                }
            }
        }
        return bytes;
    }

    void TearDown() override {
        video.clear();
        GlTest::TearDown();
    }

    void draw(Video& shown) const {
        wipe();
        silently([&] { shown.render(); });
    }

    /// Every pixel of a frame that is drawn with its lower left corner in the origin.
    void expectFrame(Video& shown, int columns, int rows, int third) const {
        MatrixPush();
        MatrixTranslate(columns * 0.5, rows * 0.5, 0);
        draw(shown);
        MatrixPop();
        EXPECT_EQ(drawnPixels(), columns * rows);
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                ASSERT_EQ(pixel(x, y), (Pixel{10 + x, 100 + rows - 1 - y, third, 255}))
                    << x << "," << y;
            }
        }
    }

    Video video;
};

TEST_F(VideoTest, ShowsTheLastFrameTopRowFirst) {
    video.putFrame(frame(13, 7, 1).data());
    draw(video);
    EXPECT_EQ(drawnPixels(), 0) << "nothing without init";
    video.init(13, 7);
    EXPECT_EQ(video.width(), 13U);
    EXPECT_EQ(video.height(), 7U);
    for (const int third : {1, 200, 77}) {
        video.putFrame(frame(13, 7, third).data());
        expectFrame(video, 13, 7, third);
    }
    video.putFrame(nullptr);
    expectFrame(video, 13, 7, 77);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
    video.setColor({1, 1, 0, 0.5F});
    MatrixTranslate(6.5, 3.5, 0);
    draw(video);
    EXPECT_NEAR(pixel(12, 6)[0], 11, 1);
    EXPECT_NEAR(pixel(12, 6)[1], 50, 1);
    EXPECT_EQ(pixel(12, 6)[2], 0);
}

TEST_F(VideoTest, ChangesSizeAndStartsAgainAfterClear) {
    video.init(13, 7);
    video.putFrame(frame(13, 7, 1).data());
    expectFrame(video, 13, 7, 1);
    video.init(20, 5);
    video.putFrame(frame(20, 5, 2).data());
    expectFrame(video, 20, 5, 2);
    EXPECT_EQ(newNames(), 5) << "a texture, a pixel buffer, a vertex array, two buffers";
    video.clear();
    EXPECT_EQ(newNames(), 0);
    draw(video);
    EXPECT_EQ(drawnPixels(), 0);
    video.putFrame(frame(20, 5, 3).data());
    video.init(4, 4);
    video.putFrame(frame(4, 4, 3).data());
    expectFrame(video, 4, 4, 3);
}

TEST_F(VideoTest, KeepsTheApplicationsPixelSettingsAndNoPixelBuffer) {
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 99);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 2);
    video.init(13, 7);
    EXPECT_EQ(integer(GL_PIXEL_UNPACK_BUFFER_BINDING), 0);
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
    video.putFrame(frame(13, 7, 5).data());
    EXPECT_EQ(integer(GL_PIXEL_UNPACK_BUFFER_BINDING), 0);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(integer(GL_UNPACK_ALIGNMENT), 8);
    EXPECT_EQ(integer(GL_UNPACK_ROW_LENGTH), 99);
    EXPECT_EQ(integer(GL_UNPACK_SKIP_PIXELS), 2);
    glDeleteBuffers(1, &buffer);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    expectFrame(video, 13, 7, 5);
}

TEST_F(VideoTest, KeepsThePictureWhenTheBufferCannotBeMapped) {
    video.init(4, 4);
    const int last = integer(GL_TEXTURE_BINDING_2D);
    EXPECT_NE(last, 0);
    video.putFrame(frame(4, 4, 9).data());
    // The pixel buffer is the youngest one; mapping it twice is an error.
    GLuint name = 499;
    while (glIsBuffer(name) == GL_FALSE && name > 0) {
        --name;
    }
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, name);
    ASSERT_NE(glMapBuffer(GL_PIXEL_UNPACK_BUFFER, GL_WRITE_ONLY), nullptr);
    captureStderr([&] { video.putFrame(frame(4, 4, 200).data()); });
    EXPECT_EQ(integer(GL_PIXEL_UNPACK_BUFFER_BINDING), 0);
    GlHandler::clearError();
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, name);
    glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    expectFrame(video, 4, 4, 9);
}

TEST_F(VideoTest, DrawsOnVerticesOfTheApplication) {
    video.addVertex(Orlek::Math::Vector3<float>(0, 0, 0), {0, 0});
    draw(video);
    video.init(4, 4);
    video.putFrame(frame(4, 4, 50).data());
    video.clearVertex();
    draw(video);
    EXPECT_EQ(drawnPixels(), 0);
    video.addVertex(Orlek::Math::Vector3<float>(10, 10, 0), {0, 1});
    video.addVertex(Orlek::Math::Vector4<float>(10, 50, 0, 7), {0, 0});
    video.addVertex(Orlek::Math::Vector3<float>(50, 10, 0), {1, 1});
    draw(video);
    EXPECT_NEAR(drawnPixels(), 800, 20);
    EXPECT_EQ(pixel(11, 46), (Pixel{10, 100, 50, 255}));
}

TEST_F(VideoTest, CopiesShareFramesUntilOneStartsAnew) {
    video.init(4, 4);
    Video copy = video;
    video.putFrame(frame(4, 4, 60).data());
    expectFrame(copy, 4, 4, 60);
    copy.init(5, 3);
    copy.putFrame(frame(5, 3, 70).data());
    expectFrame(copy, 5, 3, 70);
    expectFrame(video, 4, 4, 60);
    copy.clear();
}

TEST_F(VideoTest, RefusesSizesThatNoTextureHas) {
    video.init(4, 4);
    video.putFrame(frame(4, 4, 80).data());
    EXPECT_EQ(captureStdout([&] { video.init(0xFFFFFFFF, 0x80000001); }),
              "Error <Video> <Nix> 1281\n");
    EXPECT_EQ(video.width(), 4U);
    expectFrame(video, 4, 4, 80);
    video.init(0, 0);
    silently([&] { video.putFrame(frame(1, 1, 0).data()); });
    draw(video);
    EXPECT_EQ(drawnPixels(), 0);
}

}  // namespace
