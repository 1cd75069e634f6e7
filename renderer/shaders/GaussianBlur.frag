#version 330 core
// Gaussian blur along one direction: 11 taps at whole texels, sigma 2.6 texels.
// uFragmentTexture0: the picture to blur.
// uFragment1: direction, (1, 0) across or (0, 1) down, in texels.
// uFragment2: brightness, a factor on the result.

uniform sampler2D uFragmentTexture0;
uniform vec2 uFragment1;
uniform float uFragment2;

in vec2 vUv;
out vec4 fragColor;

const int RADIUS = 5;
const float WEIGHTS[RADIUS + 1] = float[](
    0.158724, 0.147408, 0.118074, 0.081572, 0.048605, 0.024979);

void main() {
    vec2 texel = uFragment1 / vec2(textureSize(uFragmentTexture0, 0));
    vec4 sum = texture(uFragmentTexture0, vUv) * WEIGHTS[0];
    for (int i = 1; i <= RADIUS; ++i) {
        sum += texture(uFragmentTexture0, vUv + texel * float(i)) * WEIGHTS[i];
        sum += texture(uFragmentTexture0, vUv - texel * float(i)) * WEIGHTS[i];
    }
    fragColor = sum * uFragment2;
}
