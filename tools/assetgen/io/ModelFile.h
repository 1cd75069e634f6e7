#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "tools/assetgen/io/OutputTree.h"
#include "tools/assetgen/mesh/MeshData.h"
#include "tools/assetgen/mesh/VertexLayout.h"

namespace tools::assetgen::io {

/// The pair of headerless files a model is loaded from: `<stem>-strides.bin` with the
/// interleaved vertices and `<stem>-indices.bin` with 16-bit little-endian indices.
class ModelFile {
public:
    ModelFile() = delete;

    /// The index file's bytes. Throws std::invalid_argument when an index is not below
    /// `vertexCount` or when more than 65536 vertices would be addressed.
    static std::vector<std::uint8_t> packIndices(const std::vector<std::uint32_t>& indices, std::size_t vertexCount);

    /// Writes `mesh` in `layout`; without a layout (a model whose positions come from an
    /// animation texture) the vertex file is empty and the indices address `vertexCount` texels.
    static void write(OutputTree& out, const std::filesystem::path& stem, const mesh::MeshData& mesh,
                      const std::optional<mesh::VertexLayout>& layout);
};

} // namespace tools::assetgen::io
