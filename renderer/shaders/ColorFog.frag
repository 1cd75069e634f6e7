#version 330 core
// uFragment1: the colour. uFragment2: the colour of the haze.

uniform vec4 uFragment1;
uniform vec4 uFragment2;

in float vFog;
out vec4 fragColor;

void main() {
    fragColor = vec4(mix(uFragment1.rgb, uFragment2.rgb, vFog), 1.0);
}
