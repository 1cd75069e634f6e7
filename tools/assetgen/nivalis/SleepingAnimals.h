#pragma once

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// The night's one static model: every penguin and seal of the scene asleep where it stands by
/// day (a walking seal where its walk begins), in world coordinates, palette in UV0.
class SleepingAnimals {
public:
    SleepingAnimals() = delete;

    static mesh::MeshData mesh();
};

} // namespace tools::assetgen::nivalis
