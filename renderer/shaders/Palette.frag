#version 330 core
// uFragmentTexture0: the palette, a strip read along its middle row.

uniform sampler2D uFragmentTexture0;

in float vPaletteU;
out vec4 fragColor;

void main() {
    fragColor = vec4(texture(uFragmentTexture0, vec2(vPaletteU, 0.5)).rgb, 1.0);
}
