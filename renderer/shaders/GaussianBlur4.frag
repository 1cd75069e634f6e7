#version 330 core
// Gaussian blur along one direction: 9 taps at whole texels, sigma 2.1 texels.
// uFragmentTexture0: the picture to blur.
// uFragment1: direction, (1, 0) across or (0, 1) down, in texels.
// uFragment2: brightness, a factor on the result.

uniform sampler2D uFragmentTexture0;
uniform vec2 uFragment1;
uniform float uFragment2;

in vec2 vUv;
out vec4 fragColor;

const int RADIUS = 4;
const float WEIGHTS[RADIUS + 1] = float[](
    0.195952, 0.174949, 0.124506, 0.070631, 0.031938);

void main() {
    vec2 texel = uFragment1 / vec2(textureSize(uFragmentTexture0, 0));
    vec4 sum = texture(uFragmentTexture0, vUv) * WEIGHTS[0];
    for (int i = 1; i <= RADIUS; ++i) {
        sum += texture(uFragmentTexture0, vUv + texel * float(i)) * WEIGHTS[i];
        sum += texture(uFragmentTexture0, vUv - texel * float(i)) * WEIGHTS[i];
    }
    fragColor = sum * uFragment2;
}
