// The OpenGL state that all drawing classes share.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/OpenGL/ShaderProgram.h>

#include <cstdint>
#include <map>
#include <string>

namespace Orlek::OpenGL {

/// The one object through which the drawing classes reach OpenGL: the eleven standard programs,
/// the program in use, the viewport size, and the reporting of GL errors.
///
/// One per process, for one GL context: 3.3 or later, compatibility profile (the line classes set
/// the legacy line state). All members belong to the thread whose current context is the one that
/// the library draws into; nothing is locked. Standard programs live as long as the context.
///
/// Programs, what they draw, and their uniforms besides "mvp":
///
/// - 1, a colour for each vertex: none.
///
/// - 2, one colour: "color".
///
/// - 3, texture times colour: "color", "myTextureSampler".
///
/// - 4, shaded terrain: "color", "lightDirection", "shadingOn", "terrainShadingFactor",
///   "terrainContrast", "terrainBrightness", "osmTerrain", "Texture0", "Texture1", "Texture2".
///
/// - 5, glyph coverage: "color", "offset", "myTextureSampler".
///
/// - 6, glyph distance field: "color", "offset", "outlineColor", "outlineWidth", "Texture0".
///
/// - 7, one colour at an offset: "color", "offset".
///
/// - 8, wide separate lines (`GL_LINES`): "color", "lineWidth", "viewPort", "antialias",
///   "lineStipple".
///
/// - 9, wide joined lines (`GL_LINE_STRIP_ADJACENCY`): as 8.
///
/// - 10, as 9 with a colour for each vertex: as 8 without "color".
///
/// - 11, one colour, 32 x 32 screen stipple: "color", "stipplePattern", "stippleUse".
///
/// Vertex attributes: 0 "vertex", 2 "vertexUV", 4 "color", 5 "position" (pixels along the line).
///
/// @code
/// // once, with the context current
/// auto& gl = Orlek::OpenGL::GlHandler::instance();
/// gl.setViewPort({1280.0F, 800.0F});
/// Orlek::OpenGL::MatrixLoadIdent();
/// @endcode
class ORLEK_EXPORT GlHandler {
public:
    /// @return the one object. The first call loads the GL entry points, switches the driver's
    /// error messages on (they go to the standard error stream, by a callback that takes the place
    /// of the application's), builds the standard programs and prints the GL and GLSL versions; it
    /// needs the context current. Made without, it prints empty versions, and the first draw with a
    /// context does the rest.
    ///
    /// When the loader complains, one line "GlHandler::GlHandler Error: text" is printed. Its
    /// complaint about a missing GLX display (EGL, Wayland) is harmless; after any other the GL
    /// classes do nothing.
    static GlHandler& instance();

    GlHandler(const GlHandler&) = delete;
    GlHandler& operator=(const GlHandler&) = delete;

    /// Prints the context's version text and numbers.
    /// @return major x 100 + minor: 406 for a text that begins 4.6; 0 before the handler has
    ///         met a context.
    unsigned int glVersion();

    /// Prints the GLSL version text and numbers.
    /// @return major x 100 + minor: 460 for a text that begins 4.60; 0 before the handler has
    ///         met a context.
    unsigned int glSlVersion();

    /// Prints "Error <where> <detail> code" for every pending GL error, in GL's order.
    /// @param where the GL function or class that may have raised them. @param detail free text.
    static void checkError(const std::string& where, const std::string& detail);

    /// Discards every pending GL error.
    static void clearError();

    /// Stores the size of the drawing area; call it whenever the viewport changes. No GL call.
    /// @param size width and height in pixels.
    void setViewPort(Math::Vector2<float> size);

    /// @return the stored size in pixels; (0, 0) before the first setViewPort().
    Math::Vector2<float> viewPort();

    /// Sets the uniform "viewPort" of the active program to the stored size.
    void activateViewPort();

    /// Puts a standard program in use, unless it is in use already.
    /// @param number 1 to 11; any other number changes nothing.
    void activateShader(unsigned int number);

    /// Leaves the use of any program. Between draws of the library no program is in use.
    void deactivateShader();

    /// @return the GL name of the active standard program; 0 when none is active.
    unsigned int activeShaderHandle();

    /// Sets a float uniform of the active program; nothing when none is active.
    /// @param name the uniform's name; one that the program lacks is ignored. @param a the value.
    void setFloatVar(std::string name, float a);
    /// Sets a vec2 uniform of the active program. @param name its name. @param a, b components.
    void setFloatVar(std::string name, float a, float b);
    /// Sets a vec3 uniform of the active program. @param name its name. @param a, b, c components.
    void setFloatVar(std::string name, float a, float b, float c);
    /// Sets a vec4 uniform of the active program. @param name its name.
    /// @param a, b, c, d components.
    void setFloatVar(std::string name, float a, float b, float c, float d);

    /// Sets an int, bool or sampler uniform of the active program.
    /// @param name its name. @param value the value; 0 or 1 for a bool.
    void setIntVar(std::string name, int value);

    /// Sets an array of 32 ints of the active program.
    /// @param name its name. @param pattern exactly 32 ints, read and not kept.
    void setStippleVar(std::string name, int* const pattern);

    /// Builds the standard programs, reads the versions and asks for the driver's messages. The
    /// first instance() has done so; another call does it anew, for a context that has replaced a
    /// lost one, and forgets the GL objects that destructors have left to be deleted: they went
    /// with their context.
    void initStandardShaders();

private:
    GlHandler();

    std::map<std::uint32_t, ShaderProgram> mShaders;
    std::uint32_t mActiveShader;
    ShaderProgram* mActiveProgram = nullptr;  // the element of mShaders under that number, if any
    std::string mGlVersion;
    std::string mGlSlVersion;
    Math::Vector2<float> mViewPort;
};

}  // namespace Orlek::OpenGL
