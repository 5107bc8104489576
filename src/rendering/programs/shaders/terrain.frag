#version 330 core
// A map image blended with height colours, both under one directional light.
in vec4 fragmentColor;
in vec2 UV;
uniform vec3 lightDirection;
uniform int shadingOn;
uniform float terrainShadingFactor;
uniform float terrainContrast;
uniform float terrainBrightness;
uniform float osmTerrain;    // 1 shows the map image only, 0 the height colours only
uniform sampler2D Texture0;  // map image
uniform sampler2D Texture1;  // surface normal in rgb, height in a
uniform sampler1D Texture2;  // colour by height
out vec4 color;

float incidence(vec3 encodedNormal) {
    if (shadingOn == 0) {
        return 1.0;
    }
    vec3 n = normalize((encodedNormal - 0.5) * 2.0);
    vec3 l = normalize(-lightDirection);
    return max(dot(l, n), 0.0);
}

void main() {
    vec4 surface = texture(Texture1, UV);
    float b = (1.0 - terrainShadingFactor) + incidence(surface.rgb) * terrainShadingFactor;
    vec4 map = texture(Texture0, UV) * vec4(fragmentColor.rgb * b, fragmentColor.a);
    vec4 relief = vec4(texture(Texture2, surface.a).rgb * b, 1.0);
    vec4 c = map * osmTerrain + relief * (1.0 - osmTerrain);
    color = vec4((terrainContrast * (c.rgb - 0.5) + 0.5) * terrainBrightness, c.a);
}
