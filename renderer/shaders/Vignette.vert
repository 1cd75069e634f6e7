#version 330 core
// The vignette mesh lies in clip space. Each vertex carries how open the picture is there,
// 1 in the clear middle and 0 at the darkened rim; the two colours are blended by it.
// uVertex1: colour where the mesh is 0 (the rim).
// uVertex2: colour where the mesh is 1 (the middle).

layout(location = 0) in vec2 aPosition;
layout(location = 1) in float aOpen;

uniform vec4 uVertex1;
uniform vec4 uVertex2;

out vec4 vColor;

void main() {
    vColor = mix(uVertex1, uVertex2, aOpen);
    gl_Position = vec4(aPosition, 0.0, 1.0);
}
