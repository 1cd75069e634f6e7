#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "engine/commands/UniformValue.h"

namespace engine::commands {

/// Signed 32-bit integers for a shader. As with UniformFloatValue the length is fixed when the
/// scene builds the uniform, and the writers change elements only.
class UniformIntValue : public UniformValue {
public:
    /// The numbers.
    std::vector<std::int32_t> value;

    /// A uniform holding `value`.
    explicit UniformIntValue(std::vector<std::int32_t> value) : value(std::move(value)) {}
};

} // namespace engine::commands
