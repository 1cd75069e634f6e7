#include "tools/assetgen/spirelight/SpirelightAssets.h"

#include <stdexcept>

#include "scenes/spirelight/SpirelightScene.h"
#include "tools/assetgen/shared/BlueNoise.h"
#include "tools/assetgen/spirelight/City.h"
#include "tools/assetgen/spirelight/Lights.h"

namespace tools::assetgen::spirelight {

std::unique_ptr<engine::Scene> SpirelightAssets::makeScene() const {
    return std::make_unique<scenes::spirelight::SpirelightScene>();
}

mesh::MeshData SpirelightAssets::mesh(const std::string& fileName) const {
    const City& city = City::shared();
    // The opaque parts are also drawn by the blurred pass, which takes the other winding as
    // front-facing: they carry both.
    const auto twoSided = [](mesh::MeshData data) {
        data.addBackFaces();
        return data;
    };
    if (fileName == "building-1") return twoSided(city.buildings());
    if (fileName == "red-lamps") return city.redLamps();
    if (fileName == "red-lights") return city.redLights();
    if (fileName == "neon-signs") return twoSided(city.neonSigns());
    if (fileName == "buildings-distant") return twoSided(city.distant());
    if (fileName == "islands") return twoSided(city.islands());
    if (fileName == "water") return city.water();
    if (fileName == "sky") return city.sky();
    if (fileName == "stars") return city.stars();
    throw std::out_of_range("No model \"" + fileName + "\" for Spirelight");
}

catalogue::TextureContent SpirelightAssets::texture(const engine::Texture& texture) const {
    catalogue::TextureContent content;
    content.effort = io::AstcFile::Effort::FAST;
    const std::string& name = texture.fileName;
    if (name == "sky-night") {
        content.image = Lights::sky();
        content.effort = io::AstcFile::Effort::THOROUGH;
    } else if (name == "blue-noise-16") {
        content.image = shared::BlueNoise::image(64, 0xB10EULL);
        content.effort = io::AstcFile::Effort::THOROUGH;
    } else if (name == "diffuse2") {
        content.image = Lights::facades();
    } else if (name == "emission2") {
        content.image = Lights::windows();
    } else if (name == "cubemaps/1/sky") {
        content.image = Lights::skyFaces(32);
    } else if (name == "distant") {
        content.image = Lights::distant();
    } else if (name == "neon") {
        content.image = Lights::neon();
    } else if (name == "neon2") {
        content.image = Lights::neon().halved().halved();
    } else if (name == "flare") {
        content.image = Lights::flare(32);
    } else if (name == "dust") {
        content.image = Lights::dust(16);
    } else {
        throw std::out_of_range("No texture \"" + name + "\" for Spirelight");
    }
    return content;
}

} // namespace tools::assetgen::spirelight
