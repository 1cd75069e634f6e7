#pragma once

#include "tools/assetgen/core/Image.h"

namespace tools::assetgen::nivalis {

/// The caustic pattern under the water: a network of bright, wavy lines where the light
/// gathers, tiling seamlessly on both axes. Grey in red, green and blue.
class Caustics {
public:
    Caustics() = delete;

    /// A tile of `size` x `size` (a power of two) with `cells` light cells across.
    static core::Image image(int size, int cells);
};

} // namespace tools::assetgen::nivalis
