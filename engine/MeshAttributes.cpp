#include "engine/MeshAttributes.h"

#include <utility>

#include "engine/common/Hash.h"

namespace engine {

MeshAttributes::MeshAttributes(std::vector<MeshAttribute> attributes, std::int32_t stride)
    : attributes_(std::move(attributes)), stride_(stride) {}

MeshAttributes MeshAttributes::doCopy(std::optional<std::vector<MeshAttribute>> attributes, std::optional<std::int32_t> stride) const {
    return MeshAttributes(attributes ? std::move(*attributes) : attributes_, stride.value_or(stride_));
}

std::size_t MeshAttributes::hash() const {
    std::size_t seed = 0;
    for (const auto& attribute : attributes_) {
        common::hashCombine(seed, attribute);
    }
    common::hashCombine(seed, attributes_.size());
    common::hashCombine(seed, stride_);
    return seed;
}

std::string MeshAttributes::toString() const {
    std::string text = "MeshAttributes(attributes=[";
    for (std::size_t i = 0; i < attributes_.size(); ++i) {
        if (i > 0) {
            text += ", ";
        }
        text += attributes_[i].toString();
    }
    text += "], stride=";
    text += std::to_string(stride_);
    text += ")";
    return text;
}

} // namespace engine
