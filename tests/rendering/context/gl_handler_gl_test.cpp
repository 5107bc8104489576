// The shared state on a real driver: start-up lines, programs, errors, uploads.
#include <Orlek/OpenGL/GlHandler.h>

#include <array>
#include <map>
#include <set>

#include "rendering/gl/InfoLog.h"
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

    GlHandler& handler = GlHandler::instance();
};

TEST(GlVersionText, IsParsedByItsLeadingNumbers) {
    struct Case {
        const char* text;
        unsigned number;
        const char* line;
    };
    const Case cases[] = {{"4.6.0 Driver 1.2", 406, "GL version <4.6.0 Driver 1.2> 4.6\n"},
                          {"4.60", 460, "GL version <4.60> 4.60\n"},
                          {"3.30", 330, "GL version <3.30> 3.30\n"},
                          {"3.3.0", 303, "GL version <3.3.0> 3.3\n"},
                          {"5", 500, "GL version <5> 5.0\n"},
                          {"", 0, "GL version <> 0.0\n"}};
    for (const Case& c : cases) {
        unsigned number = 1;
        EXPECT_EQ(captureStdout([&] { number = Orlek::Detail::reportVersion("GL", c.text); }),
                  c.line);
        EXPECT_EQ(number, c.number) << c.text;
    }
}

TEST_F(GlHandlerTest, PrintsItsVersions) {
    const std::string gl = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    const std::string line = captureStdout([&] { EXPECT_GE(handler.glVersion(), 303U); });
    EXPECT_EQ(line.rfind("GL version <" + gl + "> ", 0), 0U) << line;
    const std::string glsl =
        reinterpret_cast<const char*>(glGetString(GL_SHADING_LANGUAGE_VERSION));
    const std::string other = captureStdout([&] { EXPECT_GE(handler.glSlVersion(), 330U); });
    EXPECT_EQ(other.rfind("GLSL version <" + glsl + "> ", 0), 0U) << other;
}

TEST_F(GlHandlerTest, HasElevenProgramsWithTheirUniformsAndLocations) {
    const std::map<unsigned, std::set<std::string>> uniforms = {
        {1, {"mvp"}},
        {2, {"mvp", "color"}},
        {3, {"mvp", "color", "myTextureSampler"}},
        {4,
         {"mvp", "color", "lightDirection", "shadingOn", "terrainShadingFactor", "terrainContrast",
          "terrainBrightness", "osmTerrain", "Texture0", "Texture1", "Texture2"}},
        {5, {"mvp", "color", "offset", "myTextureSampler"}},
        {6, {"mvp", "color", "offset", "outlineColor", "outlineWidth", "Texture0"}},
        {7, {"mvp", "color", "offset"}},
        {8, {"mvp", "color", "lineWidth", "viewPort", "antialias", "lineStipple"}},
        {9, {"mvp", "color", "lineWidth", "viewPort", "antialias", "lineStipple"}},
        {10, {"mvp", "lineWidth", "viewPort", "antialias", "lineStipple"}},
        {11, {"mvp", "color", "stipplePattern", "stippleUse"}}};
    const std::map<std::string, int> locations = {
        {"vertex", 0}, {"vertexUV", 2}, {"color", 4}, {"position", 5}};
    for (const auto& [number, names] : uniforms) {
        handler.activateShader(number);
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
    const int second = integer(GL_CURRENT_PROGRAM);
    EXPECT_EQ(static_cast<unsigned>(second), handler.activeShaderHandle());
    glUseProgram(0);
    handler.activateShader(2);  // is in use already as far as the handler knows: no GL call
    EXPECT_EQ(integer(GL_CURRENT_PROGRAM), 0);
    handler.activateShader(1);
    const unsigned first = handler.activeShaderHandle();
    EXPECT_NE(static_cast<unsigned>(second), first);
    handler.activateShader(12);  // no such program
    handler.activateShader(0);
    EXPECT_EQ(handler.activeShaderHandle(), first);
    handler.deactivateShader();
    EXPECT_EQ(integer(GL_CURRENT_PROGRAM), 0);
    glUseProgram(first);
    handler.deactivateShader();  // nothing in use as far as the handler knows: no GL call
    EXPECT_EQ(static_cast<unsigned>(integer(GL_CURRENT_PROGRAM)), first);
    glUseProgram(0);
}

TEST_F(GlHandlerTest, DoesNothingWithoutAProgram) {
    handler.deactivateShader();
    std::array<int, 32> pattern{};
    silently([&] {
        EXPECT_EQ(handler.activeShaderHandle(), 0U);
        handler.setFloatVar("color", 1, 1, 1, 1);
        handler.setIntVar("antialias", 1);
        handler.setStippleVar("stipplePattern", pattern.data());
        handler.activateViewPort();
        MatrixActivate();
    });
}

TEST_F(GlHandlerTest, UploadsMatrixAndViewport) {
    handler.activateShader(8);
    handler.setViewPort({640, 480});
    EXPECT_EQ(handler.viewPort().x, 640.0F);
    Orlek::Math::Matrix4<float> matrix{};
    for (std::size_t i = 0; i < 16; ++i) {
        matrix.m[i] = static_cast<float>(i) + 0.5F;
    }
    MatrixSet(matrix);
    silently([&] {
        handler.activateViewPort();
        MatrixActivate();
    });
    const unsigned program = handler.activeShaderHandle();
    std::array<float, 16> values{};
    glGetUniformfv(program, glGetUniformLocation(program, "mvp"), values.data());
    EXPECT_EQ(values[1], 1.5F);
    EXPECT_EQ(values[12], 12.5F);
    glGetUniformfv(program, glGetUniformLocation(program, "viewPort"), values.data());
    EXPECT_EQ(values[0], 640.0F);
    EXPECT_EQ(values[1], 480.0F);
}

TEST_F(GlHandlerTest, ReportsPendingErrors) {
    silently([] { GlHandler::checkError("Lines", "Nix"); });
    const std::string text = captureStdout([] {
        captureStderr([] { glEnable(0xFFFF); });
        GlHandler::checkError("Lines", "Nix");
    });
    EXPECT_EQ(text, "Error <Lines> <Nix> 1280\n");
    glEnable(0xFFFF);
    GlHandler::clearError();
    silently([] { GlHandler::checkError("Lines", "Nix"); });
}

TEST_F(GlHandlerTest, SendsDriverErrorsToTheErrorStream) {
    if (glDebugMessageCallback == nullptr) {
        GTEST_SKIP() << "the driver has no debug output";
    }
    const std::string text = captureStderr([] { glEnable(0xFFFF); });
    EXPECT_EQ(text.rfind("GL CALLBACK: ** GL ERROR ** type = 0x824c, severity = 0x", 0), 0U)
        << text;
    EXPECT_NE(text.find(", message = "), std::string::npos) << text;
    const std::string other = captureStderr([] {
        glDebugMessageInsert(GL_DEBUG_SOURCE_APPLICATION, GL_DEBUG_TYPE_OTHER, 1,
                             GL_DEBUG_SEVERITY_HIGH, -1, "not an error");
    });
    EXPECT_EQ(other, "");
    GlHandler::clearError();
}

TEST_F(GlHandlerTest, BuildsItsProgramsAnew) {
    handler.activateShader(2);
    const unsigned before = handler.activeShaderHandle();
    silently([&] { handler.initStandardShaders(); });
    EXPECT_EQ(handler.activeShaderHandle(), 0U);
    handler.activateShader(2);
    EXPECT_NE(handler.activeShaderHandle(), before);
    EXPECT_EQ(static_cast<unsigned>(integer(GL_CURRENT_PROGRAM)), handler.activeShaderHandle());
}

}  // namespace
