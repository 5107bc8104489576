#version 330 core
// One colour, and the distance of each vertex along its line in pixels.
in vec4 vertex;
in float position;
uniform mat4 mvp;
uniform vec4 color;
out vec4 fragmentColor;
out float positionV;

void main() {
    gl_Position = mvp * vertex;
    fragmentColor = color;
    positionV = position;
}
