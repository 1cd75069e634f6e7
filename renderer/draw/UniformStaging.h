#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/commands/DrawMeshCommand.h"
#include "renderer/uniforms/ShaderUniforms.h"
#include "renderer/draw/StateFilter.h"
#include "renderer/gl/Gl.h"
#include "renderer/gpu/RenderEncoder.h"

namespace renderer::draw {

/// Hands a draw's uniform values to the encoder, each into the stage, slot and data type that
/// the shader's row of the uniform table gives: floats as 32-bit floats or half floats, integers
/// as 32 or 16 bits, textures with their samplers through the state filter's slot caches. Values
/// pass through four fixed staging arrays, so that the frame path allocates nothing.
class UniformStaging {
public:
    /// The most elements one uniform may have.
    static constexpr std::size_t STAGING_SIZE = 128;

    /// The values of `command` by `row`, the uniform table's row of its shader `shaderName`;
    /// texture values are found by their id in `textures` and `samplers`. Stops the process on a
    /// draw with more values than the row, a value over STAGING_SIZE elements, an integer that
    /// does not fit 16 bits where the row asks for them, and a texture id or slot out of range.
    void bind(const engine::commands::DrawMeshCommand& command, const std::string& shaderName,
              const std::vector<uniforms::Uniform>& row, const std::vector<GLuint>& textures,
              const std::vector<GLuint>& samplers, StateFilter& filter, gpu::RenderEncoder& encoder);

    std::array<float, STAGING_SIZE> valueFp32{};
    std::array<std::uint16_t, STAGING_SIZE> valueFp16{};
    std::array<std::int32_t, STAGING_SIZE> valueInt32{};
    std::array<std::int16_t, STAGING_SIZE> valueInt16{};
};

} // namespace renderer::draw
