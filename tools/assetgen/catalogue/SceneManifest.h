#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/Mesh.h"
#include "engine/Scene.h"
#include "engine/Texture.h"
#include "tools/assetgen/mesh/VertexLayout.h"

namespace tools::assetgen::catalogue {

/// What one scene asks to be loaded, read from the scene object itself: its meshes with the
/// vertex layout each must be written in, and its texture descriptions. The layout of a mesh is
/// that of the draw states that draw it, found by walking the scene's whole command tree, so a
/// model file can never disagree with the pipeline that reads it.
class SceneManifest {
public:
    struct MeshEntry {
        std::shared_ptr<engine::Mesh> mesh;
        /// How the vertex file is laid out; empty for a model without a vertex stream (its
        /// positions come from an animation texture) or one that declares no layout at all.
        std::optional<mesh::VertexLayout> layout;
        /// Number of draws of this mesh in the tree (both trees count, shared nodes once).
        int draws = 0;
    };

    /// The scene's directory inside the resources ("nivalis").
    std::string resourcesRoot;
    /// One entry per item of the scene's `meshes`, in its order.
    std::vector<MeshEntry> meshes;
    /// The scene's `textures`, in its order.
    std::vector<std::shared_ptr<engine::Texture>> textures;

    /// Reads `scene`. Throws std::invalid_argument when two draw states give one mesh two
    /// different layouts, or when a drawn mesh is missing from the scene's mesh list.
    static SceneManifest of(engine::Scene& scene, std::string resourcesRoot);
    /// The entry for the mesh with `fileName`; throws std::out_of_range when there is none.
    const MeshEntry& mesh(const std::string& fileName) const;
};

} // namespace tools::assetgen::catalogue
