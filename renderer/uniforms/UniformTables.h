#pragma once

#include <vector>

#include "renderer/uniforms/Uniform.h"

namespace renderer::uniforms {

/// The rows of the uniform tables, by shader name, as the scene renderers put them together.
/// Each call builds a new row; a renderer's table holds rows of its own.
class UniformTables {
public:
    UniformTables() = delete;

    static std::vector<Uniform> vignette();
    static std::vector<Uniform> fullscreenQuad();
    static std::vector<Uniform> diffuse();
    static std::vector<Uniform> color();
    static std::vector<Uniform> colorAnimatedTextureChunked();
    static std::vector<Uniform> diffuseAnimatedTextureChunked();
    static std::vector<Uniform> palette();
    static std::vector<Uniform> skyDither();
    static std::vector<Uniform> cloud();
    static std::vector<Uniform> causticsWater();
    static std::vector<Uniform> diffuseZFog();
    static std::vector<Uniform> water();
};

} // namespace renderer::uniforms
