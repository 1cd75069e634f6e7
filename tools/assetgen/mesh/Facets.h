#pragma once

#include <functional>

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::mesh {

/// Adds flat faces to a mesh, each with one palette coordinate on all its corners (as `u0` and
/// as the `u` of UV0, with `v` 0.5), so that every face shows one colour.
class Facets {
public:
    /// Picks a face's palette coordinate from its outward normal and its centre.
    using Painter = std::function<double(const core::Vec3d& normal, const core::Vec3d& centre)>;

    /// Faces go into `out`, coloured by `painter`.
    Facets(MeshData& out, Painter painter) : out_(out), painter_(std::move(painter)) {}

    /// A triangle a, b, c, counter-clockwise seen from its front.
    void triangle(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c);
    /// A triangle with the palette coordinate given.
    void triangle(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, double u);
    /// A quad a, b, c, d (counter-clockwise) as two triangles.
    void quad(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, const core::Vec3d& d);
    /// The same, with the palette coordinate given for both halves.
    void quad(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, const core::Vec3d& d, double u);
    /// A triangle seen from both sides: the face and its mirror, same colour.
    void twoSided(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, double u);

    /// Outward normal of a, b, c (zero for a degenerate triangle).
    static core::Vec3d normal(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c);

private:
    MeshData& out_;
    Painter painter_;
};

} // namespace tools::assetgen::mesh
