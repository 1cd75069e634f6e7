#pragma once

#include <memory>
#include <utility>

#include "engine/Texture.h"
#include "engine/commands/UniformValue.h"

namespace engine::commands {

/// One texture for a shader. A scene may swap the texture at run time (a palette that follows
/// the time of day, say) by assigning `value`.
class UniformTextureValue : public UniformValue {
public:
    /// The texture bound for the draw.
    std::shared_ptr<Texture> value;

    /// A uniform holding `value`.
    explicit UniformTextureValue(std::shared_ptr<Texture> value) : value(std::move(value)) {}
};

} // namespace engine::commands
