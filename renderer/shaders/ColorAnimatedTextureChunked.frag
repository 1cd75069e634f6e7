#version 330 core
// uFragment1: the colour of the animal, drawn opaque.

uniform vec4 uFragment1;

out vec4 fragColor;

void main() {
    fragColor = vec4(uFragment1.rgb, 1.0);
}
