#version 330 core
// One colour, drawn at an offset in model coordinates.
in vec4 vertex;
uniform mat4 mvp;
uniform vec4 color;
uniform vec3 offset;
out vec4 fragmentColor;

void main() {
    gl_Position = mvp * vec4(vertex.xyz + offset, vertex.w);
    fragmentColor = color;
}
