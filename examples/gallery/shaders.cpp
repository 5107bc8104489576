// Shader, ShaderProgram: a program of your own. GlHandler: the wide-line programs 8 to 10.
#include <GL/gl.h>

#include "Show.h"
#include "VertexArray.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

ShaderProgram load(const std::string& vertexFile, const std::string& fragmentFile) {
    Shader vertex(Shader::VERTEX_SHADER);
    Shader fragment(Shader::FRAGMENT_SHADER);
    vertex.loadSource(vertexFile);
    fragment.loadSource(fragmentFile);
    ShaderProgram program;
    for (Shader* stage : {&vertex, &fragment}) {
        stage->compile();  // prints what the compiler says
        program.attachShader(*stage);
    }
    program.bindLocation(0, "vertex");
    program.link();
    return program;
}

void drawWide(unsigned int program, const VertexArray& line, float width, int stipple, bool smooth,
              const Colour& colour) {
    GlHandler& gl = GlHandler::instance();
    gl.activateShader(program);
    gl.activateViewPort();
    gl.setFloatVar("lineWidth", pixels(width));
    gl.setFloatVar("color", colour.x, colour.y, colour.z, colour.w);
    gl.setIntVar("lineStipple", stipple);
    gl.setIntVar("antialias", smooth ? 1 : 0);
    MatrixActivate();
    line.draw(program == 8 ? GL_LINES : GL_LINE_STRIP_ADJACENCY);
    gl.deactivateShader();
}

Points zigzag(const Box& box) {
    return withAdjacency(box.points(
        {{0.1, 0.1}, {0.3, 0.85}, {0.45, 0.15}, {0.7, 0.9}, {0.75, 0.35}, {0.95, 0.35}}));
}

struct Picture {
    Sheet sheet{"Shaders", "A program of your own; wide lines over your own buffers.", 3, 2};
    Box screen = sheet.sample(0, 0, "Shader, ShaderProgram", "radar.vert and radar.frag");
    VertexArray square{Points{{-1, -1}, {1, -1}, {-1, 1}, {1, 1}}};
    ShaderProgram radar = load(SHADERS "/radar.vert", SHADERS "/radar.frag");
    Box pairs = sheet.sample(1, 0, "activateShader(8)", "separate lines of 12 pixels");
    VertexArray separate{polygon(pairs.centre(), 76, 14, 5)};
    VertexArray joined{zigzag(sheet.sample(2, 0, "activateShader(9)", "joined: adjacency strips"))};
    VertexArray dashed{zigzag(sheet.sample(0, 1, "lineStipple 0x0FFF0FFF", "along attribute 5"))};
    VertexArray hard{zigzag(sheet.sample(1, 1, "antialias 0", "hard edges"))};
    VertexArray colours{
        zigzag(sheet.sample(2, 1, "activateShader(10)", "a colour for each vertex")),
        {red, red, amber, green, cyan, blue, magenta, magenta}};

    void draw(double seconds) {
        sheet.draw();
        radar.use(true);
        radar.setFloatVar("circle", screen.centre().x, screen.centre().y, 80);
        radar.setFloatVar("seconds", static_cast<float>(seconds));
        square.draw(GL_TRIANGLE_STRIP);
        radar.use(false);
        drawWide(8, separate, 12, 0, true, amber);
        drawWide(9, joined, 14, 0, true, cyan);
        drawWide(9, dashed, 10, 0x0FFF0FFF, true, green);
        drawWide(9, hard, 14, 0, false, magenta);
        drawWide(10, colours, 14, 0, true, white);
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "shaders");
}
