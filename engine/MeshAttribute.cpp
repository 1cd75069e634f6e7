#include "engine/MeshAttribute.h"

#include "engine/common/Hash.h"

namespace engine {

MeshAttribute::MeshAttribute(AttributeType type, VertexFormat format, std::int32_t offset)
    : type_(type), format_(format), offset_(offset) {}

MeshAttribute MeshAttribute::doCopy(std::optional<AttributeType> type, std::optional<VertexFormat> format,
                                    std::optional<std::int32_t> offset) const {
    return MeshAttribute(type.value_or(type_), format.value_or(format_), offset.value_or(offset_));
}

std::size_t MeshAttribute::hash() const {
    std::size_t seed = 0;
    common::hashCombine(seed, type_);
    common::hashCombine(seed, format_);
    common::hashCombine(seed, offset_);
    return seed;
}

std::string MeshAttribute::toString() const {
    std::string text = "MeshAttribute(type=";
    text += engine::toString(type_);
    text += ", format=";
    text += engine::toString(format_);
    text += ", offset=";
    text += std::to_string(offset_);
    text += ")";
    return text;
}

} // namespace engine
