#pragma once

#include "tools/assetgen/catalogue/SceneAssets.h"

namespace tools::assetgen::spirelight {

/// Every model and texture of the night city, by the file names of its catalogue.
class SpirelightAssets : public catalogue::SceneAssets {
public:
    std::string resourcesRoot() const override { return "spirelight"; }
    std::unique_ptr<engine::Scene> makeScene() const override;
    mesh::MeshData mesh(const std::string& fileName) const override;
    catalogue::TextureContent texture(const engine::Texture& texture) const override;
};

} // namespace tools::assetgen::spirelight
