#version 330 core
// The texture gives coverage only.
in vec4 fragmentColor;
in vec2 UV;
uniform sampler2D myTextureSampler;
out vec4 color;

void main() {
    color = fragmentColor * vec4(1.0, 1.0, 1.0, texture(myTextureSampler, UV).a);
}
