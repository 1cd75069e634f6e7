#version 330 core
// uFragmentTexture0: the palette of the time of day.

uniform sampler2D uFragmentTexture0;

in vec2 vUv;
out vec4 fragColor;

void main() {
    fragColor = vec4(texture(uFragmentTexture0, vUv).rgb, 1.0);
}
