#version 330 core
// A colour of its own for each vertex.
in vec4 vertex;
in vec4 color;
uniform mat4 mvp;
out vec4 fragmentColor;

void main() {
    gl_Position = mvp * vertex;
    fragmentColor = color;
}
