#include "scenes/betonia/Meshes.h"

#include <string>

namespace scenes::betonia {

using engine::AttributeType;
using engine::MeshAttribute;
using engine::VertexFormat;

namespace {

std::shared_ptr<engine::Mesh> mesh(const std::string& fileName, const std::shared_ptr<engine::MeshAttributes>& attribs) {
    auto result = std::make_shared<engine::Mesh>();
    result->fileName = fileName;
    result->attributes = attribs;
    return result;
}

} // namespace

Meshes::Meshes() {
    attribs = std::make_shared<engine::MeshAttributes>(
        std::vector{MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                    MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 6)},
        12);
    meshRoom1 = mesh("room1", attribs);
    meshRoom2Part0 = mesh("room2-optimized0", attribs);
    meshRoom2Part1 = mesh("room2-optimized1", attribs);
    meshRoom2Part2 = mesh("room2-optimized2", attribs);
    meshes = {meshRoom1, meshRoom2Part0, meshRoom2Part1, meshRoom2Part2};
}

const Meshes& Meshes::shared() {
    static const Meshes instance;
    return instance;
}

} // namespace scenes::betonia
