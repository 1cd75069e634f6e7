#version 330 core
// A textured model: the sun, the sleeping animals (palette by UV), the rooms, neon signs.
// uVertex1: model-view-projection matrix.

layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec2 aUv;

uniform mat4 uVertex1;

out vec2 vUv;

void main() {
    vUv = aUv;
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
}
