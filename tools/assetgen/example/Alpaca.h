#pragma once

#include <vector>

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::example {

/// A low-poly alpaca standing at the origin, facing +X, about 70 units tall to the ears; one
/// colour, so its corners are shared. Every pose keeps the vertices in their order.
class Alpaca {
public:
    Alpaca() = delete;

    /// The alpaca with its neck lowered by `lower` (0 head up, 1 muzzle on the grass) and its
    /// jaw working by `chew` (0 to 1).
    static mesh::MeshData build(double lower, double chew);
    /// The eating loop, played forward and back: the head goes down to the grass, then chews.
    static std::vector<std::vector<core::Vec3d>> eating(int frames);
};

} // namespace tools::assetgen::example
