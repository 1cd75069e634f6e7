#version 330 core
// uFragmentTexture0: the caustic pattern, tiling.
// uFragment1: phase of the small pattern, a sawtooth from 0 to 5.
// uFragment2: phase of the large pattern, from 0 to 1.
// uFragment3: tiling of the small pattern over the water's texture coordinates.
// Both layers drift by whole tiles over one phase, so the wrap of a phase never jumps.

uniform sampler2D uFragmentTexture0;
uniform float uFragment1;
uniform float uFragment2;
uniform float uFragment3;

in vec2 vUv;
in float vDistance;
flat in vec3 vNear;
flat in vec3 vFar;
flat in vec2 vColorRange;
flat in vec4 vCaustics;

out vec4 fragColor;

void main() {
    float farness = smoothstep(vColorRange.x, max(vColorRange.y, vColorRange.x + 1e-3), vDistance);
    vec3 water = mix(vNear, vFar, farness);

    vec2 small = vUv * uFragment3 + uFragment1 * vec2(0.2, 0.4);
    vec2 large = vUv * (uFragment3 * 0.37) + uFragment2 * vec2(-1.0, 1.0);
    float causticSmall = texture(uFragmentTexture0, small).r;
    float causticLarge = texture(uFragmentTexture0, large).r;
    // Where the bright lines of both layers cross, the light gathers.
    float caustic = min(causticSmall, causticLarge) * 0.65 + causticSmall * causticLarge * 0.35;

    float end = min(vCaustics.x, vCaustics.w);
    float fade = 1.0 - smoothstep(end - vCaustics.y, end, vDistance);
    vec3 light = mix(vec3(1.0), vFar, 0.35);
    vec3 colour = water + light * caustic * vCaustics.z * fade * 0.45;
    fragColor = vec4(colour, 1.0);
}
