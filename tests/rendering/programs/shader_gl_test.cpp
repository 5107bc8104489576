// Shader objects on a real driver: sources, logs, printed lines, remembered locations.
#include <Orlek/OpenGL/Shader.h>
#include <Orlek/OpenGL/ShaderProgram.h>

#include <algorithm>
#include <array>
#include <functional>

#include "support/GlTest.h"
#include "support/TempDir.h"

namespace {

using Orlek::OpenGL::Shader;
using Orlek::OpenGL::ShaderProgram;
using OrlekTest::captureStdout;

const std::string version = "#version 330 core\n";
const std::string vertexText = version + "in vec4 vertex;\nvoid main() { gl_Position = vertex; }\n";

// Uniforms a to d for the setters; the array has 33 ints, so that reading a 33rd would show.
const std::string fragmentText =
    version +
    "uniform float a; uniform vec2 b; uniform vec3 c; uniform vec4 d; uniform int i;\n"
    "uniform int pattern[33];\nout vec4 color;\n"
    "void main() { int sum = 0; for (int k = 0; k < 33; ++k) sum += pattern[k];\n"
    "  color = vec4(a, b.x, c.x, d.x) * float(i + sum); }\n";

class ShaderTest : public OrlekTest::GlTest {
protected:
    static void load(Shader& shader, std::string text, std::size_t size) {
        EXPECT_TRUE(shader.loadSource(reinterpret_cast<unsigned char*>(text.data()),
                                      static_cast<unsigned>(size)));
    }

    static Shader compiled(Shader::TShaderType type, const std::string& text) {
        Shader shader(type);
        load(shader, text, text.size());
        silently([&] { EXPECT_TRUE(shader.compile()); });
        return shader;
    }

    static ShaderProgram attached(const std::string& vertex, const std::string& fragment) {
        Shader first = compiled(Shader::VERTEX_SHADER, vertex);
        Shader second = compiled(Shader::FRAGMENT_SHADER, fragment);
        ShaderProgram program;
        program.attachShader(first);
        program.attachShader(second);
        return program;
    }

    static std::string sourceOf(Shader& shader) {
        std::array<char, 4096> text{};
        glGetShaderSource(shader.handle(), static_cast<GLsizei>(text.size()), nullptr, text.data());
        return text.data();
    }

    using Four = std::array<float, 4>;
    static Four uniform(ShaderProgram& program, const std::string& name) {
        Four values{};
        glGetUniformfv(program.handle(), glGetUniformLocation(program.handle(), name.c_str()),
                       values.data());
        return values;
    }
};

TEST_F(ShaderTest, PassesTheBytesGivenAndTheLinesOfFiles) {
    const OrlekTest::TempDir dir;
    Shader shader(Shader::VERTEX_SHADER);
    load(shader, vertexText + "this is not GLSL", vertexText.size());
    EXPECT_EQ(sourceOf(shader), vertexText);
    const std::pair<std::string, std::string> rows[] = {
        {"a\n\nb\n", "a\n\nb\n"}, {"", ""}, {"c\nd", "c\nd\n"}};
    for (const auto& [file, source] : rows) {
        EXPECT_TRUE(shader.loadSource(dir.write("source.vert", file)));
        EXPECT_EQ(sourceOf(shader), source);
    }
    for (const std::string& path :
         {dir.path("missing.vert"), dir.path(), std::string("/dev/zero")}) {
        silently([&] { EXPECT_FALSE(shader.loadSource(path)); });
        EXPECT_EQ(sourceOf(shader), rows[2].second);
    }
}

TEST_F(ShaderTest, PrintsEachLogOnce) {
    const auto expectLog = [](const char* word, auto build, auto& built) {
        std::string log;
        provokingErrors([&] { log = captureStdout([&] { EXPECT_FALSE(build()); }); });
        EXPECT_NE(log.find(word), std::string::npos) << log;
        EXPECT_EQ(captureStdout([&] { built.info(); }), log);
    };
    const std::string text = version + "void main() { gl_FragDepth = nonsense; }\n";
    Shader shader(Shader::FRAGMENT_SHADER);
    load(shader, text, text.size());
    expectLog(
        "nonsense", [&] { return shader.compile(); }, shader);
    ShaderProgram program = attached(
        version + "out float between;\nvoid main() { gl_Position = vec4(between = 1.0); }\n",
        version + "in vec4 between; out vec4 color;\nvoid main() { color = between; }\n");
    expectLog(
        "between", [&] { return program.link(); }, program);
}

TEST_F(ShaderTest, BindsLocationsAndSetsUniforms) {
    ShaderProgram program = attached(vertexText, fragmentText);
    program.bindLocation(3, "vertex");
    EXPECT_TRUE(program.link());
    EXPECT_EQ(glGetAttribLocation(program.handle(), "vertex"), 3);
    std::array<int, 33> pattern{};
    std::ranges::fill(pattern, 7);
    silently([&] {
        program.use(true);
        for (const float r : {1.0F, 2.0F}) {  // looked up, then remembered
            program.setFloatVar("a", r);
            program.setFloatVar("b", 2 * r, 3 * r);
            program.setFloatVar("c", 4 * r, 5 * r, 6 * r);
            program.setFloatVar("d", 7 * r, 8 * r, 9 * r, 10 * r);
            program.setIntVar("i", static_cast<int>(r));
            program.setStippleVar("pattern", pattern.data());
            program.setFloatVar("unknown", 1.0F);
        }
        program.setStippleVar("pattern", nullptr);
        program.use(false);
    });
    EXPECT_EQ(uniform(program, "a"), (Four{2}));
    EXPECT_EQ(uniform(program, "b"), (Four{4, 6}));
    EXPECT_EQ(uniform(program, "c"), (Four{8, 10, 12}));
    EXPECT_EQ(uniform(program, "d"), (Four{14, 16, 18, 20}));
    EXPECT_EQ(uniform(program, "i"), (Four{2}));
    for (int k = 0; k < 33; ++k) {
        EXPECT_EQ(uniform(program, "pattern[" + std::to_string(k) + "]"), (Four{k < 32 ? 7.F : 0}));
    }
}

TEST_F(ShaderTest, NamesItsGlCallInErrorLines) {
    ShaderProgram program = attached(vertexText, fragmentText);
    EXPECT_TRUE(program.link());
    ShaderProgram empty;
    Shader none(static_cast<Shader::TShaderType>(9));
    std::array<int, 32> pattern{};
    const struct {
        const char* line;
        std::function<void()> call;
    } rows[] = {
        {"<glUniform1f> <Nix> 1282", [&] { program.setFloatVar("a", 1); }},
        {"<glUniform2f> <Nix> 1282", [&] { program.setFloatVar("b", 1, 2); }},
        {"<glUniform3f> <Nix> 1282", [&] { program.setFloatVar("c", 1, 2, 3); }},
        {"<glUniform4f> <Nix> 1282", [&] { program.setFloatVar("d", 1, 2, 3, 4); }},
        {"<glUniform1i> <Nix> 1282", [&] { program.setIntVar("i", 1); }},
        {"<glUniform1iv> <Nix> 1282", [&] { program.setStippleVar("pattern", pattern.data()); }},
        {"<glAttachShader> <Nix> 1281", [&] { EXPECT_TRUE(program.attachShader(none)); }},
        {"<glDetachShader> <Nix> 1281", [&] { EXPECT_TRUE(program.detachShader(none)); }},
        {"<glBindAttribLocation> <Nix> 1281", [&] { program.bindLocation(-1, "vertex"); }},
        {"<glUseProgram> <Nix> 1282", [&] { EXPECT_TRUE(empty.use(true)); }},
    };
    for (const auto& row : rows) {
        provokingErrors(
            [&] { EXPECT_EQ(captureStdout(row.call), "Error " + std::string(row.line) + "\n"); });
    }
    // An earlier error is not blamed on the next call.
    provokingErrors([] { glEnable(0xFFFF); });
    silently([&] { program.use(false); });
}

TEST_F(ShaderTest, LooksNamesUpAnewAfterAnotherLink) {
    Shader vertex = compiled(Shader::VERTEX_SHADER, vertexText);
    Shader first = compiled(
        Shader::FRAGMENT_SHADER,
        version + "uniform float a, b; out vec4 o;\nvoid main() { o = vec4(a, b, 0, 1); }\n");
    Shader second =
        compiled(Shader::FRAGMENT_SHADER, version +
                                              "uniform float z, b, q[3]; out vec4 o;\n"
                                              "void main() { o = vec4(z, b, q[1], 1); }\n");
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
        program.use(false);
    });
    EXPECT_EQ(uniform(program, "b"), (Four{6}));
    EXPECT_EQ(uniform(program, "z"), (Four{}));
}

}  // namespace
