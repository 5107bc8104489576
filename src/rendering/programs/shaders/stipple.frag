#version 330 core
// A 32 x 32 pattern fixed to window pixels: one int a row, bit 0 leftmost.
in vec4 fragmentColor;
uniform int stipplePattern[32];
uniform int stippleUse;
out vec4 color;

void main() {
    if (stippleUse == 1) {
        int col = int(gl_FragCoord.x) % 32;
        int row = int(gl_FragCoord.y) % 32;
        if ((stipplePattern[row] & (1 << col)) == 0) {
            discard;
        }
    }
    color = fragmentColor;
}
