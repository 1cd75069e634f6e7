#pragma once

#include <memory>
#include <vector>

#include "engine/Shader.h"

namespace scenes::spirelight {

/// The night city's eight shaders, built once on first use. "PointSpritesColored" draws a mesh
/// of many points; "PointSpriteColored" draws one point without a mesh.
class Shaders {
public:
    /// "Diffuse": the neon signs.
    std::shared_ptr<engine::Shader> shaderDiffuse;
    /// "SkyDither": the sky.
    std::shared_ptr<engine::Shader> shaderSkyDither;
    /// "Color": red lamps and stars.
    std::shared_ptr<engine::Shader> shaderColor;
    /// "Building": the towers.
    std::shared_ptr<engine::Shader> shaderBuilding;
    /// "DiffuseFog": the distant buildings.
    std::shared_ptr<engine::Shader> shaderDiffuseFog;
    /// "ColorFog": islands and water.
    std::shared_ptr<engine::Shader> shaderColorFog;
    /// "PointSpritesColored": the red lights.
    std::shared_ptr<engine::Shader> shaderPointSpritesColored;
    /// "PointSpriteColored": the aircraft lights.
    std::shared_ptr<engine::Shader> shaderPointSpriteColored;

    /// All eight, in the order above.
    std::vector<std::shared_ptr<engine::Shader>> shaders;

    /// The one instance.
    static const Shaders& shared();

private:
    Shaders();
};

} // namespace scenes::spirelight
