#pragma once

#include "renderer/uniforms/ShaderUniforms.h"

namespace renderer::scenes {

/// The uniform table of the Spirelight scene: where each value of its draws goes, by shader name.
/// "Diffuse", "SkyDither" and "Color" share their rows (and their GLSL) with the other scenes;
/// the five shaders of the night city are laid out here:
///
/// | Shader                | Uniforms, in the order the scene gives them                          |
/// |-----------------------|----------------------------------------------------------------------|
/// | "Building"            | mvp, model matrix (vertex 1, 2); light direction, reflectance at    |
/// |                       | normal and grazing incidence, eye (fragment 1 to 3); diffuse,       |
/// |                       | emission, sky cube map (fragment textures 0 to 2); lit colour,      |
/// |                       | ambient colour (fragment 4, 5, half); emission strength, lights     |
/// |                       | off (fragment 6, 7)                                                  |
/// | "DiffuseFog"          | mvp (vertex 1); texture (fragment 0); fog colour (fragment 1, half); |
/// |                       | fog start and end (vertex 2, 3)                                      |
/// | "ColorFog"            | mvp (vertex 1); colour, fog colour (fragment 1, 2, half); fog start |
/// |                       | and end (vertex 3, 4)                                                |
/// | "PointSpritesColored" | mvp, point size (vertex 1, 2); sprite (fragment 0); colour (fragment |
/// | "PointSpriteColored"  | 1, half): the plural for a mesh of points, the singular for one     |
/// |                       | point at the origin of its matrix, without a mesh                    |
class SpirelightUniforms {
public:
    SpirelightUniforms() = delete;

    /// The table, made once and shared by every SpirelightRenderer.
    static const uniforms::ShaderUniforms& table();
};

} // namespace renderer::scenes
