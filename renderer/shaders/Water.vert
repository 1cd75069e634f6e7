#version 330 core
// Glints on the water of the sample valley: the highlight streaks shimmer with the water's
// phase, a wave running across them.
// uVertex1: model-view-projection matrix.
// uVertex2: the water's phase, in radians.

layout(location = 0) in vec3 aPosition;

uniform mat4 uVertex1;
uniform float uVertex2;

out float vShimmer;

void main() {
    vShimmer = 0.5 + 0.5 * sin(uVertex2 + dot(aPosition.xy, vec2(0.11, 0.07)));
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
}
