#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/Texture.h"
#include "engine/VertexAttribute.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/commands/Command.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/UniformTextureValue.h"

namespace scenes::common {

/// The small factories that every scene's tree is built from, so that a tree reads as its shape.
class TreeParts {
public:
    TreeParts() = delete;

    /// A float uniform holding `values`.
    static std::shared_ptr<engine::commands::UniformFloatValue> floats(std::vector<float> values) {
        return std::make_shared<engine::commands::UniformFloatValue>(std::move(values));
    }
    /// A float uniform of `count` zeros, for the scene to write each frame.
    static std::shared_ptr<engine::commands::UniformFloatValue> zeros(std::size_t count) {
        return floats(std::vector<float>(count, 0.0f));
    }
    /// A 4x4 matrix uniform, zero until the scene writes it.
    static std::shared_ptr<engine::commands::UniformFloatValue> matrix() { return zeros(16); }
    /// An integer uniform of `count` zeros.
    static std::shared_ptr<engine::commands::UniformIntValue> ints(std::size_t count) {
        return std::make_shared<engine::commands::UniformIntValue>(std::vector<std::int32_t>(count, 0));
    }
    /// A texture uniform.
    static std::shared_ptr<engine::commands::UniformTextureValue> texture(
        const std::shared_ptr<engine::Texture>& value) {
        return std::make_shared<engine::commands::UniformTextureValue>(value);
    }
    /// A vertex layout of `attributes` with `stride` bytes a vertex.
    static std::shared_ptr<engine::VertexAttributesDescriptor> layout(std::vector<engine::VertexAttribute> attributes,
                                                                      std::int32_t stride) {
        return std::make_shared<engine::VertexAttributesDescriptor>(std::move(attributes), stride);
    }
    /// An enabled group of `children` with a name.
    static std::shared_ptr<engine::commands::GroupCommand> namedGroup(
        const std::string& name, std::vector<std::shared_ptr<engine::commands::Command>> children) {
        auto group = std::make_shared<engine::commands::GroupCommand>(true, std::move(children));
        group->name = name;
        return group;
    }
};

} // namespace scenes::common
