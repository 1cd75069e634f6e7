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
    /// A uniform double from 0 up to but not including 1.
    static double nextDouble();
    /// A uniform integer from 0 up to but not including `bound`; throws std::invalid_argument
    /// unless `bound` is above 0.
    static int nextInt(int bound);
    /// A uniform integer from `from` up to but not including `until`; throws
    /// std::invalid_argument unless `from` is below `until`.
    static int nextInt(int from, int until);
    /// True or false with equal chance.
    static bool nextBoolean();
};

} // namespace engine::math
