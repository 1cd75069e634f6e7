#pragma once

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// The ring of far mountains that closes the sea all round, standing between the islands and
/// the sky. Their feet lie below the water line, where the height fog of their shader hides
/// them; they stay low under the low sun, so that it shows above them.
class DistantRanges {
public:
    DistantRanges() = delete;

    /// Height of the ranges at (x, y) (the sea floor outside the ring).
    static double height(double x, double y);
    /// The flat-shaded ring, palette coordinates in U0.
    static mesh::MeshData mesh();
};

} // namespace tools::assetgen::nivalis
