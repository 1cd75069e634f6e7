#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "engine/AttributeType.h"
#include "engine/VertexFormat.h"

namespace engine {

/// One attribute as it lies in a model file's vertex buffer. Read-only once built.
class MeshAttribute {
public:
    /// Creates the attribute `type` of `format` at byte `offset` from the vertex's start.
    MeshAttribute(AttributeType type, VertexFormat format, std::int32_t offset);

    /// What the attribute means.
    AttributeType type() const { return type_; }
    /// How it is stored.
    VertexFormat format() const { return format_; }
    /// Bytes from the start of the vertex.
    std::int32_t offset() const { return offset_; }

    /// A copy with the given fields replaced; an empty argument keeps this one's value.
    MeshAttribute doCopy(std::optional<AttributeType> type = std::nullopt,
                         std::optional<VertexFormat> format = std::nullopt,
                         std::optional<std::int32_t> offset = std::nullopt) const;

    /// Equality of all fields.
    bool operator==(const MeshAttribute&) const = default;
    /// Hash over all fields, consistent with equality.
    std::size_t hash() const;
    /// "MeshAttribute(type=VERTEX, format=HALF3, offset=0)".
    std::string toString() const;

private:
    AttributeType type_;
    VertexFormat format_;
    std::int32_t offset_;
};

} // namespace engine

template <> struct std::hash<engine::MeshAttribute> {
    std::size_t operator()(const engine::MeshAttribute& value) const { return value.hash(); }
};
