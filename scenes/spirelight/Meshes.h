#pragma once

#include <memory>
#include <vector>

#include "engine/Mesh.h"
#include "engine/MeshAttributes.h"

namespace scenes::spirelight {

/// The night city's vertex layouts and models, built once on first use. Every mesh's `name` is
/// also its `fileName`.
class Meshes {
public:
    /// VERTEX HALF3 at 0, UV0 HALF2 at 6; stride 12.
    std::shared_ptr<engine::MeshAttributes> attribsSky;
    /// VERTEX FLOAT3 at 0; stride 12.
    std::shared_ptr<engine::MeshAttributes> attribsColorFp32;
    /// VERTEX HALF3 at 0, UV0 HALF2 at 6, NORMAL HALF3 at 10; stride 16.
    std::shared_ptr<engine::MeshAttributes> attribsBuilding;
    /// VERTEX HALF3 at 0, UV0 UBYTE2_NORMALIZED at 6; stride 8.
    std::shared_ptr<engine::MeshAttributes> attribsDiffuseFp16;
    /// VERTEX HALF3 at 0; stride 8.
    std::shared_ptr<engine::MeshAttributes> attribsColorFp16;
    /// VERTEX FLOAT3 at 0; stride 12. Point sprites.
    std::shared_ptr<engine::MeshAttributes> attribsSprites;

    /// "sky".
    std::shared_ptr<engine::Mesh> meshSky;
    /// "stars".
    std::shared_ptr<engine::Mesh> meshStars;
    /// "building-1": the towers, drawn on screen and again into the bloom.
    std::shared_ptr<engine::Mesh> meshBuilding;
    /// "buildings-distant": drawn twice, the second time turned by 180 degrees.
    std::shared_ptr<engine::Mesh> meshBuildingsDistant;
    /// "red-lamps".
    std::shared_ptr<engine::Mesh> meshRed;
    /// "islands".
    std::shared_ptr<engine::Mesh> meshIslands1;
    /// "water".
    std::shared_ptr<engine::Mesh> meshWater;
    /// "neon-signs".
    std::shared_ptr<engine::Mesh> meshNeon;
    /// "red-lights": points drawn as sprites into the bloom only.
    std::shared_ptr<engine::Mesh> meshRedSprites;

    /// All nine, in the order above.
    std::vector<std::shared_ptr<engine::Mesh>> meshes;

    /// The one instance.
    static const Meshes& shared();

private:
    Meshes();
};

} // namespace scenes::spirelight
