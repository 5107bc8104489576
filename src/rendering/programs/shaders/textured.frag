#version 330 core
in vec4 fragmentColor;
in vec2 UV;
uniform sampler2D myTextureSampler;
out vec4 color;

void main() {
    color = texture(myTextureSampler, UV) * fragmentColor;
}
