#include "renderer/scenes/SpirelightUniforms.h"

#include "renderer/uniforms/UniformTables.h"

namespace renderer::scenes {

namespace {

using uniforms::Uniform;
using uniforms::UniformDataType;
using uniforms::UniformType;

constexpr Uniform vertex(UniformDataType type, int index) { return {UniformType::VERTEX, type, index}; }
constexpr Uniform fragment(UniformDataType type, int index) { return {UniformType::FRAGMENT, type, index}; }

constexpr auto FP32 = UniformDataType::FP32;
constexpr auto FP16 = UniformDataType::FP16;
constexpr auto TEXTURE = UniformDataType::TEXTURE;

std::vector<Uniform> pointSprites() {
    return {vertex(FP32, 1), vertex(FP32, 2), fragment(TEXTURE, 0), fragment(FP16, 1)};
}

} // namespace

const uniforms::ShaderUniforms& SpirelightUniforms::table() {
    static const uniforms::ShaderUniforms TABLE = {
        {"Vignette", uniforms::UniformTables::vignette()},
        {"FullscreenQuad", uniforms::UniformTables::fullscreenQuad()},
        {"Diffuse", uniforms::UniformTables::diffuse()},
        {"SkyDither", uniforms::UniformTables::skyDither()},
        {"Color", uniforms::UniformTables::color()},
        {"Building",
         {vertex(FP32, 1), vertex(FP32, 2), fragment(FP32, 1), fragment(FP32, 2), fragment(FP32, 3),
          fragment(TEXTURE, 0), fragment(TEXTURE, 1), fragment(TEXTURE, 2), fragment(FP16, 4), fragment(FP16, 5),
          fragment(FP32, 6), fragment(FP32, 7)}},
        {"DiffuseFog", {vertex(FP32, 1), fragment(TEXTURE, 0), fragment(FP16, 1), vertex(FP32, 2), vertex(FP32, 3)}},
        {"ColorFog", {vertex(FP32, 1), fragment(FP16, 1), fragment(FP16, 2), vertex(FP32, 3), vertex(FP32, 4)}},
        {"PointSpritesColored", pointSprites()},
        {"PointSpriteColored", pointSprites()},
    };
    return TABLE;
}

} // namespace renderer::scenes
