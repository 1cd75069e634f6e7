#version 330 core
// uFragmentTexture0: the sprite. uFragment1: its colour; the blending adds it.

uniform sampler2D uFragmentTexture0;
uniform vec4 uFragment1;

out vec4 fragColor;

void main() {
    fragColor = vec4(texture(uFragmentTexture0, gl_PointCoord).rgb * uFragment1.rgb, 1.0);
}
