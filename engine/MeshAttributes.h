#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/MeshAttribute.h"

namespace engine {

/// The vertex layout of a model file: its attributes and the bytes from one vertex to the next.
/// Read-only once built; the meshes of a scene usually share one object.
class MeshAttributes {
public:
    /// Creates the layout of `attributes` with `stride` bytes per vertex.
    MeshAttributes(std::vector<MeshAttribute> attributes, std::int32_t stride);

    /// The attributes, in the order given.
    const std::vector<MeshAttribute>& attributes() const { return attributes_; }
    /// Bytes per vertex.
    std::int32_t stride() const { return stride_; }

    /// A copy with the given fields replaced; an empty argument keeps this one's value.
    MeshAttributes doCopy(std::optional<std::vector<MeshAttribute>> attributes = std::nullopt,
                          std::optional<std::int32_t> stride = std::nullopt) const;

    /// Equal attribute lists and equal strides.
    bool operator==(const MeshAttributes&) const = default;
    /// Hash over the attributes in order and the stride, consistent with equality.
    std::size_t hash() const;
    /// "MeshAttributes(attributes=[MeshAttribute(...), ...], stride=12)".
    std::string toString() const;

private:
    std::vector<MeshAttribute> attributes_;
    std::int32_t stride_;
};

} // namespace engine

template <> struct std::hash<engine::MeshAttributes> {
    std::size_t operator()(const engine::MeshAttributes& value) const { return value.hash(); }
};
