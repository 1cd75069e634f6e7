#version 330 core
// uFragmentTexture0: the sky gradient of the time of day.
// uFragmentTexture1: a blue-noise tile, repeated over the screen pixel by pixel.
// A slow gradient in 8 bits shows bands; adding a little more than one step of blue noise
// breaks them up into a grain too fine to see.

uniform sampler2D uFragmentTexture0;
uniform sampler2D uFragmentTexture1;

in vec2 vUv;
out vec4 fragColor;

void main() {
    vec3 sky = texture(uFragmentTexture0, vUv).rgb;
    ivec2 tile = textureSize(uFragmentTexture1, 0);
    ivec2 texel = ivec2(gl_FragCoord.xy) % max(tile, ivec2(1));
    float noise = texelFetch(uFragmentTexture1, texel, 0).r;
    fragColor = vec4(sky + (noise - 0.5) * (1.5 / 255.0), 1.0);
}
