#version 330 core
// A square from -1 to 1 becomes a part of the page.
in vec4 vertex;
uniform vec3 circle;  // centre and radius on the page of 960 x 600
out vec2 place;

void main() {
    place = vertex.xy;
    gl_Position = vec4((circle.xy + vertex.xy * circle.z) / vec2(480.0, 300.0) - 1.0, 0.0, 1.0);
}
