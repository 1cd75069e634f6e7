#include "renderer/uniforms/UniformTables.h"

namespace renderer::uniforms {

namespace {

constexpr Uniform vertex(UniformDataType type, int index) { return {UniformType::VERTEX, type, index}; }
constexpr Uniform fragment(UniformDataType type, int index) { return {UniformType::FRAGMENT, type, index}; }

constexpr auto FP32 = UniformDataType::FP32;
constexpr auto FP16 = UniformDataType::FP16;
constexpr auto INT32 = UniformDataType::INT32;
constexpr auto TEXTURE = UniformDataType::TEXTURE;

} // namespace

std::vector<Uniform> UniformTables::vignette() { return {vertex(FP16, 1), vertex(FP16, 2)}; }

std::vector<Uniform> UniformTables::fullscreenQuad() { return {fragment(TEXTURE, 0)}; }

std::vector<Uniform> UniformTables::diffuse() { return {vertex(FP32, 1), fragment(TEXTURE, 0)}; }

std::vector<Uniform> UniformTables::color() { return {vertex(FP32, 1), fragment(FP16, 1)}; }

std::vector<Uniform> UniformTables::colorAnimatedTextureChunked() {
    return {vertex(FP32, 1), fragment(FP16, 1), vertex(INT32, 2), vertex(FP32, 3), vertex(TEXTURE, 0), vertex(FP32, 4)};
}

std::vector<Uniform> UniformTables::diffuseAnimatedTextureChunked() {
    return {vertex(FP32, 1),  fragment(TEXTURE, 0), vertex(INT32, 2),
            vertex(FP32, 3),  vertex(TEXTURE, 0),   vertex(FP32, 4)};
}

std::vector<Uniform> UniformTables::palette() { return {vertex(FP32, 1), fragment(TEXTURE, 0)}; }

std::vector<Uniform> UniformTables::skyDither() {
    return {vertex(FP32, 1), fragment(TEXTURE, 0), fragment(TEXTURE, 1)};
}

std::vector<Uniform> UniformTables::cloud() { return {vertex(FP32, 1), fragment(FP16, 1), vertex(FP32, 2)}; }

std::vector<Uniform> UniformTables::causticsWater() {
    return {vertex(FP32, 1),   fragment(TEXTURE, 0), fragment(FP32, 1), fragment(FP32, 2), fragment(FP32, 3),
            vertex(FP32, 4),   vertex(FP32, 5),      vertex(FP32, 2),   vertex(FP32, 3)};
}

std::vector<Uniform> UniformTables::diffuseZFog() {
    return {vertex(FP32, 1), fragment(TEXTURE, 0), fragment(FP16, 1), vertex(FP32, 2)};
}

std::vector<Uniform> UniformTables::water() { return {vertex(FP32, 1), fragment(FP16, 1), vertex(FP32, 2)}; }

} // namespace renderer::uniforms
