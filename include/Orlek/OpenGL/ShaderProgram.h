// A linked shader program and its uniforms.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/OpenGL/Shader.h>

#include <cstdint>
#include <string>

namespace Orlek::OpenGL {

/// A GL program object: shaders attached, linked, used, and its uniforms set by name.
///
/// A value that holds nothing but the GL name: copies refer to the same program. The program is
/// never deleted by this class; it lives as long as the GL context.
///
/// Every operation first discards pending GL errors, makes its GL call and prints one line
/// "Error <GL function> <Nix> code" on the standard output for each error that the call raised.
/// All members belong to the thread whose GL context is current. Without usable GL entry points
/// the name is 0 and nothing happens.
///
/// The uniform setters write into the program that is current: call them between use(true) and
/// use(false). While another program (or none) is current GL refuses the value and the setter
/// prints code 1282. A name that the program does not have is ignored without a message.
class ORLEK_EXPORT ShaderProgram {
public:
    /// Creates the program object (`glCreateProgram`).
    ShaderProgram();

    /// Attaches a shader (`glAttachShader`).
    /// @param shader the stage; GL keeps it as long as it is attached.
    /// @return true, whatever GL reported.
    bool attachShader(Shader& shader);

    /// Detaches a shader (`glDetachShader`).
    /// @param shader a stage attached before.
    /// @return true, whatever GL reported.
    bool detachShader(Shader& shader);

    /// Fixes the location of a vertex attribute at the next link() (`glBindAttribLocation`).
    /// @param location 0 or above; the standard programs use 0 for "vertex", 2 for "vertexUV",
    /// 4 for "color" and 5 for "position".
    /// @param name the attribute's name in the vertex stage.
    void bindLocation(int location, const std::string& name);

    /// Links the attached shaders (`glLinkProgram`). A failure prints the info log on the standard
    /// output. Uniform locations of a program linked here are remembered: link it again with this
    /// function only.
    /// @return true when the program is linked.
    bool link();

    /// Makes the program current, or none (`glUseProgram`).
    /// @param on true for this program, false for none.
    /// @return true, whatever GL reported.
    bool use(bool on);

    /// Prints the info log, if there is one, on the standard output.
    void info();

    /// @return the GL program name; 0 when there is no object.
    unsigned int handle();

    /// Sets a float uniform (`glUniform1f`).
    /// @param name the uniform's name. @param a the value.
    void setFloatVar(std::string name, float a);
    /// Sets a vec2 uniform (`glUniform2f`).
    /// @param name the uniform's name. @param a, b the components.
    void setFloatVar(std::string name, float a, float b);
    /// Sets a vec3 uniform (`glUniform3f`).
    /// @param name the uniform's name. @param a, b, c the components.
    void setFloatVar(std::string name, float a, float b, float c);
    /// Sets a vec4 uniform (`glUniform4f`).
    /// @param name the uniform's name. @param a, b, c, d the components.
    void setFloatVar(std::string name, float a, float b, float c, float d);

    /// Sets an int, bool or sampler uniform (`glUniform1i`).
    /// @param name the uniform's name. @param value the value; 0 or 1 for a bool, the texture unit
    /// for a sampler.
    void setIntVar(std::string name, int value);

    /// Sets an array of 32 ints (`glUniform1iv`).
    /// @param name the uniform's name. @param pattern exactly 32 ints, read and not kept.
    void setStippleVar(std::string name, int* const pattern);

private:
    bool checkError();

    std::uint32_t mHandle = 0;
};

}  // namespace Orlek::OpenGL
