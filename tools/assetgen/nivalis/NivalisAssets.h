#pragma once

#include "tools/assetgen/catalogue/SceneAssets.h"

namespace tools::assetgen::nivalis {

/// Every model and texture of the polar sea, by the file names the scene's catalogue gives.
class NivalisAssets : public catalogue::SceneAssets {
public:
    std::string resourcesRoot() const override { return "nivalis"; }
    std::unique_ptr<engine::Scene> makeScene() const override;
    mesh::MeshData mesh(const std::string& fileName) const override;
    catalogue::TextureContent texture(const engine::Texture& texture) const override;
};

} // namespace tools::assetgen::nivalis
