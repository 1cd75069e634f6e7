#pragma once

#include <memory>
#include <vector>

#include "engine/Mesh.h"
#include "engine/MeshAttributes.h"

namespace scenes::betonia {

/// The two rooms' models, built once on first use. They share one layout and have an empty
/// `name`; the file stems tell them apart.
class Meshes {
public:
    /// VERTEX HALF3 at 0, UV0 HALF2 at 6; stride 12.
    std::shared_ptr<engine::MeshAttributes> attribs;
    /// "room1": the whole first room.
    std::shared_ptr<engine::Mesh> meshRoom1;
    /// "room2-optimized0": first part of the second room.
    std::shared_ptr<engine::Mesh> meshRoom2Part0;
    /// "room2-optimized1": second part.
    std::shared_ptr<engine::Mesh> meshRoom2Part1;
    /// "room2-optimized2": third part.
    std::shared_ptr<engine::Mesh> meshRoom2Part2;

    /// All four, in the order above.
    std::vector<std::shared_ptr<engine::Mesh>> meshes;

    /// The one instance.
    static const Meshes& shared();

private:
    Meshes();
};

} // namespace scenes::betonia
