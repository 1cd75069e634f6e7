#version 330 core
// The towers of the night city, lit by the sky and glowing from their windows.
// uVertex1: model-view-projection matrix.
// uVertex2: model matrix, to light and reflect in world space.

layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec2 aUv;
layout(location = 2) in vec3 aNormal;

uniform mat4 uVertex1;
uniform mat4 uVertex2;

out vec2 vUv;
out vec3 vWorld;
out vec3 vNormal;

void main() {
    vUv = aUv;
    vWorld = (uVertex2 * vec4(aPosition, 1.0)).xyz;
    vNormal = mat3(uVertex2) * aNormal;
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
}
