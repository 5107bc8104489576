#version 330 core
// Texture coordinates and one colour, drawn at an offset in model coordinates.
in vec4 vertex;
in vec2 vertexUV;
uniform mat4 mvp;
uniform vec4 color;
uniform vec3 offset;
out vec4 fragmentColor;
out vec2 UV;

void main() {
    gl_Position = mvp * vec4(vertex.xyz + offset, vertex.w);
    fragmentColor = color;
    UV = vertexUV;
}
