#include "scenes/spirelight/Shaders.h"

namespace scenes::spirelight {

using engine::Shader;

Shaders::Shaders() {
    shaderDiffuse = std::make_shared<Shader>("Diffuse");
    shaderSkyDither = std::make_shared<Shader>("SkyDither");
    shaderColor = std::make_shared<Shader>("Color");
    shaderBuilding = std::make_shared<Shader>("Building");
    shaderDiffuseFog = std::make_shared<Shader>("DiffuseFog");
    shaderColorFog = std::make_shared<Shader>("ColorFog");
    shaderPointSpritesColored = std::make_shared<Shader>("PointSpritesColored");
    shaderPointSpriteColored = std::make_shared<Shader>("PointSpriteColored");

    shaders = {shaderDiffuse,    shaderSkyDither, shaderColor,              shaderBuilding,
               shaderDiffuseFog, shaderColorFog,  shaderPointSpritesColored, shaderPointSpriteColored};
}

const Shaders& Shaders::shared() {
    static const Shaders instance;
    return instance;
}

} // namespace scenes::spirelight
