#version 330 core
// One colour for all vertices.
in vec4 vertex;
uniform mat4 mvp;
uniform vec4 color;
out vec4 fragmentColor;

void main() {
    gl_Position = mvp * vertex;
    fragmentColor = color;
}
