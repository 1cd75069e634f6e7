#pragma once

#include <cstdint>
#include <vector>

#include "tools/assetgen/core/Image.h"

namespace tools::assetgen::shared {

/// Blue noise by the void-and-cluster method: a tile in which every threshold picks points
/// spread as evenly as possible, so that dithering with it leaves no visible pattern.
class BlueNoise {
public:
    BlueNoise() = delete;

    /// The rank of each texel (0 to size * size - 1), row by row, for a square tile that repeats.
    static std::vector<int> ranks(int size, std::uint64_t seed);
    /// The tile as a grey image: rank / (size * size - 1) in every colour channel, alpha 1.
    static core::Image image(int size, std::uint64_t seed);
};

} // namespace tools::assetgen::shared
