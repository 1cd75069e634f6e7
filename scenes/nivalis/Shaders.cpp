#include "scenes/nivalis/Shaders.h"

namespace scenes::nivalis {

using engine::Shader;

Shaders::Shaders() {
    shaderPalette = std::make_shared<Shader>("Palette");
    shaderDiffuse = std::make_shared<Shader>("Diffuse");
    shaderDiffuseZFog = std::make_shared<Shader>("DiffuseZFog");
    shaderCausticsWater = std::make_shared<Shader>("CausticsWater");
    shaderSkyDither = std::make_shared<Shader>("SkyDither");
    shaderColor = std::make_shared<Shader>("Color");
    shaderColorAnimatedTextureChunked = std::make_shared<Shader>("ColorAnimatedTextureChunked");
    shaderCloud = std::make_shared<Shader>("Cloud");
    shaderAnimated = std::make_shared<Shader>("ColorAnimatedTextureChunked");
    shaderAnimatedTextured = std::make_shared<Shader>("DiffuseAnimatedTextureChunked");

    shaders = {shaderDiffuse,   shaderPalette,
               shaderDiffuseZFog, shaderCausticsWater,
               shaderSkyDither, shaderColor,
               shaderColorAnimatedTextureChunked, shaderCloud,
               shaderAnimated,  shaderAnimatedTextured};
}

const Shaders& Shaders::shared() {
    static const Shaders instance;
    return instance;
}

} // namespace scenes::nivalis
