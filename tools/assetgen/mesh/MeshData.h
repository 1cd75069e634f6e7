#pragma once

#include <cstdint>
#include <vector>

#include "tools/assetgen/core/Vec3d.h"

namespace tools::assetgen::mesh {

/// Everything a generated vertex may carry. A layout picks what it needs: VERTEX takes
/// `position`, UV0 takes (`u`, `v`), U0 takes `u0`, AO takes `ao`, NORMAL takes `normal`.
struct Vertex {
    core::Vec3d position;
    double u = 0.0;
    double v = 0.0;
    double u0 = 0.0;
    double ao = 1.0;
    core::Vec3d normal{0.0, 0.0, 1.0};
};

/// A triangle mesh under construction: vertices and a triangle list of indices into them.
/// Front faces wind counter-clockwise as seen from outside, which is what the passes cull by.
class MeshData {
public:
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;

    /// Appends a vertex and returns its index.
    std::uint32_t add(const Vertex& vertex);
    /// Appends a triangle of three existing vertices.
    void triangle(std::uint32_t a, std::uint32_t b, std::uint32_t c);
    /// Appends a triangle of its own three new vertices (flat faces need unshared corners).
    void flatTriangle(const Vertex& a, const Vertex& b, const Vertex& c);
    /// Appends all of `other`, its indices shifted past this mesh's vertices.
    void append(const MeshData& other);
    /// Appends every triangle again, wound the other way round over the same vertices, so that
    /// the mesh shows whichever winding a pass takes as front-facing (the blurred passes take
    /// clockwise). For meshes seen from inside or from both sides: sky domes, sea, the vignette.
    void addBackFaces();
    /// Number of triangles.
    std::size_t triangleCount() const { return indices.size() / 3; }
    /// Merges vertices that agree in every field a model file can hold (position, UV0, U0, AO;
    /// not the normal, which only guides colouring), keeping the first of each. Flat faces whose
    /// corners agree in material share them this way.
    void weld();
};

} // namespace tools::assetgen::mesh
