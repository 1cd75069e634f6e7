#version 330 core
// uFragmentTexture0: the picture, usually the result of a blur chain.

uniform sampler2D uFragmentTexture0;

in vec2 vUv;
out vec4 fragColor;

void main() {
    fragColor = texture(uFragmentTexture0, vUv);
}
