#pragma once

#include <cstdint>

namespace engine::math {

/// The process-wide random source of the frame thread. It is seeded differently at each start;
/// tests and previews call `seed` to make a run repeatable.
class Random {
public:
    Random() = delete;

    /// Reseeds the process-wide generator.
    static void seed(std::uint64_t value);
    /// A uniform float from 0 up to but not including 1.
    static float nextFloat();
};

} // namespace engine::math
