#pragma once

#include <memory>
#include <string>

#include "engine/Scene.h"
#include "engine/Texture.h"
#include "tools/assetgen/catalogue/TextureContent.h"
#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::catalogue {

/// The art of one scene: the generator asks it for every model and texture that the scene's
/// manifest names, by file name. An asset the scene names and this class cannot make is an
/// error, so a new name in a catalogue fails the build instead of a start of the program.
class SceneAssets {
public:
    virtual ~SceneAssets() = default;

    /// The scene's directory inside the resources.
    virtual std::string resourcesRoot() const = 0;
    /// A fresh scene object to read the manifest from.
    virtual std::unique_ptr<engine::Scene> makeScene() const = 0;
    /// The model with `fileName`. Throws std::out_of_range for a name it does not know.
    virtual mesh::MeshData mesh(const std::string& fileName) const = 0;
    /// The content of `texture`. Throws std::out_of_range for a file name it does not know.
    virtual TextureContent texture(const engine::Texture& texture) const = 0;
};

} // namespace tools::assetgen::catalogue
