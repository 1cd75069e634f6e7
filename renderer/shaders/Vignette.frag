#version 330 core
// The blending multiplies this colour with the picture.

in vec4 vColor;
out vec4 fragColor;

void main() {
    fragColor = vColor;
}
