#version 330 core
// uFragment1: colour of the highlights. Where the wave is low they vanish; on its crest they
// brighten towards white.

uniform vec4 uFragment1;

in float vShimmer;
out vec4 fragColor;

void main() {
    if (vShimmer < 0.3) {
        discard;
    }
    float glint = smoothstep(0.3, 1.0, vShimmer);
    fragColor = vec4(mix(uFragment1.rgb, vec3(1.0), glint * 0.35), 1.0);
}
