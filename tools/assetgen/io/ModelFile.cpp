#include "tools/assetgen/io/ModelFile.h"

#include <stdexcept>
#include <string>

namespace tools::assetgen::io {

std::vector<std::uint8_t> ModelFile::packIndices(const std::vector<std::uint32_t>& indices, std::size_t vertexCount) {
    if (vertexCount > 65536) {
        throw std::invalid_argument("A model can address at most 65536 vertices, not " + std::to_string(vertexCount));
    }
    std::vector<std::uint8_t> bytes;
    bytes.reserve(indices.size() * 2);
    for (std::uint32_t index : indices) {
        if (index >= vertexCount) {
            throw std::invalid_argument("Index " + std::to_string(index) + " is not below the vertex count " +
                                        std::to_string(vertexCount));
        }
        bytes.push_back(static_cast<std::uint8_t>(index & 0xFFu));
        bytes.push_back(static_cast<std::uint8_t>(index >> 8));
    }
    return bytes;
}

void ModelFile::write(OutputTree& out, const std::filesystem::path& stem, const mesh::MeshData& mesh,
                      const std::optional<mesh::VertexLayout>& layout) {
    if (mesh.indices.empty() || mesh.indices.size() % 3 != 0) {
        throw std::invalid_argument("Model " + stem.string() + " has no whole triangles");
    }
    std::vector<std::uint8_t> vertices;
    if (layout) {
        vertices = layout->pack(mesh);
    }
    out.write(stem.string() + "-strides.bin", vertices);
    out.write(stem.string() + "-indices.bin", packIndices(mesh.indices, mesh.vertices.size()));
}

} // namespace tools::assetgen::io
