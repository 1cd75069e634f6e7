#include "engine/VertexAttribute.h"

#include "engine/common/Hash.h"

namespace engine {

VertexAttribute::VertexAttribute(AttributeType type, std::int32_t index, VertexFormat format, std::int32_t offset)
    : type_(type), index_(index), format_(format), offset_(offset) {}

VertexAttribute VertexAttribute::doCopy(std::optional<AttributeType> type, std::optional<std::int32_t> index,
                                        std::optional<VertexFormat> format, std::optional<std::int32_t> offset) const {
    return VertexAttribute(type.value_or(type_), index.value_or(index_), format.value_or(format_),
                           offset.value_or(offset_));
}

std::size_t VertexAttribute::hash() const {
    std::size_t seed = 0;
    common::hashCombine(seed, type_);
    common::hashCombine(seed, index_);
    common::hashCombine(seed, format_);
    common::hashCombine(seed, offset_);
    return seed;
}

std::string VertexAttribute::toString() const {
    std::string text = "VertexAttribute(type=";
    text += engine::toString(type_);
    text += ", index=";
    text += std::to_string(index_);
    text += ", format=";
    text += engine::toString(format_);
    text += ", offset=";
    text += std::to_string(offset_);
    text += ")";
    return text;
}

} // namespace engine
