#version 330 core
// Texture coordinates and one colour; also the vertex stage of the terrain.
in vec4 vertex;
in vec2 vertexUV;
uniform mat4 mvp;
uniform vec4 color;
out vec4 fragmentColor;
out vec2 UV;

void main() {
    gl_Position = mvp * vertex;
    fragmentColor = color;
    UV = vertexUV;
}
