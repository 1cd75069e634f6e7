#pragma once

#include "tools/assetgen/catalogue/SceneAssets.h"

namespace tools::assetgen::example {

/// Every model and texture of the sample valley, by the file names of its catalogue.
class ExampleAssets : public catalogue::SceneAssets {
public:
    std::string resourcesRoot() const override { return "example"; }
    std::unique_ptr<engine::Scene> makeScene() const override;
    mesh::MeshData mesh(const std::string& fileName) const override;
    catalogue::TextureContent texture(const engine::Texture& texture) const override;
};

} // namespace tools::assetgen::example
