#version 330 core
// The glyph's edge lies at distance 0.5; the outline reaches outlineWidth below it.
in vec4 fragmentColor;
in vec2 UV;
uniform vec4 outlineColor;
uniform float outlineWidth;
uniform sampler2D Texture0;
out vec4 color;

// Where the field does not change smoothstep() would have equal edges, which is undefined; and with
// an outline as wide as the field, what is empty would count as outline.
const float least = 1e-6;

void main() {
    float d = texture(Texture0, UV).a;
    float w = max(fwidth(d), least);
    float outer = max(0.5 - outlineWidth, least);
    float alpha = smoothstep(outer - w, outer + w, d);
    float border = smoothstep(0.5 - w, 0.5 + w, d);
    vec4 tint = outlineWidth > 0.001 ? mix(outlineColor, fragmentColor, border) : fragmentColor;
    color = vec4(tint.rgb, tint.a * alpha);
}
