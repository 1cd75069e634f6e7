#include "engine/math/Vec2.h"

#include "engine/common/Hash.h"
#include "engine/common/TextForm.h"

namespace engine::math {

namespace {
/// 0.0 and -0.0 compare equal, so they must hash alike.
float hashable(float v) { return v == 0.0f ? 0.0f : v; }
} // namespace

std::size_t Vec2::hash() const {
    std::size_t seed = 0;
    common::hashCombine(seed, hashable(x));
    common::hashCombine(seed, hashable(y));
    return seed;
}

std::string Vec2::toString() const {
    return "Vec2(_x=" + common::TextForm::number(x) + ", _y=" + common::TextForm::number(y) + ")";
}

} // namespace engine::math
