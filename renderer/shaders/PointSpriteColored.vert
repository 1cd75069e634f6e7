#version 330 core
// One point without a mesh, at the origin of its matrix (an aircraft's light).
// uVertex1: model-view-projection matrix. uVertex2: the sprite's size in pixels.

uniform mat4 uVertex1;
uniform float uVertex2;

void main() {
    gl_Position = uVertex1 * vec4(0.0, 0.0, 0.0, 1.0);
    gl_PointSize = uVertex2;
}
