#version 330 core
// Stipple along the line and soft edges across it.
in vec4 fragmentColorG;
in float position;
in float positionG;
uniform int antialias;
uniform int lineStipple;
out vec4 colorx;

const float edge = 0.3;

void main() {
    if (lineStipple != 0 && (lineStipple & (1 << (int(positionG) % 32))) == 0) {
        discard;
    }
    float alpha = 1.0;
    if (antialias != 0) {
        if (position < edge) {
            alpha = smoothstep(0.0, edge, position);
        } else if (position > 1.0 - edge) {
            alpha = 1.0 - smoothstep(1.0 - edge, 1.0, position);
        }
    }
    colorx = vec4(fragmentColorG.rgb, fragmentColorG.a * alpha);
}
