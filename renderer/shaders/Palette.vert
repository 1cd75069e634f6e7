#version 330 core
// Palette-coloured model (ships, near mountains): each vertex carries one coordinate into the
// palette strip of the time of day, so a change of palette recolours every model at once.
// uVertex1: model-view-projection matrix.

layout(location = 0) in vec3 aPosition;
layout(location = 1) in float aPaletteU;

uniform mat4 uVertex1;

out float vPaletteU;

void main() {
    vPaletteU = aPaletteU;
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
}
