#include "engine/MeshAttributes.h"

#include <utility>

#include "engine/common/Hash.h"
#include "engine/common/TextForm.h"

namespace engine {

MeshAttributes::MeshAttributes(std::vector<MeshAttribute> attributes, std::int32_t stride)
    : attributes_(std::move(attributes)), stride_(stride) {}

MeshAttributes MeshAttributes::doCopy(std::optional<std::vector<MeshAttribute>> attributes, std::optional<std::int32_t> stride) const {
    return MeshAttributes(attributes ? std::move(*attributes) : attributes_, stride.value_or(stride_));
}

std::size_t MeshAttributes::hash() const {
    std::size_t seed = 0;
    common::hashCombineAll(seed, attributes_);
    common::hashCombine(seed, stride_);
    return seed;
}

std::string MeshAttributes::toString() const {
    return "MeshAttributes(attributes=" + common::TextForm::list(attributes_) + ", stride=" + std::to_string(stride_) + ")";
}

} // namespace engine
