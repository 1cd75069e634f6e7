#version 330 core
// Gaussian blur along one direction: 2 * RADIUS + 1 taps at whole texels. The library builds
// GaussianBlur (radius 5, sigma 2.6 texels) from this source as it stands and GaussianBlur4,
// GaussianBlur3 and GaussianBlur2 (sigma 2.1, 1.6 and 1.1 texels) with RADIUS defined to 4, 3, 2.
// uFragmentTexture0: the picture to blur.
// uFragment1: direction, (1, 0) across or (0, 1) down, in texels.
// uFragment2: brightness, a factor on the result.

uniform sampler2D uFragmentTexture0;
uniform vec2 uFragment1;
uniform float uFragment2;

in vec2 vUv;
out vec4 fragColor;

#ifndef RADIUS
#define RADIUS 5
#endif

#if RADIUS == 5
const float WEIGHTS[RADIUS + 1] = float[](
    0.158724, 0.147408, 0.118074, 0.081572, 0.048605, 0.024979);
#elif RADIUS == 4
const float WEIGHTS[RADIUS + 1] = float[](
    0.195952, 0.174949, 0.124506, 0.070631, 0.031938);
#elif RADIUS == 3
const float WEIGHTS[RADIUS + 1] = float[](
    0.256038, 0.210611, 0.117223, 0.044147);
#elif RADIUS == 2
const float WEIGHTS[RADIUS + 1] = float[](
    0.369546, 0.244460, 0.070766);
#endif

void main() {
    vec2 texel = uFragment1 / vec2(textureSize(uFragmentTexture0, 0));
    vec4 sum = texture(uFragmentTexture0, vUv) * WEIGHTS[0];
    for (int i = 1; i <= RADIUS; ++i) {
        sum += texture(uFragmentTexture0, vUv + texel * float(i)) * WEIGHTS[i];
        sum += texture(uFragmentTexture0, vUv - texel * float(i)) * WEIGHTS[i];
    }
    fragColor = sum * uFragment2;
}
