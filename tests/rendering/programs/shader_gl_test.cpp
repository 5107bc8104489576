// Shader objects on a real driver: sources, logs, printed lines, remembered locations.
#include <Orlek/OpenGL/Shader.h>
#include <Orlek/OpenGL/ShaderProgram.h>

#include <algorithm>
#include <array>

#include "rendering/programs/UniformLocations.h"
#include "support/GlTest.h"
#include "support/TempDir.h"

namespace {

using Orlek::OpenGL::GlHandler;
using Orlek::OpenGL::Shader;
using Orlek::OpenGL::ShaderProgram;
using OrlekTest::captureStdout;

const std::string vertexText =
    "#version 330 core\nin vec4 vertex;\nvoid main() { gl_Position = vertex; }\n";

// Uniforms a to d for the setters; the array has 33 ints, so that reading a 33rd would show.
const std::string fragmentText =
    "#version 330 core\n"
    "uniform float a; uniform vec2 b; uniform vec3 c; uniform vec4 d; uniform int i;\n"
    "uniform int pattern[33];\nout vec4 color;\n"
    "void main() { int sum = 0; for (int k = 0; k < 33; ++k) sum += pattern[k];\n"
    "  color = vec4(a, b.x, c.x, d.x) * float(i + sum); }\n";

class ShaderTest : public OrlekTest::GlTest {
protected:
    static bool load(Shader& shader, const std::string& text) {
        std::string bytes = text;
        return shader.loadSource(reinterpret_cast<unsigned char*>(bytes.data()),
                                 static_cast<unsigned>(bytes.size()));
    }

    static Shader compiled(Shader::TShaderType type, const std::string& text) {
        Shader shader(type);
        load(shader, text);
        EXPECT_TRUE(shader.compile());
        return shader;
    }

    static ShaderProgram linked(const std::string& fragment) {
        Shader first = compiled(Shader::VERTEX_SHADER, vertexText);
        Shader second = compiled(Shader::FRAGMENT_SHADER, fragment);
        ShaderProgram program;
        program.attachShader(first);
        program.attachShader(second);
        program.bindLocation(3, "vertex");
        EXPECT_TRUE(program.link());
        return program;
    }

    static std::string sourceOf(Shader& shader) {
        std::array<char, 4096> text{};
        glGetShaderSource(shader.handle(), static_cast<GLsizei>(text.size()), nullptr, text.data());
        return text.data();
    }

    static float uniform(ShaderProgram& program, const char* name, std::size_t component) {
        std::array<float, 4> values{};
        glGetUniformfv(program.handle(), glGetUniformLocation(program.handle(), name),
                       values.data());
        return values[component];
    }
};

TEST_F(ShaderTest, CreatesTheStageOfItsType) {
    const std::pair<Shader::TShaderType, GLenum> stages[] = {{Shader::VERTEX_SHADER, 0x8B31},
                                                             {Shader::FRAGMENT_SHADER, 0x8B30},
                                                             {Shader::GEOMETRY_SHADER, 0x8DD9}};
    for (const auto& [type, expected] : stages) {
        Shader shader(type);
        GLint actual = 0;
        glGetShaderiv(shader.handle(), GL_SHADER_TYPE, &actual);
        EXPECT_EQ(static_cast<GLenum>(actual), expected);
    }
    silently([] {
        Shader none(static_cast<Shader::TShaderType>(3));
        EXPECT_EQ(none.handle(), 0U);
        EXPECT_TRUE(none.loadSource(nullptr, 0));
        EXPECT_FALSE(none.compile());
        none.info();
    });
}

TEST_F(ShaderTest, PassesExactlyTheBytesGiven) {
    Shader shader(Shader::VERTEX_SHADER);
    std::string text = vertexText + "this is not GLSL";
    EXPECT_TRUE(shader.loadSource(reinterpret_cast<unsigned char*>(text.data()),
                                  static_cast<unsigned>(vertexText.size())));
    EXPECT_EQ(sourceOf(shader), vertexText);
    silently([&] { EXPECT_TRUE(shader.compile()); });
}

TEST_F(ShaderTest, ReadsFilesLineByLine) {
    const OrlekTest::TempDir dir;
    Shader shader(Shader::VERTEX_SHADER);
    EXPECT_TRUE(shader.loadSource(dir.write("with.vert", "a\n\nb\n")));
    EXPECT_EQ(sourceOf(shader), "a\n\nb\n");
    EXPECT_TRUE(shader.loadSource(dir.write("without.vert", "c\nd")));
    EXPECT_EQ(sourceOf(shader), "c\nd\n");
    silently([&] {
        EXPECT_FALSE(shader.loadSource(dir.path("missing.vert")));
        EXPECT_FALSE(shader.loadSource(dir.path()));
        EXPECT_FALSE(shader.loadSource(std::string("/dev/zero")));
    });
    EXPECT_EQ(sourceOf(shader), "c\nd\n");
    EXPECT_TRUE(shader.loadSource(dir.write("empty.vert", "")));
    EXPECT_EQ(sourceOf(shader), "");
}

TEST_F(ShaderTest, PrintsTheCompilerLogOnce) {
    Shader shader(Shader::FRAGMENT_SHADER);
    load(shader, "#version 330 core\nvoid main() { gl_FragDepth = nonsense; }\n");
    bool good = true;
    const std::string log = captureStdout([&] { good = shader.compile(); });
    EXPECT_FALSE(good);
    EXPECT_NE(log.find("nonsense"), std::string::npos) << log;
    const std::string again = captureStdout([&] { shader.info(); });
    EXPECT_EQ(log, again);
    load(shader, fragmentText);
    silently([&] { EXPECT_TRUE(shader.compile()); });
}

TEST_F(ShaderTest, PrintsTheLinkerLogOnce) {
    Shader vertex = compiled(Shader::VERTEX_SHADER,
                             "#version 330 core\nout float between;\n"
                             "void main() { gl_Position = vec4(between = 1.0); }\n");
    Shader fragment = compiled(Shader::FRAGMENT_SHADER,
                               "#version 330 core\nin vec4 between; out vec4 color;\n"
                               "void main() { color = between; }\n");
    ShaderProgram program;
    program.attachShader(vertex);
    program.attachShader(fragment);
    bool linked = true;
    const std::string log = captureStdout([&] { linked = program.link(); });
    EXPECT_FALSE(linked);
    EXPECT_NE(log.find("between"), std::string::npos) << log;
    EXPECT_EQ(captureStdout([&] { program.info(); }), log);

    // The program stays usable for another attempt.
    program.detachShader(fragment);
    Shader better = compiled(Shader::FRAGMENT_SHADER, fragmentText);
    program.attachShader(better);
    silently([&] { EXPECT_TRUE(program.link()); });
}

TEST_F(ShaderTest, BindsLocationsAndSetsUniforms) {
    ShaderProgram program = linked(fragmentText);
    EXPECT_EQ(glGetAttribLocation(program.handle(), "vertex"), 3);
    std::array<int, 33> pattern{};
    std::ranges::fill(pattern, 7);
    silently([&] {
        program.use(true);
        for (int round = 1; round <= 2; ++round) {  // looked up, then remembered
            const auto r = static_cast<float>(round);
            program.setFloatVar("a", r);
            program.setFloatVar("b", 2 * r, 3 * r);
            program.setFloatVar("c", 4 * r, 5 * r, 6 * r);
            program.setFloatVar("d", 7 * r, 8 * r, 9 * r, 10 * r);
            program.setIntVar("i", round);
            program.setStippleVar("pattern", pattern.data());
            program.setFloatVar("unknown", 1.0F);
        }
        program.setStippleVar("pattern", nullptr);
        program.use(false);
    });
    EXPECT_EQ(uniform(program, "a", 0), 2.0F);
    EXPECT_EQ(uniform(program, "b", 1), 6.0F);
    EXPECT_EQ(uniform(program, "c", 2), 12.0F);
    EXPECT_EQ(uniform(program, "d", 3), 20.0F);
    GLint value = 0;
    glGetUniformiv(program.handle(), glGetUniformLocation(program.handle(), "i"), &value);
    EXPECT_EQ(value, 2);
    for (int k = 0; k < 33; ++k) {
        const std::string name = "pattern[" + std::to_string(k) + "]";
        glGetUniformiv(program.handle(), glGetUniformLocation(program.handle(), name.c_str()),
                       &value);
        EXPECT_EQ(value, k < 32 ? 7 : 0) << name;
    }
}

TEST_F(ShaderTest, NamesItsGlCallInErrorLines) {
    ShaderProgram program = linked(fragmentText);
    Shader none(static_cast<Shader::TShaderType>(9));
    const auto printed = [](auto call) { return captureStdout(call); };
    EXPECT_EQ(printed([&] { program.setFloatVar("a", 1); }), "Error <glUniform1f> <Nix> 1282\n");
    EXPECT_EQ(printed([&] { program.setFloatVar("b", 1, 2); }), "Error <glUniform2f> <Nix> 1282\n");
    EXPECT_EQ(printed([&] { program.setFloatVar("c", 1, 2, 3); }),
              "Error <glUniform3f> <Nix> 1282\n");
    EXPECT_EQ(printed([&] { program.setFloatVar("d", 1, 2, 3, 4); }),
              "Error <glUniform4f> <Nix> 1282\n");
    EXPECT_EQ(printed([&] { program.setIntVar("i", 1); }), "Error <glUniform1i> <Nix> 1282\n");
    std::array<int, 32> pattern{};
    EXPECT_EQ(printed([&] { program.setStippleVar("pattern", pattern.data()); }),
              "Error <glUniform1iv> <Nix> 1282\n");
    EXPECT_EQ(printed([&] { EXPECT_TRUE(program.attachShader(none)); }),
              "Error <glAttachShader> <Nix> 1281\n");
    EXPECT_EQ(printed([&] { EXPECT_TRUE(program.detachShader(none)); }),
              "Error <glDetachShader> <Nix> 1281\n");
    EXPECT_EQ(printed([&] { program.bindLocation(-1, "vertex"); }),
              "Error <glBindAttribLocation> <Nix> 1281\n");
    ShaderProgram empty;
    EXPECT_EQ(printed([&] { EXPECT_TRUE(empty.use(true)); }), "Error <glUseProgram> <Nix> 1282\n");

    glEnable(0xFFFF);  // an earlier error is not blamed on the next call
    EXPECT_EQ(printed([&] { program.use(false); }), "");
}

TEST_F(ShaderTest, LooksNamesUpAnewAfterAnotherLink) {
    Shader vertex = compiled(Shader::VERTEX_SHADER, vertexText);
    Shader first = compiled(Shader::FRAGMENT_SHADER,
                            "#version 330 core\nuniform float a, b; out vec4 color;\n"
                            "void main() { color = vec4(a, b, 0, 1); }\n");
    Shader second = compiled(Shader::FRAGMENT_SHADER,
                             "#version 330 core\nuniform float z, b, q[3]; out vec4 color;\n"
                             "void main() { color = vec4(z, b, q[1], 1); }\n");
    ShaderProgram program;
    const ShaderProgram copy = program;
    program.attachShader(vertex);
    program.attachShader(first);
    ASSERT_TRUE(program.link());
    program.use(true);
    program.setFloatVar("a", 1);
    program.setFloatVar("b", 2);
    program.detachShader(first);
    program.attachShader(second);
    ASSERT_TRUE(ShaderProgram(copy).link());  // a copy relinks the same program
    silently([&] {
        program.setFloatVar("a", 5);
        program.setFloatVar("b", 6);
    });
    EXPECT_EQ(uniform(program, "b", 0), 6.0F);
    EXPECT_EQ(uniform(program, "z", 0), 0.0F);
    program.use(false);
    const int location = glGetUniformLocation(program.handle(), "b");
    EXPECT_EQ(Orlek::Detail::uniformLocation(program.handle(), "b"), location);
}

}  // namespace
