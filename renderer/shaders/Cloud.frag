#version 330 core
// uFragment1: cloud colour; its alpha is how much the thin parts darken against the thick.
// Clouds are drawn opaque, shaded by density.

uniform vec4 uFragment1;

in float vDensity;
out vec4 fragColor;

void main() {
    float shade = mix(1.0 - uFragment1.a, 1.0, smoothstep(0.0, 1.0, vDensity));
    fragColor = vec4(uFragment1.rgb * shade, 1.0);
}
