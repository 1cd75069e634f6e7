#version 330 core
// Distant mountains: palette colour fading into a height fog towards their feet, so the far
// range sits in the haze above the sea instead of standing on the horizon like a cut-out.
// uVertex1: model-view-projection matrix.
// uVertex2: fog range (height where the fog is thickest, height where it has gone), in model
//           units; the mountains are drawn untransformed, so these are world heights.

layout(location = 0) in vec3 aPosition;
layout(location = 1) in float aPaletteU;

uniform mat4 uVertex1;
uniform vec2 uVertex2;

out float vPaletteU;
out float vHeightFog;

void main() {
    vPaletteU = aPaletteU;
    float span = max(uVertex2.y - uVertex2.x, 1e-3);
    float height = clamp((aPosition.z - uVertex2.x) / span, 0.0, 1.0);
    // Thick at the bottom, thinning out quickly with height.
    vHeightFog = (1.0 - height) * (1.0 - height);
    gl_Position = uVertex1 * vec4(aPosition, 1.0);
}
