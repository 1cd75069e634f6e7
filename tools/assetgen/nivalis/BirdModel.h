#pragma once

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// A long-winged sea bird, head towards -Y, wings along X, drawn in one colour against the sky.
/// Its vertices are shared between faces (there is no shading to keep apart) and every face is
/// drawn from both sides, so the flat wings show from above and below. The scene stretches it
/// by 6 across and 3 along, so the model's wings are short: about 160 units tip to tip.
class BirdModel {
public:
    /// Half the span of the wings in model units.
    static constexpr double HALF_SPAN = 80.0;

    BirdModel() = delete;

    /// The bird with its wings at `beat`: 1 up, 0 level, -1 down.
    static mesh::MeshData build(double beat);
};

} // namespace tools::assetgen::nivalis
