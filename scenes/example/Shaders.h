#pragma once

#include <memory>
#include <vector>

#include "engine/Shader.h"

namespace scenes::example {

/// The sample scene's four shaders, built once on first use.
class Shaders {
public:
    /// "Color": flat colour, most draws.
    std::shared_ptr<engine::Shader> shaderColor;
    /// "Diffuse": the textured test model.
    std::shared_ptr<engine::Shader> shaderDiffuse;
    /// "ColorAnimatedTextureChunked": the animal.
    std::shared_ptr<engine::Shader> shaderAnimated;
    /// "Water": the water's highlights, with a phase.
    std::shared_ptr<engine::Shader> shaderWater;

    /// All four, in the order above.
    std::vector<std::shared_ptr<engine::Shader>> shaders;

    /// The one instance.
    static const Shaders& shared();

private:
    Shaders();
};

} // namespace scenes::example
