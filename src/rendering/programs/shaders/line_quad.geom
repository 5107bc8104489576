#version 330 core
// Widens a separate segment to a band of lineWidth pixels. The scaled space has two units a pixel,
// so that an offset of lineWidth units to either side gives the whole width.
layout(lines) in;
layout(triangle_strip, max_vertices = 4) out;

in vec4 fragmentColor[];
uniform float lineWidth;
uniform vec2 viewPort;
out vec4 fragmentColorG;
out float position;   // across the band, 0 to 1
out float positionG;  // along the line, pixels

vec3 scaled(vec4 p) {
    return vec3(p.xy * viewPort, p.z);
}

void emit(vec3 q, vec4 vertexColor, float across, float along) {
    gl_Position = vec4(q.xy / viewPort, q.z, 1.0);
    fragmentColorG = vertexColor;
    position = across;
    positionG = along;
    EmitVertex();
}

void main() {
    vec3 p0 = scaled(gl_in[0].gl_Position);
    vec3 p1 = scaled(gl_in[1].gl_Position);
    vec3 v = p1 - p0;
    float l = length(v) * 0.5;
    vec3 n = l == 0.0 ? vec3(0.0) : normalize(vec3(-v.y, v.x, v.z)) * lineWidth;

    emit(p0 + n, fragmentColor[0], 0.0, 0.0);
    emit(p0 - n, fragmentColor[0], 1.0, 0.0);
    emit(p1 + n, fragmentColor[1], 0.0, l);
    emit(p1 - n, fragmentColor[1], 1.0, l);
    EndPrimitive();
}
