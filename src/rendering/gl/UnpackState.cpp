#include "rendering/gl/UnpackState.h"

#include <GL/glew.h>

namespace Orlek::Detail {

namespace {

struct Setting {
    GLenum name;
    GLint packed;
};

constexpr std::array<Setting, 6> settings{{{GL_UNPACK_ALIGNMENT, 1},
                                           {GL_UNPACK_ROW_LENGTH, 0},
                                           {GL_UNPACK_SKIP_ROWS, 0},
                                           {GL_UNPACK_SKIP_PIXELS, 0},
                                           {GL_UNPACK_SWAP_BYTES, 0},
                                           {GL_UNPACK_LSB_FIRST, 0}}};

}  // namespace

UnpackState::UnpackState() {
    for (std::size_t i = 0; i < settings.size(); ++i) {
        glGetIntegerv(settings[i].name, &mSaved[i]);
        glPixelStorei(settings[i].name, settings[i].packed);
    }
    glGetIntegerv(GL_PIXEL_UNPACK_BUFFER_BINDING, &mSavedBuffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}

UnpackState::~UnpackState() {
    for (std::size_t i = 0; i < settings.size(); ++i) {
        glPixelStorei(settings[i].name, mSaved[i]);
    }
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, static_cast<GLuint>(mSavedBuffer));
}

}  // namespace Orlek::Detail
