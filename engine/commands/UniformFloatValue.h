#pragma once

#include <utility>
#include <vector>

#include "engine/commands/UniformValue.h"

namespace engine::commands {

/// Floats for a shader: 1 to 4 for a scalar or vector, 16 for a matrix. The length is fixed by
/// the scene when it builds the uniform and is the uniform's length for the shader; the writers
/// (engine::setUniform) change elements only and never resize, so the renderer may keep a view
/// of the data.
class UniformFloatValue : public UniformValue {
public:
    /// The numbers.
    std::vector<float> value;

    /// A uniform holding `value`.
    explicit UniformFloatValue(std::vector<float> value) : value(std::move(value)) {}
};

} // namespace engine::commands
