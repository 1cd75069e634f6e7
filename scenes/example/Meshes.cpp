#include "scenes/example/Meshes.h"

namespace scenes::example {

using engine::AttributeType;
using engine::Mesh;
using engine::MeshAttribute;
using engine::MeshAttributes;
using engine::VertexFormat;

Meshes::Meshes() {
    attribsColor = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0)}, 8);
    attribsDiffuse = std::make_shared<MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                    MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 6)},
        12);

    meshStatic = std::make_shared<Mesh>("static", attribsDiffuse);
    meshAlpaca = std::make_shared<Mesh>("Alpaca-Idle", nullptr);
    meshSun = std::make_shared<Mesh>("sun", attribsColor);
    meshWaterTest = std::make_shared<Mesh>("water_test", attribsColor);
    meshSunSmall = std::make_shared<Mesh>("sun_small", attribsColor);
    meshStars = std::make_shared<Mesh>("stars", attribsColor);
    meshBird = std::make_shared<Mesh>("bird1", nullptr);
    meshMountainsBright = std::make_shared<Mesh>("mountains_bright", attribsColor);
    meshMountainsDark = std::make_shared<Mesh>("mountains_dark", attribsColor);
    meshCenterRockBright = std::make_shared<Mesh>("center_rock_bright", attribsColor);
    meshCenterRockDark = std::make_shared<Mesh>("center_rock_dark", attribsColor);
    meshGround1 = std::make_shared<Mesh>("ground_1", attribsColor);
    meshHills = std::make_shared<Mesh>("hills", attribsColor);
    meshGround2 = std::make_shared<Mesh>("ground_2", attribsColor);
    meshWater = std::make_shared<Mesh>("water", attribsColor);
    meshWaterHighlights = std::make_shared<Mesh>("water_highlights", attribsColor);

    meshes = {meshStatic,          meshAlpaca,        meshSun,              meshWaterTest,
              meshSunSmall,        meshStars,         meshBird,             meshMountainsBright,
              meshMountainsDark,   meshCenterRockBright, meshCenterRockDark, meshGround1,
              meshHills,           meshGround2,       meshWater,            meshWaterHighlights};
}

const Meshes& Meshes::shared() {
    static const Meshes instance;
    return instance;
}

} // namespace scenes::example
