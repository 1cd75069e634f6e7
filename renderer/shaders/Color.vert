#version 330 core
// Flat colour: stars, and the flat-shaded models of the sample valley.
// uVertex1: model-view-projection matrix.

layout(location = 0) in vec3 aPosition;

uniform mat4 uVertex1;

void main() {
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
}
