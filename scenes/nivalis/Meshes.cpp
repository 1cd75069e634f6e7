#include "scenes/nivalis/Meshes.h"

namespace scenes::nivalis {

using engine::AttributeType;
using engine::Mesh;
using engine::MeshAttribute;
using engine::MeshAttributes;
using engine::VertexFormat;

Meshes::Meshes() {
    attribsPaletteFp16 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                    MeshAttribute(AttributeType::U0, VertexFormat::HALF, 6)},
        8);
    attribsDiffuseFp16 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0),
                    MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 12)},
        16);
    attribsWaterFp16 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                    MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 6)},
        12);
    attribsVertexOnlyFp16 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0)}, 8);
    attribsVertexOnlyFp32 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0)}, 12);
    attribsClouds = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0),
                    MeshAttribute(AttributeType::U0, VertexFormat::UBYTE_NORMALIZED, 12)},
        16);
    attribsAnimatedTextured = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::UV0, VertexFormat::FLOAT2, 0)}, 4);

    meshMountains1 = std::make_shared<Mesh>("mountains1", attribsPaletteFp16);
    meshMountainsDistant = std::make_shared<Mesh>("mountains_distant1", attribsPaletteFp16);
    meshSun = std::make_shared<Mesh>("sun", attribsDiffuseFp16);
    meshSunLow = std::make_shared<Mesh>("sun2", attribsDiffuseFp16);
    meshWater = std::make_shared<Mesh>("water_test", attribsWaterFp16);
    meshSky = std::make_shared<Mesh>("sky", attribsDiffuseFp16);
    meshStars = std::make_shared<Mesh>("stars", attribsVertexOnlyFp32);
    meshClouds = std::make_shared<Mesh>("clouds", attribsClouds);
    meshBird = std::make_shared<Mesh>("bird1", nullptr);
    meshShip = std::make_shared<Mesh>("ship", attribsPaletteFp16);
    meshPenguinIdle = std::make_shared<Mesh>("penguin-idle", attribsAnimatedTextured);
    meshPenguinIdle2 = std::make_shared<Mesh>("penguin-idle2", attribsAnimatedTextured);
    meshSeal = std::make_shared<Mesh>("seal-idle", attribsAnimatedTextured);
    meshAnimalsSleeping = std::make_shared<Mesh>("animals_sleeping", attribsDiffuseFp16);

    meshes = {meshSun,   meshSunLow, meshMountains1, meshMountainsDistant, meshWater,       meshSky,  meshStars,
              meshClouds, meshBird,  meshShip,       meshPenguinIdle,      meshPenguinIdle2, meshSeal, meshAnimalsSleeping};
}

const Meshes& Meshes::shared() {
    static const Meshes instance;
    return instance;
}

} // namespace scenes::nivalis
