#pragma once

#include <memory>
#include <vector>

#include "engine/Mesh.h"
#include "engine/MeshAttributes.h"

namespace scenes::nivalis {

/// The scene's vertex layouts and models, built once on first use. Every mesh's `name` is also
/// its `fileName`. The layouts describe the model files; what a shader reads is in the draw
/// states of NivalisScene.
class Meshes {
public:
    /// VERTEX HALF3 at 0, U0 HALF at 6; stride 8. Palette-coloured models.
    std::shared_ptr<engine::MeshAttributes> attribsPaletteFp16;
    /// VERTEX FLOAT3 at 0, UV0 HALF2 at 12; stride 16. Textured models.
    std::shared_ptr<engine::MeshAttributes> attribsDiffuseFp16;
    /// VERTEX HALF3 at 0, UV0 HALF2 at 6; stride 12. The water.
    std::shared_ptr<engine::MeshAttributes> attribsWaterFp16;
    /// VERTEX HALF3 at 0; stride 8. Declared for completeness, used by no mesh.
    std::shared_ptr<engine::MeshAttributes> attribsVertexOnlyFp16;
    /// VERTEX FLOAT3 at 0; stride 12. The stars.
    std::shared_ptr<engine::MeshAttributes> attribsVertexOnlyFp32;
    /// VERTEX FLOAT3 at 0, U0 UBYTE_NORMALIZED at 12; stride 16. The clouds.
    std::shared_ptr<engine::MeshAttributes> attribsClouds;
    /// UV0 FLOAT2 at 0; stride 4. The animals read their positions from an animation texture;
    /// the stride is that of the HALF2 coordinates the draw state declares, and is kept so.
    std::shared_ptr<engine::MeshAttributes> attribsAnimatedTextured;

    /// "mountains1": the near mountains.
    std::shared_ptr<engine::Mesh> meshMountains1;
    /// "mountains_distant1": the distant range, fogged.
    std::shared_ptr<engine::Mesh> meshMountainsDistant;
    /// "sun": the high sun.
    std::shared_ptr<engine::Mesh> meshSun;
    /// "sun2": the low sun of sunrise and sunset.
    std::shared_ptr<engine::Mesh> meshSunLow;
    /// "water_test": the sea.
    std::shared_ptr<engine::Mesh> meshWater;
    /// "sky": the sky dome.
    std::shared_ptr<engine::Mesh> meshSky;
    /// "stars": the star field.
    std::shared_ptr<engine::Mesh> meshStars;
    /// "clouds": the cloud deck.
    std::shared_ptr<engine::Mesh> meshClouds;
    /// "bird1": no vertex stream and no layout; positions come from the bird animation texture.
    std::shared_ptr<engine::Mesh> meshBird;
    /// "ship".
    std::shared_ptr<engine::Mesh> meshShip;
    /// "penguin-idle".
    std::shared_ptr<engine::Mesh> meshPenguinIdle;
    /// "penguin-idle2".
    std::shared_ptr<engine::Mesh> meshPenguinIdle2;
    /// "seal-idle": idle and walking seals alike.
    std::shared_ptr<engine::Mesh> meshSeal;
    /// "animals_sleeping": the one static model that stands for all animals at night.
    std::shared_ptr<engine::Mesh> meshAnimalsSleeping;

    /// All fourteen in the order the renderer loads them: sun, sun2, mountains1,
    /// mountains_distant1, water_test, sky, stars, clouds, bird1, ship, penguin-idle,
    /// penguin-idle2, seal-idle, animals_sleeping.
    std::vector<std::shared_ptr<engine::Mesh>> meshes;

    /// The one instance.
    static const Meshes& shared();

private:
    Meshes();
};

} // namespace scenes::nivalis
