#version 330 core
// uFragment1: direction towards the light (the glow of the sky over the city).
// uFragment2: reflectance of the facades looking straight at them, and at grazing angles.
// uFragment3: the eye, in world space.
// uFragmentTexture0: facades; alpha says how glassy (how much of the sky they reflect).
// uFragmentTexture1: what glows: the lit windows.
// uFragmentTexture2: the sky around the city, six square faces stacked +x, -x, +y, -y, +z, -z.
// uFragment4: colour of the lit side; uFragment5: colour everywhere (ambient).
// uFragment6: strength of the glow; uFragment7: how far the lights are turned off (0 to 1).
// The bloom copy of the towers gives both colours as black, which leaves the glow alone.

uniform vec3 uFragment1;
uniform vec2 uFragment2;
uniform vec3 uFragment3;
uniform sampler2D uFragmentTexture0;
uniform sampler2D uFragmentTexture1;
uniform sampler2D uFragmentTexture2;
uniform vec4 uFragment4;
uniform vec4 uFragment5;
uniform float uFragment6;
uniform float uFragment7;

in vec2 vUv;
in vec3 vWorld;
in vec3 vNormal;
out vec4 fragColor;

// The sky in direction d, from the stacked faces; texels are kept inside their own face.
vec3 sky(vec3 d) {
    vec3 a = abs(d);
    float face;
    vec2 st;
    if (a.x >= a.y && a.x >= a.z) {
        face = d.x > 0.0 ? 0.0 : 1.0;
        st = vec2(d.x > 0.0 ? -d.y : d.y, d.z) / a.x;
    } else if (a.y >= a.z) {
        face = d.y > 0.0 ? 2.0 : 3.0;
        st = vec2(d.y > 0.0 ? d.x : -d.x, d.z) / a.y;
    } else {
        face = d.z > 0.0 ? 4.0 : 5.0;
        st = vec2(d.x, d.z > 0.0 ? d.y : -d.y) / a.z;
    }
    float size = float(textureSize(uFragmentTexture2, 0).x);
    vec2 uv = clamp(st * 0.5 + 0.5, vec2(0.5 / size), vec2(1.0 - 0.5 / size));
    return texture(uFragmentTexture2, vec2(uv.x, (face + uv.y) / 6.0)).rgb;
}

void main() {
    vec3 n = normalize(vNormal);
    vec3 v = normalize(uFragment3 - vWorld);
    vec4 facade = texture(uFragmentTexture0, vUv);
    float lit = max(dot(n, normalize(uFragment1)), 0.0);
    vec3 colour = facade.rgb * (uFragment5.rgb + uFragment4.rgb * lit);
    float fresnel = pow(1.0 - clamp(dot(n, v), 0.0, 1.0), 5.0);
    float reflectance = mix(uFragment2.x, uFragment2.y, fresnel) * facade.a;
    colour += sky(reflect(-v, n)) * reflectance * (uFragment4.rgb + uFragment5.rgb) * 1.5;
    vec3 glow = texture(uFragmentTexture1, vUv).rgb * uFragment6 * (1.0 - clamp(uFragment7, 0.0, 1.0));
    fragColor = vec4(colour + glow, 1.0);
}
