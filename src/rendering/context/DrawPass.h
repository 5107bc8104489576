// One draw of a drawable: program, uniforms, blending, matrix, draw; the end of the scope hands
// everything back and reports errors.
#pragma once

#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

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

private:
    bool mFixedIndex;  ///< that the application has on, of OpenGL 4.3
};

/// OpenGL's own polygon stipple for one draw; off without a pattern of 128 bytes.
class PolygonStipple {
public:
    explicit PolygonStipple(const unsigned char* pattern);
    ~PolygonStipple();
    PolygonStipple(const PolygonStipple&) = delete;
    PolygonStipple& operator=(const PolygonStipple&) = delete;
};

/// When a pass reports errors: at its end under the class's name, or after each step under the
/// name of the GL function as well.
enum class ErrorReports { AtEnd, EachStep };

class DrawPass {
public:
    /// Puts a standard program in use. `label` names the class in the error lines.
    DrawPass(const char* label, unsigned program, ErrorReports reports = ErrorReports::AtEnd);
    /// Unbinds textures and vertex array, leaves the program, switches line state and restart off,
    /// reports errors. Blending stays as it is.
    ~DrawPass();
    DrawPass(const DrawPass&) = delete;
    DrawPass& operator=(const DrawPass&) = delete;

    // A uniform that the program lacks costs no GL call: setting it could do and report nothing.
    void set(std::string_view uniform, float value);
    void set(std::string_view uniform, int value);
    void set(std::string_view uniform, const Math::Vector3<float>& value);
    void set(std::string_view uniform, const Math::Vector4<float>& value);
    /// @param rows 32 of them, 32 bits each.
    void setPattern(std::string_view uniform, std::span<const int, 32> rows);

    /// The location of a uniform that is set many times in the pass; -1 if the program lacks it.
    int locate(std::string_view uniform) const;
    /// Sets it with one GL call; errors are left to the end of the pass.
    static void setAt(int location, const Math::Vector3<float>& value);

    /// Blends by source alpha.
    void blend();

    /// Line smoothing and blending by source alpha together, or neither; see LineState.
    template <typename... Arguments>
    void lineState(Arguments... arguments) {
        blendFunction();
        mLineState.emplace(arguments...);
    }
    /// Smooth lines that stay so, and blending without its function; see LineState.
    static void smoothLinesFromNowOn(float width) { LineState::smoothFromNowOn(width); }
    void polygonStipple(const unsigned char* pattern) { mPolygonStipple.emplace(pattern); }
    void restart(std::uint32_t index) { mRestart.emplace(index); }
    /// One texture on unit 0.
    void texture(unsigned name) { mTextures.emplace(name); }
    /// Several textures with fixed-function texturing.
    void textures(std::span<const TextureUnit> units) { mTextures.emplace(units); }

    /// Uploads the current matrix.
    void matrix();

    void bind(const Mesh& mesh);
    /// Draws vertices of the mesh bound, as far as it has them; nothing when it could not be bound.
    void draw(DrawMode mode, std::size_t first, std::size_t count);
    /// The same by the first entries of its element buffer.
    void drawIndexed(DrawMode mode, std::size_t count);

private:
    template <typename... Values>
    void setIfPresent(std::string_view uniform, Values... values);
    static void blendFunction();
    void step(const char* function) const;

    // Destroyed in the reverse order: errors are reported last.
    ErrorCheck mCheck;
    std::optional<PolygonStipple> mPolygonStipple;
    std::optional<PrimitiveRestart> mRestart;
    std::optional<LineState> mLineState;
    std::optional<TextureUnits> mTextures;
    ErrorReports mReports;
    OpenGL::GlHandler& mHandler;
    unsigned mProgram = 0;
    const Mesh* mMesh = nullptr;
};

}  // namespace Orlek::Detail
