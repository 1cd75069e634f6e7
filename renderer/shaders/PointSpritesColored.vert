#version 330 core
// A mesh of points, each drawn as a square sprite (the red lights on the roofs).
// uVertex1: model-view-projection matrix. uVertex2: the sprite's size in pixels.

layout(location = 0) in vec3 aPosition;

uniform mat4 uVertex1;
uniform float uVertex2;

void main() {
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
    gl_PointSize = uVertex2;
}
