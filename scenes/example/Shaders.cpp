#include "scenes/example/Shaders.h"

namespace scenes::example {

Shaders::Shaders() {
    shaderColor = std::make_shared<engine::Shader>("Color");
    shaderDiffuse = std::make_shared<engine::Shader>("Diffuse");
    shaderAnimated = std::make_shared<engine::Shader>("ColorAnimatedTextureChunked");
    shaderWater = std::make_shared<engine::Shader>("Water");
    shaders = {shaderColor, shaderDiffuse, shaderAnimated, shaderWater};
}

const Shaders& Shaders::shared() {
    static const Shaders instance;
    return instance;
}

} // namespace scenes::example
