#pragma once

#include <memory>
#include <vector>

#include "engine/Shader.h"

namespace scenes::nivalis {

/// The scene's ten shader records, built once on first use. Two records carry the name
/// "ColorAnimatedTextureChunked": one is only loaded, the other is the birds' shader; the
/// renderer gives each its own `id`.
class Shaders {
public:
    /// "Palette": ships, near mountains.
    std::shared_ptr<engine::Shader> shaderPalette;
    /// "Diffuse": both suns, the sleeping animals.
    std::shared_ptr<engine::Shader> shaderDiffuse;
    /// "DiffuseZFog": the distant mountains.
    std::shared_ptr<engine::Shader> shaderDiffuseZFog;
    /// "CausticsWater": the water.
    std::shared_ptr<engine::Shader> shaderCausticsWater;
    /// "SkyDither": the sky.
    std::shared_ptr<engine::Shader> shaderSkyDither;
    /// "Color": the stars.
    std::shared_ptr<engine::Shader> shaderColor;
    /// "ColorAnimatedTextureChunked": used by no draw, listed for loading only.
    std::shared_ptr<engine::Shader> shaderColorAnimatedTextureChunked;
    /// "Cloud": the clouds.
    std::shared_ptr<engine::Shader> shaderCloud;
    /// "ColorAnimatedTextureChunked": the birds.
    std::shared_ptr<engine::Shader> shaderAnimated;
    /// "DiffuseAnimatedTextureChunked": penguins and seals.
    std::shared_ptr<engine::Shader> shaderAnimatedTextured;

    /// All ten in loading order: Diffuse, Palette, DiffuseZFog, CausticsWater, SkyDither, Color,
    /// ColorAnimatedTextureChunked, Cloud, the birds' ColorAnimatedTextureChunked,
    /// DiffuseAnimatedTextureChunked.
    std::vector<std::shared_ptr<engine::Shader>> shaders;

    /// The one instance.
    static const Shaders& shared();

private:
    Shaders();
};

} // namespace scenes::nivalis
