#include "engine/VertexAttributesDescriptor.h"

#include <utility>

#include "engine/common/Hash.h"
#include "engine/common/TextForm.h"

namespace engine {

VertexAttributesDescriptor::VertexAttributesDescriptor(std::vector<VertexAttribute> attributes, std::int32_t stride)
    : attributes_(std::move(attributes)), stride_(stride) {}

VertexAttributesDescriptor VertexAttributesDescriptor::doCopy(std::optional<std::vector<VertexAttribute>> attributes, std::optional<std::int32_t> stride) const {
    return VertexAttributesDescriptor(attributes ? std::move(*attributes) : attributes_, stride.value_or(stride_));
}

std::size_t VertexAttributesDescriptor::hash() const {
    std::size_t seed = 0;
    common::hashCombineAll(seed, attributes_);
    common::hashCombine(seed, stride_);
    return seed;
}

std::string VertexAttributesDescriptor::toString() const {
    return "VertexAttributesDescriptor(attributes=" + common::TextForm::list(attributes_) + ", stride=" + std::to_string(stride_) + ")";
}

} // namespace engine
