#include "renderer/draw/UniformStaging.h"

#include <algorithm>
#include <string>

#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/UniformTextureValue.h"
#include "renderer/Fatal.h"
#include "renderer/loaders/HalfFloat.h"

namespace renderer::draw {

using engine::commands::UniformFloatValue;
using engine::commands::UniformIntValue;
using engine::commands::UniformTextureValue;

namespace {

/// Sends `values` to the stage of `uniform`.
template <typename T>
void send(const uniforms::Uniform& uniform, std::span<const T> values, gpu::RenderEncoder& encoder) {
    uniform.type == uniforms::UniformType::VERTEX ? encoder.setVertexBytes(uniform.index, values)
                                                  : encoder.setFragmentBytes(uniform.index, values);
}

void checkSize(std::size_t size) {
    if (size > UniformStaging::STAGING_SIZE) {
        Fatal::stop("Uniform of " + std::to_string(size) + " elements exceeds " +
                    std::to_string(UniformStaging::STAGING_SIZE));
    }
}

} // namespace

void UniformStaging::bind(const engine::commands::DrawMeshCommand& command, const std::string& shaderName,
                          const std::vector<uniforms::Uniform>& row, const std::vector<GLuint>& textures,
                          const std::vector<GLuint>& samplers, StateFilter& filter, gpu::RenderEncoder& encoder) {
    for (std::size_t i = 0; i < command.uniforms.size(); ++i) {
        if (i >= row.size()) {
            Fatal::stop("Shader " + shaderName + " takes " + std::to_string(row.size()) + " uniforms, the draw gives " +
                        std::to_string(command.uniforms.size()));
        }
        const uniforms::Uniform& uniform = row[i];
        const engine::commands::UniformValue* value = command.uniforms[i].get();
        if (const auto* floats = dynamic_cast<const UniformFloatValue*>(value)) {
            const std::size_t size = floats->value.size();
            checkSize(size);
            if (uniform.dataType == uniforms::UniformDataType::FP32) {
                std::copy_n(floats->value.begin(), size, valueFp32.begin());
                send(uniform, std::span<const float>(valueFp32.data(), size), encoder);
            } else {
                for (std::size_t k = 0; k < size; ++k) {
                    valueFp16[k] = loaders::HalfFloat::fromFloat(floats->value[k]);
                }
                send(uniform, std::span<const std::uint16_t>(valueFp16.data(), size), encoder);
            }
        } else if (const auto* ints = dynamic_cast<const UniformIntValue*>(value)) {
            const std::size_t size = ints->value.size();
            checkSize(size);
            if (uniform.dataType == uniforms::UniformDataType::INT32) {
                std::copy_n(ints->value.begin(), size, valueInt32.begin());
                send(uniform, std::span<const std::int32_t>(valueInt32.data(), size), encoder);
            } else {
                for (std::size_t k = 0; k < size; ++k) {
                    const std::int32_t element = ints->value[k];
                    if (element < -32768 || element > 32767) {
                        Fatal::stop("Uniform value " + std::to_string(element) + " does not fit 16 bits");
                    }
                    valueInt16[k] = static_cast<std::int16_t>(element);
                }
                send(uniform, std::span<const std::int16_t>(valueInt16.data(), size), encoder);
            }
        } else if (const auto* texture = dynamic_cast<const UniformTextureValue*>(value)) {
            if (!texture->value) {
                Fatal::stop("Texture uniform of shader " + shaderName + " holds no texture");
            }
            const std::int32_t id = texture->value->id;
            if (id < 0 || static_cast<std::size_t>(id) >= textures.size() ||
                static_cast<std::size_t>(id) >= samplers.size()) {
                Fatal::stop("Texture id out of range: " + std::to_string(id));
            }
            if (uniform.index < 0 || uniform.index >= StateFilter::SLOTS) {
                Fatal::stop("Texture slot out of range: " + std::to_string(uniform.index));
            }
            const GLuint glTexture = textures[static_cast<std::size_t>(id)];
            if (uniform.type == uniforms::UniformType::FRAGMENT) {
                filter.bindFragmentTexture(uniform.index, glTexture, samplers[static_cast<std::size_t>(id)], encoder);
            } else {
                filter.bindVertexTexture(uniform.index, glTexture, encoder);
            }
        }
    }
}

} // namespace renderer::draw
