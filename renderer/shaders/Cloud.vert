#version 330 core
// The cloud deck. Each vertex carries the density of the cloud there, 0 at the ragged rim to
// 1 in the thick of it. The deck breathes: dense parts swell up and sink back with the pulse.
// uVertex1: model-view-projection matrix.
// uVertex2: the pulse, from -1 to 1.

layout(location = 0) in vec3 aPosition;
layout(location = 1) in float aDensity;

uniform mat4 uVertex1;
uniform float uVertex2;

out float vDensity;

void main() {
    vDensity = aDensity;
    vec3 position = aPosition;
    position.z += uVertex2 * aDensity * 60.0;
    gl_Position = uVertex1 * vec4(position, 1.0);
}
