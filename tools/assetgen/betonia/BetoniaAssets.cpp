#include "tools/assetgen/betonia/BetoniaAssets.h"

#include <cmath>
#include <stdexcept>

#include "scenes/betonia/BetoniaScene.h"
#include "tools/assetgen/betonia/Rooms.h"

namespace tools::assetgen::betonia {

std::unique_ptr<engine::Scene> BetoniaAssets::makeScene() const { return std::make_unique<scenes::betonia::BetoniaScene>(); }

const BetoniaAssets::Baked& BetoniaAssets::baked(const std::string& model) const {
    if (auto it = cache_.find(model); it != cache_.end()) {
        return it->second;
    }
    const Interior::Band plain{0.0, PLAIN_SHARE};
    const Interior::Band glowing{PLAIN_SHARE, 1.0};
    Baked result;
    if (model == "room1") {
        result.atlas = core::Image(2048, 2048);
        result.mesh = Rooms::room1().bake(0, result.atlas, plain, glowing);
    } else if (model == "room2-optimized0") {
        result.atlas = core::Image(4096, 2048);
        result.mesh = Rooms::room2().bake(0, result.atlas, plain, glowing);
    } else if (model == "room2-optimized1") {
        // The light strips lie in the glowing quarter of the glow texture, which is their texture.
        core::Image scratch(1024, 512);
        result.mesh = Rooms::room2().bake(1, scratch, plain, glowing);
        result.atlas = glow(1024, 512);
    } else if (model == "room2-optimized2") {
        result.atlas = core::Image(512, 512);
        result.mesh = Rooms::room2().bake(2, result.atlas, {0.0, 1.0}, {0.0, 1.0});
    } else {
        throw std::out_of_range("No model \"" + model + "\" for Betonia");
    }
    return cache_.emplace(model, std::move(result)).first->second;
}

core::Image BetoniaAssets::glow(int width, int height) {
    core::Image image(width, height, {0.0f, 0.0f, 0.0f, 1.0f});
    const int from = static_cast<int>(width * PLAIN_SHARE);
    for (int y = 0; y < height; ++y) {
        for (int x = from; x < width; ++x) {
            // Warm white, a little brighter towards the middle of the band.
            const float t = static_cast<float>(y) / static_cast<float>(height - 1);
            const float lift = 0.92f + 0.08f * (1.0f - std::abs(2.0f * t - 1.0f));
            image.at(x, y) = {1.0f * lift, 0.95f * lift, 0.84f * lift, 1.0f};
        }
    }
    return image;
}

mesh::MeshData BetoniaAssets::mesh(const std::string& fileName) const { return baked(fileName).mesh; }

catalogue::TextureContent BetoniaAssets::texture(const engine::Texture& texture) const {
    catalogue::TextureContent content;
    content.blockWidth = 8;
    content.blockHeight = 8;
    content.effort = io::AstcFile::Effort::FAST;
    const std::string& name = texture.fileName;
    if (name == "room1") {
        content.image = baked("room1").atlas;
    } else if (name == "room20") {
        content.image = baked("room2-optimized0").atlas;
    } else if (name == "room21") {
        content.image = glow(1024, 512);
    } else if (name == "room22") {
        content.image = baked("room2-optimized2").atlas;
    } else {
        throw std::out_of_range("No texture \"" + name + "\" for Betonia");
    }
    return content;
}

} // namespace tools::assetgen::betonia
