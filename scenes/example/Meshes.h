#pragma once

#include <memory>
#include <vector>

#include "engine/Mesh.h"
#include "engine/MeshAttributes.h"

namespace scenes::example {

/// The sample valley's layouts and models, built once on first use. Every mesh's `name` is also
/// its `fileName`. Flat-shaded models carry positions only; the animal and the bird carry no
/// vertex stream at all and read their positions from an animation texture.
class Meshes {
public:
    /// VERTEX HALF3 at 0; stride 8. The flat-coloured models.
    std::shared_ptr<engine::MeshAttributes> attribsColor;
    /// VERTEX HALF3 at 0, UV0 HALF2 at 6; stride 12. The textured test model.
    std::shared_ptr<engine::MeshAttributes> attribsDiffuse;

    /// "static": the textured test model.
    std::shared_ptr<engine::Mesh> meshStatic;
    /// "Alpaca-Idle": the animated animal, no layout.
    std::shared_ptr<engine::Mesh> meshAlpaca;
    /// "sun".
    std::shared_ptr<engine::Mesh> meshSun;
    /// "water_test": listed for loading, not drawn.
    std::shared_ptr<engine::Mesh> meshWaterTest;
    /// "sun_small".
    std::shared_ptr<engine::Mesh> meshSunSmall;
    /// "stars".
    std::shared_ptr<engine::Mesh> meshStars;
    /// "bird1": listed for loading, not drawn; no layout.
    std::shared_ptr<engine::Mesh> meshBird;
    /// "mountains_bright".
    std::shared_ptr<engine::Mesh> meshMountainsBright;
    /// "mountains_dark".
    std::shared_ptr<engine::Mesh> meshMountainsDark;
    /// "center_rock_bright".
    std::shared_ptr<engine::Mesh> meshCenterRockBright;
    /// "center_rock_dark".
    std::shared_ptr<engine::Mesh> meshCenterRockDark;
    /// "ground_1".
    std::shared_ptr<engine::Mesh> meshGround1;
    /// "hills".
    std::shared_ptr<engine::Mesh> meshHills;
    /// "ground_2".
    std::shared_ptr<engine::Mesh> meshGround2;
    /// "water".
    std::shared_ptr<engine::Mesh> meshWater;
    /// "water_highlights".
    std::shared_ptr<engine::Mesh> meshWaterHighlights;

    /// All sixteen, in the order above.
    std::vector<std::shared_ptr<engine::Mesh>> meshes;

    /// The one instance.
    static const Meshes& shared();

private:
    Meshes();
};

} // namespace scenes::example
