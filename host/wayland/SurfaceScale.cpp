#include "host/wayland/SurfaceScale.h"

#include <cstdint>

namespace host::wayland {

namespace {

int scaled(int length, int numerator) {
    const std::int64_t product = static_cast<std::int64_t>(length) * numerator;
    return static_cast<int>((product + SurfaceScale::kDenominator / 2) / SurfaceScale::kDenominator);
}

} // namespace

SurfaceScale SurfaceScale::whole(int factor) {
    return SurfaceScale(factor > 1 ? factor * kDenominator : kDenominator);
}

SurfaceScale SurfaceScale::fractional(int numerator) {
    return SurfaceScale(numerator > 0 ? numerator : kDenominator);
}

QSize SurfaceScale::bufferSize(QSize logical) const {
    return {scaled(logical.width(), numerator_), scaled(logical.height(), numerator_)};
}

} // namespace host::wayland
