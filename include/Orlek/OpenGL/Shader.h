// One stage of a shader program.
#pragma once

#include <Orlek/Export.h>

#include <cstdint>
#include <string>

namespace Orlek::OpenGL {

/// A shader object: one stage in GLSL, to be attached to a ShaderProgram.
///
/// A value that holds nothing but the GL name: copies refer to the same shader object. The object
/// is never deleted by this class; it lives as long as the GL context.
///
/// All members make GL calls and belong to the thread whose GL context is current. Without usable
/// GL entry points the name is 0 and nothing happens.
///
/// @code
/// Orlek::OpenGL::Shader stage(Orlek::OpenGL::Shader::FRAGMENT_SHADER);
/// if (!stage.loadSource("glow.frag") || !stage.compile()) { ... }
/// @endcode
class ORLEK_EXPORT Shader {
public:
    /// The stage.
    enum TShaderType : std::uint32_t {
        VERTEX_SHADER = 0,    ///< Runs for each vertex.
        FRAGMENT_SHADER = 1,  ///< Runs for each pixel.
        GEOMETRY_SHADER = 2   ///< Runs for each primitive.
    };

    /// Creates the shader object (`glCreateShader`).
    /// @param type the stage; for a value that is none of the three no object is created and the
    /// name is 0.
    Shader(TShaderType type);  // NOLINT(google-explicit-constructor)

    /// Hands source text over (`glShaderSource`). It is copied and not compiled yet.
    /// @param source the text; need not end with a zero byte. GL reads up to the first zero byte.
    /// @param length its size in bytes; exactly so many are read. With a null @p source and a
    /// length above 0 the earlier source stays.
    /// @return true.
    bool loadSource(unsigned char* source, unsigned int length);

    /// Hands the text of a file over, line by line, each ended by '\\n'. Not compiled yet.
    /// @param fileName path of a regular file of at most 16 MiB.
    /// @return false, without a message and with the earlier source in place, when the file cannot
    /// be opened or read or is larger.
    bool loadSource(std::string fileName);

    /// Compiles the source (`glCompileShader`). A failure prints the info log on the standard
    /// output; the object can be given another source and compiled again.
    /// @return true on success.
    bool compile();

    /// Prints the info log, if there is one, on the standard output.
    void info();

    /// @return the GL shader name; 0 when there is no object.
    unsigned int handle();

private:
    bool checkError();

    TShaderType mType;
    std::uint32_t mHandle = 0;
};

}  // namespace Orlek::OpenGL
