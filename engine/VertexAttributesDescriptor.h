#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/VertexAttribute.h"

namespace engine {

/// The vertex layout a pipeline is built with: the attributes by shader slot and the bytes from
/// one vertex to the next. Read-only once built; draw states refer to it through a shared pointer.
class VertexAttributesDescriptor {
public:
    /// Creates the layout of `attributes` with `stride` bytes per vertex.
    VertexAttributesDescriptor(std::vector<VertexAttribute> attributes, std::int32_t stride);

    /// The attributes, in the order given.
    const std::vector<VertexAttribute>& attributes() const { return attributes_; }
    /// Bytes per vertex.
    std::int32_t stride() const { return stride_; }

    /// A copy with the given fields replaced; an empty argument keeps this one's value.
    VertexAttributesDescriptor doCopy(std::optional<std::vector<VertexAttribute>> attributes = std::nullopt,
                                      std::optional<std::int32_t> stride = std::nullopt) const;

    /// Equal attribute lists and equal strides.
    bool operator==(const VertexAttributesDescriptor&) const = default;
    /// Hash over the attributes in order and the stride, consistent with equality.
    std::size_t hash() const;
    /// "VertexAttributesDescriptor(attributes=[VertexAttribute(...), ...], stride=12)".
    std::string toString() const;

private:
    std::vector<VertexAttribute> attributes_;
    std::int32_t stride_;
};

} // namespace engine

template <> struct std::hash<engine::VertexAttributesDescriptor> {
    std::size_t operator()(const engine::VertexAttributesDescriptor& value) const { return value.hash(); }
};
