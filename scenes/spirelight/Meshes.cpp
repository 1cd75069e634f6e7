#include "scenes/spirelight/Meshes.h"

namespace scenes::spirelight {

using engine::AttributeType;
using engine::Mesh;
using engine::MeshAttribute;
using engine::MeshAttributes;
using engine::VertexFormat;

Meshes::Meshes() {
    attribsSky = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                    MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 6)},
        12);
    attribsColorFp32 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0)}, 12);
    attribsBuilding = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                    MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 6),
                    MeshAttribute(AttributeType::NORMAL, VertexFormat::HALF3, 10)},
        16);
    attribsDiffuseFp16 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                    MeshAttribute(AttributeType::UV0, VertexFormat::UBYTE2_NORMALIZED, 6)},
        8);
    attribsColorFp16 = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0)}, 8);
    attribsSprites = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0)}, 12);

    meshSky = std::make_shared<Mesh>("sky", attribsSky);
    meshStars = std::make_shared<Mesh>("stars", attribsColorFp32);
    meshBuilding = std::make_shared<Mesh>("building-1", attribsBuilding);
    meshBuildingsDistant = std::make_shared<Mesh>("buildings-distant", attribsDiffuseFp16);
    meshRed = std::make_shared<Mesh>("red-lamps", attribsColorFp16);
    meshIslands1 = std::make_shared<Mesh>("islands", attribsColorFp16);
    meshWater = std::make_shared<Mesh>("water", attribsColorFp16);
    meshNeon = std::make_shared<Mesh>("neon-signs", attribsDiffuseFp16);
    meshRedSprites = std::make_shared<Mesh>("red-lights", attribsSprites);

    meshes = {meshSky,      meshStars, meshBuilding, meshBuildingsDistant, meshRed,
              meshIslands1, meshWater, meshNeon,     meshRedSprites};
}

const Meshes& Meshes::shared() {
    static const Meshes instance;
    return instance;
}

} // namespace scenes::spirelight
