#pragma once

#include "tools/assetgen/mesh/MeshData.h"
#include "tools/assetgen/mesh/VertexLayout.h"

namespace tools::assetgen::shared {

/// The vignette every scene shares: a mesh over the whole screen in clip space (x and y from -1
/// to 1), each vertex carrying in AO how open the picture is there: 1 over the middle, falling
/// smoothly to 0 in the corners. Its shader blends its two colours by that value and the result
/// multiplies the picture.
class Vignette {
public:
    Vignette() = delete;

    /// VERTEX HALF2 at 0, AO UBYTE_NORMALIZED at 6, stride 8: the fixed layout of the vignette.
    static mesh::VertexLayout layout();
    /// Openness at a point of the screen.
    static double openness(double x, double y);
    /// The mesh: rings of an ellipse fitted to the screen, squared off to its corners.
    static mesh::MeshData mesh();
};

} // namespace tools::assetgen::shared
