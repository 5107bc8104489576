#version 330 core
// A radar screen: rings, and a beam that turns once in four seconds and fades behind itself.
in vec2 place;
uniform float seconds;
out vec4 color;

void main() {
    float range = length(place);
    float age = fract(seconds * 0.25 - atan(place.x, place.y) / 6.2831853);
    float beam = pow(1.0 - age, 5.0);
    float ring = 1.0 - smoothstep(0.0, fwidth(range), abs(range - round(range * 4.0) / 4.0));
    float echo = smoothstep(0.86, 0.95, sin(place.x * 9.0 + 1.0) * cos(place.y * 7.0));
    float glow = 0.12 + 0.5 * beam + 0.3 * ring * step(0.1, range) + echo * (1.0 - age);
    float inside = 1.0 - smoothstep(0.985, 1.0, range);
    color = vec4(vec3(0.25, 1.0, 0.5) * glow, inside);
}
