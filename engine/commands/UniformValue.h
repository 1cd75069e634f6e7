#pragma once

namespace engine::commands {

/// A value handed to a shader, held positionally by a draw: element i of a draw's `uniforms`
/// feeds the shader's uniform i. One of UniformFloatValue, UniformIntValue and
/// UniformTextureValue. Uniforms are held through std::shared_ptr and are often shared by many
/// draws, so writing one changes it for all of them.
class UniformValue {
public:
    virtual ~UniformValue() = default;

protected:
    UniformValue() = default;
    UniformValue(const UniformValue&) = default;
    UniformValue& operator=(const UniformValue&) = default;
};

} // namespace engine::commands
