// The shared state on a real driver: start-up lines, programs, errors.
#include <Orlek/OpenGL/GlHandler.h>

#include <array>
#include <map>
#include <set>

#include "rendering/gl/InfoLog.h"
#include "rendering/gl/Names.h"
#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekTest::captureStderr;
using OrlekTest::captureStdout;

class GlHandlerTest : public OrlekTest::GlTest {
protected:
    void TearDown() override {
        handler.deactivateShader();
        GlTest::TearDown();
    }

    static unsigned inUse() { return static_cast<unsigned>(integer(GL_CURRENT_PROGRAM)); }

    GlHandler& handler = GlHandler::instance();
};

TEST(GlVersionText, IsParsedByItsLeadingNumbers) {
    const struct {
        const char* text;
        unsigned number;
        const char* line;
    } rows[] = {{"4.6.0 Driver 1.2", 406, "GL version <4.6.0 Driver 1.2> 4.6\n"},
                {"3.30", 330, "GL version <3.30> 3.30\n"},
                {"5", 500, "GL version <5> 5.0\n"},
                {"", 0, "GL version <> 0.0\n"}};
    for (const auto& row : rows) {
        unsigned number = 1;
        EXPECT_EQ(captureStdout([&] { number = Orlek::Detail::reportVersion("GL", row.text); }),
                  row.line);
        EXPECT_EQ(number, row.number) << row.text;
    }
}

TEST_F(GlHandlerTest, PrintsItsVersions) {
    const std::string lines = captureStdout([&] {
        EXPECT_GE(handler.glVersion(), 303U);
        EXPECT_GE(handler.glSlVersion(), 330U);
    });
    const auto* gl = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    const auto* glsl = reinterpret_cast<const char*>(glGetString(GL_SHADING_LANGUAGE_VERSION));
    EXPECT_EQ(lines.rfind("GL version <" + std::string(gl) + "> ", 0), 0U) << lines;
    EXPECT_NE(lines.find("\nGLSL version <" + std::string(glsl) + "> "), std::string::npos)
        << lines;
}

TEST_F(GlHandlerTest, HasElevenProgramsWithTheirUniformsAndLocations) {
    const std::set<std::string> uniforms[] = {
        {"mvp"},
        {"mvp", "color"},
        {"mvp", "color", "myTextureSampler"},
        {"mvp", "color", "lightDirection", "shadingOn", "terrainShadingFactor", "terrainContrast",
         "terrainBrightness", "osmTerrain", "Texture0", "Texture1", "Texture2"},
        {"mvp", "color", "offset", "myTextureSampler"},
        {"mvp", "color", "offset", "outlineColor", "outlineWidth", "Texture0"},
        {"mvp", "color", "offset"},
        {"mvp", "color", "lineWidth", "viewPort", "antialias", "lineStipple"},
        {"mvp", "color", "lineWidth", "viewPort", "antialias", "lineStipple"},
        {"mvp", "lineWidth", "viewPort", "antialias", "lineStipple"},
        {"mvp", "color", "stipplePattern", "stippleUse"}};
    const std::map<std::string, int> locations = {
        {"vertex", 0}, {"vertexUV", 2}, {"color", 4}, {"position", 5}};
    unsigned number = 0;
    for (const std::set<std::string>& names : uniforms) {
        handler.activateShader(++number);
        const unsigned program = handler.activeShaderHandle();
        ASSERT_NE(program, 0U) << number;
        for (const std::string& name : names) {
            EXPECT_GE(glGetUniformLocation(program, name.c_str()), 0) << number << " " << name;
        }
        GLint count = 0;
        glGetProgramiv(program, GL_ACTIVE_UNIFORMS, &count);
        EXPECT_EQ(static_cast<std::size_t>(count), names.size()) << number;
        for (const auto& [name, location] : locations) {
            const int actual = glGetAttribLocation(program, name.c_str());
            EXPECT_TRUE(actual == -1 || actual == location) << number << " " << name;
        }
    }
}

TEST_F(GlHandlerTest, KeepsTrackOfTheProgramInUse) {
    handler.activateShader(2);
    const unsigned second = handler.activeShaderHandle();
    EXPECT_EQ(inUse(), second);
    glUseProgram(0);
    handler.activateShader(2);  // is in use already as far as the handler knows: no GL call
    EXPECT_EQ(inUse(), 0U);
    handler.activateShader(1);
    const unsigned first = handler.activeShaderHandle();
    EXPECT_NE(second, first);
    handler.activateShader(12);  // no such program
    handler.activateShader(0);
    EXPECT_EQ(handler.activeShaderHandle(), first);
    handler.deactivateShader();
    EXPECT_EQ(inUse(), 0U);
    glUseProgram(first);
    handler.deactivateShader();  // nothing in use as far as the handler knows: no GL call
    EXPECT_EQ(inUse(), first);
    glUseProgram(0);
    std::array<int, 32> pattern{};
    silently([&] {
        EXPECT_EQ(handler.activeShaderHandle(), 0U);
        handler.setFloatVar("color", 1, 1, 1, 1);
        handler.setIntVar("antialias", 1);
        handler.setStippleVar("stipplePattern", pattern.data());
        handler.activateViewPort();
        MatrixActivate();
    });
    handler.activateShader(2);
    silently([&] { handler.initStandardShaders(); });
    handler.activateShader(2);
    EXPECT_NE(handler.activeShaderHandle(), second) << "all programs are built anew";
    EXPECT_EQ(inUse(), handler.activeShaderHandle());
}

TEST_F(GlHandlerTest, LeavesTheObjectsOfANewContextAlone) {
    unsigned buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    Orlek::Detail::parkNames(Orlek::Detail::NameKind::Buffer, {&buffer, 1});
    silently([&] { handler.initStandardShaders(); });
    deleteParked();
    EXPECT_TRUE(glIsBuffer(buffer)) << "it has the name of one that went with its context";
    glDeleteBuffers(1, &buffer);
}

TEST_F(GlHandlerTest, SetsUniformsOfTheProgramInUse) {
    const auto stored = [](const char* name) {
        const unsigned program = GlHandler::instance().activeShaderHandle();
        std::array<float, 3> values{};
        glGetUniformfv(program, glGetUniformLocation(program, name), values.data());
        return values;
    };
    handler.activateShader(4);
    silently([&] { handler.setFloatVar("lightDirection", 1, 2, 3); });
    EXPECT_EQ(stored("lightDirection"), (std::array{1.0F, 2.0F, 3.0F}));
    handler.activateShader(11);
    std::array<int, 32> pattern{};
    pattern[31] = 5;
    silently([&] { handler.setStippleVar("stipplePattern", pattern.data()); });
    EXPECT_EQ(stored("stipplePattern[31]")[0], 5.0F);
}

TEST_F(GlHandlerTest, ReportsPendingErrors) {
    const auto check = [] { GlHandler::checkError("Lines", "Nix"); };
    silently(check);
    const std::string driver = captureStderr([] { glEnable(0xFFFF); });
    EXPECT_EQ(captureStdout(check), "Error <Lines> <Nix> 1280\n");
    provokingErrors([] { glEnable(0xFFFF); });
    GlHandler::clearError();
    silently(check);
    if (glDebugMessageCallback == nullptr) {
        GTEST_SKIP() << "the driver has no debug output";
    }
    EXPECT_EQ(driver.rfind("GL CALLBACK: ** GL ERROR ** type = 0x824c, severity = 0x", 0), 0U)
        << driver;
    EXPECT_NE(driver.find(", message = "), std::string::npos) << driver;
    EXPECT_EQ(captureStderr([] {
                  glDebugMessageInsert(GL_DEBUG_SOURCE_APPLICATION, GL_DEBUG_TYPE_OTHER, 1,
                                       GL_DEBUG_SEVERITY_HIGH, -1, "not an error");
              }),
              "");
}

}  // namespace
