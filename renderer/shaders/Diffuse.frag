#version 330 core
// uFragmentTexture0: the diffuse texture or palette, as the draw gives it.

uniform sampler2D uFragmentTexture0;

in vec2 vUv;
out vec4 fragColor;

void main() {
    fragColor = texture(uFragmentTexture0, vUv);
}
