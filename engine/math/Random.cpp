#include "engine/math/Random.h"

#include <cstdint>
#include <random>

namespace engine::math {

namespace {

/// The one generator of the process, seeded differently at every start.
std::mt19937_64& generator() {
    static std::mt19937_64 instance{[] {
        std::random_device device;
        return (static_cast<std::uint64_t>(device()) << 32) ^ static_cast<std::uint64_t>(device());
    }()};
    return instance;
}

} // namespace

void Random::seed(std::uint64_t value) { generator().seed(value); }

float Random::nextFloat() {
    // 24 random bits make every float of the form k / 2^24, the largest being 1 - 2^-24.
    return static_cast<float>(generator()() >> 40) * 0x1.0p-24f;
}

} // namespace engine::math
