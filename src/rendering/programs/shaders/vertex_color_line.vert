#version 330 core
// A colour for each vertex, and its distance along the line in pixels.
in vec4 vertex;
in vec4 color;
in float position;
uniform mat4 mvp;
out vec4 fragmentColor;
out float positionV;

void main() {
    gl_Position = mvp * vertex;
    fragmentColor = color;
    positionV = position;
}
