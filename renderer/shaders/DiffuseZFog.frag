#version 330 core
// uFragmentTexture0: the palette.
// uFragment1: fog colour; its alpha is the strongest share of fog (at the foot).

uniform sampler2D uFragmentTexture0;
uniform vec4 uFragment1;

in float vPaletteU;
in float vHeightFog;
out vec4 fragColor;

void main() {
    vec3 base = texture(uFragmentTexture0, vec2(vPaletteU, 0.5)).rgb;
    float fog = clamp(vHeightFog, 0.0, 1.0) * uFragment1.a;
    fragColor = vec4(mix(base, uFragment1.rgb, fog), 1.0);
}
