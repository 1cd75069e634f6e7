#include "tools/assetgen/catalogue/SceneManifest.h"

#include <map>
#include <set>
#include <stdexcept>

#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"

namespace tools::assetgen::catalogue {

namespace {

struct Use {
    std::optional<mesh::VertexLayout> layout;
    int draws = 0;
};

void walk(const std::shared_ptr<engine::commands::Command>& node, std::set<const void*>& visited,
          std::map<const engine::Mesh*, Use>& uses) {
    if (!node || !visited.insert(node.get()).second) {
        return;
    }
    if (const auto* group = dynamic_cast<const engine::commands::GroupCommand*>(node.get())) {
        for (const auto& child : group->commands) {
            walk(child, visited, uses);
        }
        return;
    }
    const auto* draw = dynamic_cast<const engine::commands::DrawMeshCommand*>(node.get());
    if (!draw || !draw->mesh) {
        return;
    }
    std::optional<mesh::VertexLayout> layout;
    if (draw->state && draw->state->vertexAttributes) {
        layout = mesh::VertexLayout::of(*draw->state->vertexAttributes);
    }
    auto [it, inserted] = uses.try_emplace(draw->mesh.get());
    Use& use = it->second;
    if (!inserted && use.layout != layout) {
        throw std::invalid_argument("Mesh \"" + draw->mesh->fileName + "\" is drawn with two vertex layouts");
    }
    use.layout = layout;
    ++use.draws;
}

} // namespace

SceneManifest SceneManifest::of(engine::Scene& scene, std::string resourcesRoot) {
    std::set<const void*> visited;
    std::map<const engine::Mesh*, Use> uses;
    for (const auto& node : scene.getCommands()) {
        walk(node, visited, uses);
    }

    SceneManifest manifest;
    manifest.resourcesRoot = std::move(resourcesRoot);
    std::set<const engine::Mesh*> listed;
    for (const auto& item : scene.getMeshes()) {
        if (!item) {
            continue;
        }
        listed.insert(item.get());
        MeshEntry entry{item, std::nullopt, 0};
        // A mesh object may be listed twice; a file name too. Both are loaded as listed.
        if (auto it = uses.find(item.get()); it != uses.end()) {
            entry.layout = it->second.layout;
            entry.draws = it->second.draws;
        } else if (item->attributes) {
            entry.layout = mesh::VertexLayout::of(*item->attributes);
        }
        manifest.meshes.push_back(entry);
    }
    for (const auto& [meshPointer, use] : uses) {
        if (!listed.contains(meshPointer)) {
            throw std::invalid_argument("Mesh \"" + meshPointer->fileName + "\" is drawn but not in the scene's list");
        }
    }
    for (const auto& texture : scene.getTextures()) {
        if (texture) {
            manifest.textures.push_back(texture);
        }
    }
    return manifest;
}

const SceneManifest::MeshEntry& SceneManifest::mesh(const std::string& fileName) const {
    for (const auto& entry : meshes) {
        if (entry.mesh->fileName == fileName) {
            return entry;
        }
    }
    throw std::out_of_range("No mesh \"" + fileName + "\" in " + resourcesRoot);
}

} // namespace tools::assetgen::catalogue
