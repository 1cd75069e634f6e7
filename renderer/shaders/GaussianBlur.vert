#version 330 core
// One pass of a separable Gaussian blur over the whole target for every radius (see GaussianBlur.frag).

layout(location = 0) in vec2 aPosition;
layout(location = 1) in vec2 aUv;

out vec2 vUv;

void main() {
    // The quad has v = 0 at the top; GL pictures start at the bottom.
    vUv = vec2(aUv.x, 1.0 - aUv.y);
    gl_Position = vec4(aPosition, 0.0, 1.0);
}
