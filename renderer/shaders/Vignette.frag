#version 330 core
// The blending multiplies this colour with the picture.

in vec4 vColor;
out vec4 fragColor;

void main() {
    // The mesh holds each triangle in both windings; only the front-facing copy counts.
    if (!gl_FrontFacing) {
        discard;
    }
    fragColor = vColor;
}
