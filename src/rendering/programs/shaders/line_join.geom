#version 330 core
// Widens the middle segment of four vertices to a band of lineWidth pixels; an extra pair of
// vertices at each end fills the joint with the neighbouring segment.
layout(lines_adjacency) in;
layout(triangle_strip, max_vertices = 8) out;

in vec4 fragmentColor[4];
in float positionV[4];
uniform float lineWidth;
uniform float lfactor;  // part of the interface, without effect
uniform vec2 viewPort;
out vec4 fragmentColorG;
out float position;   // across the band, 0 to 1
out float positionG;  // along the line, pixels

vec3 scaled(vec4 p) {
    return vec3(p.xy * viewPort, p.z);
}

vec3 normalOf(vec3 from, vec3 to) {
    vec3 v = to - from;
    // A doubled end has no direction; its pair of vertices collapses to a point.
    return v == vec3(0.0) ? vec3(0.0) : normalize(vec3(-v.y, v.x, v.z)) * lineWidth;
}

void emit(vec3 q, vec4 vertexColor, float across, float along) {
    gl_Position = vec4(q.xy / viewPort, q.z, 1.0);
    fragmentColorG = vertexColor;
    position = across;
    positionG = along;
    EmitVertex();
}

void emitPair(vec3 p, vec3 n, vec4 vertexColor, float along) {
    emit(p + n, vertexColor, 0.0, along);
    emit(p - n, vertexColor, 1.0, along);
}

void main() {
    vec3 p0 = scaled(gl_in[0].gl_Position);
    vec3 p1 = scaled(gl_in[1].gl_Position);
    vec3 p2 = scaled(gl_in[2].gl_Position);
    vec3 p3 = scaled(gl_in[3].gl_Position);
    vec3 n01 = normalOf(p0, p1);
    vec3 n12 = normalOf(p1, p2);
    vec3 n23 = normalOf(p2, p3);

    emitPair(p1, n01, fragmentColor[0], positionV[1]);
    emitPair(p1, n12, fragmentColor[1], positionV[1]);
    emitPair(p2, n12, fragmentColor[2], positionV[2]);
    emitPair(p2, n23, fragmentColor[3], positionV[2]);
    EndPrimitive();
}
