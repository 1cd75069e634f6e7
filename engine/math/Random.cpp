#include "engine/math/Random.h"

#include <cstdint>
#include <random>
#include <stdexcept>

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

/// A uniform integer from 0 up to but not including `bound` (> 0), without modulo bias.
std::uint64_t below(std::uint64_t bound) {
    // Rejects the top partial block of the 64-bit range so every residue is equally likely.
    const std::uint64_t limit = ~std::uint64_t{0} - (~std::uint64_t{0} % bound + 1) % bound;
    std::uint64_t value;
    do {
        value = generator()();
    } while (value > limit);
    return value % bound;
}

} // namespace

void Random::seed(std::uint64_t value) { generator().seed(value); }

float Random::nextFloat() {
    // 24 random bits make every float of the form k / 2^24, the largest being 1 - 2^-24.
    return static_cast<float>(generator()() >> 40) * 0x1.0p-24f;
}

double Random::nextDouble() {
    // 53 random bits, likewise strictly below 1.
    return static_cast<double>(generator()() >> 11) * 0x1.0p-53;
}

int Random::nextInt(int bound) {
    if (bound <= 0) {
        throw std::invalid_argument("bound must be positive");
    }
    return static_cast<int>(below(static_cast<std::uint64_t>(bound)));
}

int Random::nextInt(int from, int until) {
    if (from >= until) {
        throw std::invalid_argument("bound must be greater than origin");
    }
    const auto span = static_cast<std::uint64_t>(static_cast<std::int64_t>(until) - from);
    return static_cast<int>(static_cast<std::int64_t>(from) + static_cast<std::int64_t>(below(span)));
}

bool Random::nextBoolean() { return (generator()() >> 63) != 0; }

} // namespace engine::math
