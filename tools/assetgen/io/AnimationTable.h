#pragma once

#include <cstdint>
#include <vector>

#include "tools/assetgen/core/Vec3d.h"

namespace tools::assetgen::io {

/// The raw RGBA16F file of a vertex animation: for every vertex and frame, the position as three
/// half floats and an alpha of 1. Vertices are cut into chunks of `textureWidth`; chunk k is a
/// block of `frames` + 1 rows starting at row k * (frames + 1), and row f of the block holds
/// frame f. The block's last row repeats frame 0, so that a loop closes on itself.
class AnimationTable {
public:
    AnimationTable() = delete;

    /// Number of chunks that `vertices` vertices need at `textureWidth` per row.
    static int chunks(int vertices, int textureWidth);
    /// The file's bytes: `textureWidth` x chunks * (`frames` + 1) texels, 8 bytes each, row 0
    /// first. `poses[f][i]` is vertex i in frame f; all frames have the same vertex count.
    /// Throws std::invalid_argument when the poses do not fit.
    static std::vector<std::uint8_t> pack(const std::vector<std::vector<core::Vec3d>>& poses, int textureWidth,
                                          int frames);
};

} // namespace tools::assetgen::io
