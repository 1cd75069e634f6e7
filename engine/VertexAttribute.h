#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "engine/AttributeType.h"
#include "engine/VertexFormat.h"

namespace engine {

/// One attribute as a shader takes it: what it is, the shader's attribute slot, its format and
/// its byte offset in the vertex. Read-only once built.
class VertexAttribute {
public:
    /// Creates the attribute `type` for slot `index`, of `format` at byte `offset`.
    VertexAttribute(AttributeType type, std::int32_t index, VertexFormat format, std::int32_t offset);

    /// What the attribute means.
    AttributeType type() const { return type_; }
    /// The shader's attribute slot.
    std::int32_t index() const { return index_; }
    /// How it is stored.
    VertexFormat format() const { return format_; }
    /// Bytes from the start of the vertex.
    std::int32_t offset() const { return offset_; }

    /// A copy with the given fields replaced; an empty argument keeps this one's value.
    VertexAttribute doCopy(std::optional<AttributeType> type = std::nullopt,
                           std::optional<std::int32_t> index = std::nullopt,
                           std::optional<VertexFormat> format = std::nullopt,
                           std::optional<std::int32_t> offset = std::nullopt) const;

    /// Equality of all fields.
    bool operator==(const VertexAttribute&) const = default;
    /// Hash over all fields, consistent with equality.
    std::size_t hash() const;
    /// "VertexAttribute(type=VERTEX, index=0, format=HALF3, offset=0)".
    std::string toString() const;

private:
    AttributeType type_;
    std::int32_t index_;
    VertexFormat format_;
    std::int32_t offset_;
};

} // namespace engine

template <> struct std::hash<engine::VertexAttribute> {
    std::size_t operator()(const engine::VertexAttribute& value) const { return value.hash(); }
};
