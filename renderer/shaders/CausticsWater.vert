#version 330 core
// The polar sea: a colour running from near to far with the distance from the eye, with moving
// caustics laid over it that fade out in the distance (where they would only flicker).
// uVertex1: model-view-projection matrix.
// uVertex2: water colour near the eye.
// uVertex3: water colour far away.
// uVertex4: distances where the near colour starts to turn and where the far colour is reached.
// uVertex5: caustics: distance where they are gone; length of their fade before it; strength;
//           the farthest distance they may reach at all (small for the blurred picture).

layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec2 aUv;

uniform mat4 uVertex1;
uniform vec4 uVertex2;
uniform vec4 uVertex3;
uniform vec2 uVertex4;
uniform vec4 uVertex5;

out vec2 vUv;
out float vDistance;
flat out vec3 vNear;
flat out vec3 vFar;
flat out vec2 vColorRange;
flat out vec4 vCaustics;

void main() {
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
    vUv = aUv;
    // In a perspective projection w is the depth in front of the eye, and linear along the
    // surface, so it interpolates exactly.
    vDistance = gl_Position.w;
    vNear = uVertex2.rgb;
    vFar = uVertex3.rgb;
    vColorRange = uVertex4;
    vCaustics = uVertex5;
}
