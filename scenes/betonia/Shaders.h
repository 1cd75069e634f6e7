#pragma once

#include <memory>
#include <vector>

#include "engine/Shader.h"

namespace scenes::betonia {

/// The rooms' one shader, built once on first use.
class Shaders {
public:
    /// "Diffuse": every draw of the scene.
    std::shared_ptr<engine::Shader> shaderDiffuse;

    /// The one shader, as a list.
    std::vector<std::shared_ptr<engine::Shader>> shaders;

    /// The one instance.
    static const Shaders& shared();

private:
    Shaders();
};

} // namespace scenes::betonia
