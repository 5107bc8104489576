#include "rendering/gl/PixelBuffer.h"

#include <GL/glew.h>

#include <cstring>

#include "rendering/gl/Names.h"
#include "rendering/gl/UnpackState.h"

namespace Orlek::Detail {

std::shared_ptr<PixelBuffer> PixelBuffer::create(std::size_t bytes) {
    auto buffer = std::make_shared<PixelBuffer>();
    glGenBuffers(1, &buffer->mName);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer->mName);
    glBufferData(GL_PIXEL_UNPACK_BUFFER, static_cast<GLsizeiptr>(bytes), nullptr, GL_STREAM_DRAW);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    return buffer;
}

PixelBuffer::~PixelBuffer() {
    parkNames(NameKind::Buffer, {&mName, 1});
}

void PixelBuffer::release() {
    deleteNames(NameKind::Buffer, {&mName, 1});
}

// Invalidating lets the driver hand out fresh memory instead of waiting for the last frame's use.
bool PixelBuffer::fill(const unsigned char* pixels, std::size_t bytes) const {
    void* memory = glMapBufferRange(GL_PIXEL_UNPACK_BUFFER, 0, static_cast<GLsizeiptr>(bytes),
                                    GL_MAP_WRITE_BIT | GL_MAP_INVALIDATE_BUFFER_BIT);
    if (memory == nullptr) {
        return false;
    }
    std::memcpy(memory, pixels, bytes);
    return glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER) == GL_TRUE;
}

void PixelBuffer::putRgb(unsigned texture, unsigned width, unsigned height,
                         const unsigned char* rgb) const {
    const std::size_t bytes = std::size_t{width} * height * 3;
    if (bytes == 0) {
        return;
    }
    {
        const UnpackState packed;
        glBindTexture(GL_TEXTURE_2D, texture);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, mName);
        if (fill(rgb, bytes)) {
            glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, static_cast<GLsizei>(width),
                            static_cast<GLsizei>(height), GL_RGB, GL_UNSIGNED_BYTE, nullptr);
        }
        glBindTexture(GL_TEXTURE_2D, 0);
    }
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}

}  // namespace Orlek::Detail
