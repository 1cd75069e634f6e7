#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "renderer/uniforms/UniformDataType.h"
#include "renderer/uniforms/UniformType.h"

namespace renderer::uniforms {

/// Where the i-th value of a draw's `uniforms` goes: the stage, the element type and the slot of
/// that stage (a buffer slot for numbers, a texture slot for textures). Vertex buffer slot 0
/// holds the vertices, so vertex-stage numbers start at slot 1. In GLSL a number at vertex slot
/// k is the uniform `uVertex<k>`, at fragment slot k `uFragment<k>`; a texture at fragment slot
/// n is the sampler `uFragmentTexture<n>` on unit n, at vertex slot n `uVertexTexture<n>` on
/// unit 8 + n.
class Uniform {
public:
    UniformType type = UniformType::VERTEX;
    UniformDataType dataType = UniformDataType::FP32;
    std::int32_t index = 0;

    constexpr Uniform() = default;
    constexpr Uniform(UniformType type_, UniformDataType dataType_, std::int32_t index_)
        : type(type_), dataType(dataType_), index(index_) {}

    bool operator==(const Uniform&) const = default;
    /// Hash over the three fields, consistent with equality.
    std::size_t hash() const;
    /// "Uniform(type=VERTEX, dataType=FP32, index=1)".
    std::string toString() const;
};

} // namespace renderer::uniforms

template <> struct std::hash<renderer::uniforms::Uniform> {
    std::size_t operator()(const renderer::uniforms::Uniform& value) const { return value.hash(); }
};
