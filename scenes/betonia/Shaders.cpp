#include "scenes/betonia/Shaders.h"

namespace scenes::betonia {

Shaders::Shaders() {
    shaderDiffuse = std::make_shared<engine::Shader>("Diffuse");
    shaders = {shaderDiffuse};
}

const Shaders& Shaders::shared() {
    static const Shaders instance;
    return instance;
}

} // namespace scenes::betonia
