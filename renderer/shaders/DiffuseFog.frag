#version 330 core
// uFragmentTexture0: the texture. uFragment1: the colour of the haze.

uniform sampler2D uFragmentTexture0;
uniform vec4 uFragment1;

in vec2 vUv;
in float vFog;
out vec4 fragColor;

void main() {
    vec3 base = texture(uFragmentTexture0, vUv).rgb;
    fragColor = vec4(mix(base, uFragment1.rgb, vFog), 1.0);
}
