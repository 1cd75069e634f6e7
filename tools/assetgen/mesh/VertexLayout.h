#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/AttributeType.h"
#include "engine/MeshAttributes.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/VertexFormat.h"
#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::mesh {

/// How the vertices of one model file are laid out: the attributes of the draw state that draws
/// the model (or of the mesh's own description for a model that no draw uses), byte offsets and
/// a stride. Packing writes each vertex at i * stride, little-endian, unused bytes zero.
class VertexLayout {
public:
    struct Attribute {
        engine::AttributeType type;
        engine::VertexFormat format;
        std::int32_t offset;
        bool operator==(const Attribute&) const = default;
    };

    VertexLayout(std::vector<Attribute> attributes, std::int32_t stride);
    /// The layout a pipeline is built with.
    static VertexLayout of(const engine::VertexAttributesDescriptor& descriptor);
    /// The layout a mesh description declares.
    static VertexLayout of(const engine::MeshAttributes& attributes);

    const std::vector<Attribute>& attributes() const { return attributes_; }
    std::int32_t stride() const { return stride_; }
    /// True when the layout has an attribute of `type`.
    bool has(engine::AttributeType type) const;
    bool operator==(const VertexLayout&) const = default;
    /// "VERTEX HALF3 @0, U0 HALF @6; stride 8", for messages.
    std::string describe() const;

    /// The bytes of `mesh`'s vertices in this layout. Throws std::invalid_argument for a format
    /// the generator cannot write or for an attribute that does not fit inside the stride.
    std::vector<std::uint8_t> pack(const MeshData& mesh) const;

private:
    std::vector<Attribute> attributes_;
    std::int32_t stride_;
};

} // namespace tools::assetgen::mesh
