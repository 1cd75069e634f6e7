#version 330 core
// One colour lost in the haze with distance: islands and the sea.
// uVertex1: model-view-projection matrix.
// uVertex3, uVertex4: distances where the haze begins and where it hides everything.

layout(location = 0) in vec3 aPosition;

uniform mat4 uVertex1;
uniform float uVertex3;
uniform float uVertex4;

out float vFog;

void main() {
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
    vFog = clamp((gl_Position.w - uVertex3) / max(uVertex4 - uVertex3, 1.0), 0.0, 1.0);
}
