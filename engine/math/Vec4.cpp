#include "engine/math/Vec4.h"

#include "engine/common/Hash.h"
#include "engine/common/TextForm.h"

namespace engine::math {

namespace {
/// 0.0 and -0.0 compare equal, so they must hash alike.
float hashable(float v) { return v == 0.0f ? 0.0f : v; }
} // namespace

std::size_t Vec4::hash() const {
    std::size_t seed = 0;
    common::hashCombine(seed, hashable(x));
    common::hashCombine(seed, hashable(y));
    common::hashCombine(seed, hashable(z));
    common::hashCombine(seed, hashable(w));
    return seed;
}

std::string Vec4::toString() const {
    return "Vec4(_x=" + common::TextForm::number(x) + ", _y=" + common::TextForm::number(y) +
           ", _z=" + common::TextForm::number(z) + ", _w=" + common::TextForm::number(w) + ")";
}

} // namespace engine::math
