// A buffer through which pixels stream into a texture.
#pragma once

#include <cstddef>
#include <memory>

namespace Orlek::Detail {

class PixelBuffer {
public:
    /// A new buffer with room for so many bytes, left unbound; without memory for them an error is
    /// pending. Needs OpenGL.
    static std::shared_ptr<PixelBuffer> create(std::size_t bytes);

    PixelBuffer() = default;
    /// Parks the name that release() has not deleted; makes no GL call.
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer&) = delete;
    PixelBuffer& operator=(const PixelBuffer&) = delete;

    /// Deletes the GL object.
    void release();

    /// Replaces level 0 of a texture by tightly packed RGB bytes, the row at v = 0 first; there
    /// must be room for them. The texture keeps its picture when the buffer cannot be mapped, which
    /// OpenGL refuses beyond its end too. Leaves no texture and no pixel buffer bound, and the
    /// application's other pixel settings as they were.
    void putRgb(unsigned texture, unsigned width, unsigned height, const unsigned char* rgb) const;

private:
    bool fill(const unsigned char* pixels, std::size_t bytes) const;

    unsigned mName = 0;
};

}  // namespace Orlek::Detail
