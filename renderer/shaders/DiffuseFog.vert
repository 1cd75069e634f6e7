#version 330 core
// Textured and lost in the haze with distance: the distant skyline.
// uVertex1: model-view-projection matrix.
// uVertex2, uVertex3: distances where the haze begins and where it hides everything.

layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec2 aUv;

uniform mat4 uVertex1;
uniform float uVertex2;
uniform float uVertex3;

out vec2 vUv;
out float vFog;

void main() {
    vUv = aUv;
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
    // w of a perspective projection is the distance along the view.
    vFog = clamp((gl_Position.w - uVertex2) / max(uVertex3 - uVertex2, 1.0), 0.0, 1.0);
}
