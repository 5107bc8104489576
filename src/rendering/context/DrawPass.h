// One draw of a drawable: program, uniforms, blending, matrix, draw; the end of the scope hands
// everything back and reports errors.
#pragma once

#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "rendering/gl/Errors.h"
#include "rendering/gl/LineState.h"
#include "rendering/gl/Texture.h"

namespace Orlek::OpenGL {
class GlHandler;
}

namespace Orlek::Detail {

class Mesh;

/// Primitive of a draw call; the values are OpenGL's own.
enum class DrawMode : unsigned {
    Lines = 0x0001,
    LineStrip = 0x0003,
    TriangleStrip = 0x0005,
    TriangleFan = 0x0006,
    LineStripAdjacency = 0x000B
};

/// Primitive restart for one draw.
class PrimitiveRestart {
public:
    explicit PrimitiveRestart(std::uint32_t index);
    ~PrimitiveRestart();
    PrimitiveRestart(const PrimitiveRestart&) = delete;
    PrimitiveRestart& operator=(const PrimitiveRestart&) = delete;
};

class DrawPass {
public:
    /// Puts a standard program in use. `label` names the class in the error lines.
    DrawPass(const char* label, unsigned program);
    /// Unbinds textures and vertex array, leaves the program, switches line state and restart off,
    /// reports errors. Blending stays as it is.
    ~DrawPass();
    DrawPass(const DrawPass&) = delete;
    DrawPass& operator=(const DrawPass&) = delete;

    void set(const char* uniform, float value);
    void set(const char* uniform, int value);
    void set(const char* uniform, const Math::Vector3<float>& value);
    void set(const char* uniform, const Math::Vector4<float>& value);
    void setViewPort();

    /// Blends by source alpha.
    void blend();

    template <typename... Arguments>
    void lineState(Arguments... arguments) {
        mLineState.emplace(arguments...);
    }
    void restart(std::uint32_t index) { mRestart.emplace(index); }
    /// One texture on unit 0.
    void texture(unsigned name) { mTextures.emplace(name); }
    /// Several textures with fixed-function texturing.
    void textures(std::span<const TextureUnit> units) { mTextures.emplace(units); }

    /// Uploads the current matrix.
    void matrix();

    void bind(const Mesh& mesh);
    void draw(DrawMode mode, std::size_t first, std::size_t count);
    /// Draws the first entries of the bound element buffer.
    void drawIndexed(DrawMode mode, std::size_t count);

private:
    // Destroyed in the reverse order: errors are reported last.
    ErrorCheck mCheck;
    std::optional<PrimitiveRestart> mRestart;
    std::optional<LineState> mLineState;
    std::optional<TextureUnits> mTextures;
    OpenGL::GlHandler& mHandler;
};

}  // namespace Orlek::Detail
