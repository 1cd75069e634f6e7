#version 330 core
// A quad over the whole target showing an off-screen picture. The quad's texture coordinates
// have v = 0 at the top; a picture rendered by GL has its first row at the bottom, hence the
// flip.

layout(location = 0) in vec2 aPosition;
layout(location = 1) in vec2 aUv;

out vec2 vUv;

void main() {
    vUv = vec2(aUv.x, 1.0 - aUv.y);
    gl_Position = vec4(aPosition, 0.0, 1.0);
}
