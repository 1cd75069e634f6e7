#include "tools/assetgen/example/ExampleAssets.h"

#include <stdexcept>

#include "scenes/example/ExampleScene.h"
#include "tools/assetgen/example/Alpaca.h"
#include "tools/assetgen/example/Valley.h"
#include "tools/assetgen/io/AnimationTable.h"
#include "tools/assetgen/nivalis/BirdModel.h"

namespace tools::assetgen::example {

std::unique_ptr<engine::Scene> ExampleAssets::makeScene() const { return std::make_unique<scenes::example::ExampleScene>(); }

mesh::MeshData ExampleAssets::mesh(const std::string& fileName) const {
    if (fileName == "Alpaca-Idle") {
        return Alpaca::build(0.0, 0.0);
    }
    if (fileName == "bird1") {
        return nivalis::BirdModel::build(0.0);
    }
    return Valley::part(fileName);
}

catalogue::TextureContent ExampleAssets::texture(const engine::Texture& texture) const {
    catalogue::TextureContent content;
    if (texture.fileName == "static") {
        content.image = Valley::sky(256, 256);
    } else if (texture.fileName == "Alpaca/Eating/animal.rgba.fp16") {
        const int frames = texture.height - 1; // one chunk: the alpaca fits one row
        content.raw = io::AnimationTable::pack(Alpaca::eating(frames), texture.width, frames);
    } else {
        throw std::out_of_range("No texture \"" + texture.fileName + "\" for the sample valley");
    }
    return content;
}

} // namespace tools::assetgen::example
