#include "tools/assetgen/nivalis/NivalisAssets.h"

#include <cctype>
#include <stdexcept>

#include "scenes/nivalis/Animations.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/nivalis/Textures.h"
#include "tools/assetgen/io/AnimationTable.h"
#include "tools/assetgen/nivalis/BirdModel.h"
#include "tools/assetgen/nivalis/Caustics.h"
#include "tools/assetgen/nivalis/DistantRanges.h"
#include "tools/assetgen/nivalis/Heavens.h"
#include "tools/assetgen/nivalis/Palette.h"
#include "tools/assetgen/nivalis/PenguinModel.h"
#include "tools/assetgen/nivalis/Sea.h"
#include "tools/assetgen/nivalis/SealModel.h"
#include "tools/assetgen/nivalis/ShipModel.h"
#include "tools/assetgen/nivalis/SkyDome.h"
#include "tools/assetgen/nivalis/SleepingAnimals.h"
#include "tools/assetgen/nivalis/TerrainMesh.h"
#include "tools/assetgen/shared/BlueNoise.h"

namespace tools::assetgen::nivalis {

using scenes::nivalis::TimeOfDay;

namespace {

/// The positions of `model` in each pose, for an animation table.
template <typename Build, typename Pose>
std::vector<std::vector<core::Vec3d>> posesOf(const std::vector<Pose>& poses, Build build) {
    std::vector<std::vector<core::Vec3d>> frames;
    for (const Pose& pose : poses) {
        std::vector<core::Vec3d> positions;
        for (const auto& v : build(pose).vertices) {
            positions.push_back(v.position);
        }
        frames.push_back(positions);
    }
    return frames;
}

catalogue::TextureContent table(const engine::animation::TextureAnimationChunked& animation,
                                const std::vector<std::vector<core::Vec3d>>& frames) {
    catalogue::TextureContent content;
    content.raw = io::AnimationTable::pack(frames, animation.textureWidth(), animation.frames());
    return content;
}

catalogue::TextureContent picture(core::Image image) {
    catalogue::TextureContent content;
    content.image = std::move(image);
    return content;
}

} // namespace

std::unique_ptr<engine::Scene> NivalisAssets::makeScene() const { return std::make_unique<scenes::nivalis::NivalisScene>(); }

mesh::MeshData NivalisAssets::mesh(const std::string& fileName) const {
    if (fileName == "mountains1") {
        return TerrainMesh::build(Terrain::shared(), Geography::shared());
    }
    if (fileName == "mountains_distant1") {
        return DistantRanges::mesh();
    }
    if (fileName == "sun") {
        return Heavens::highSun();
    }
    if (fileName == "sun2") {
        return Heavens::lowSun();
    }
    if (fileName == "water_test") {
        return Sea::mesh();
    }
    if (fileName == "sky") {
        return SkyDome::mesh();
    }
    if (fileName == "stars") {
        return Heavens::stars();
    }
    if (fileName == "clouds") {
        return Heavens::clouds();
    }
    if (fileName == "bird1") {
        return BirdModel::build(0.0);
    }
    if (fileName == "ship") {
        return ShipModel::build();
    }
    if (fileName == "penguin-idle") {
        return PenguinModel::build(PenguinModel::Detail::FINE, {});
    }
    if (fileName == "penguin-idle2") {
        return PenguinModel::build(PenguinModel::Detail::COARSE, {});
    }
    if (fileName == "seal-idle") {
        return SealModel::build({});
    }
    if (fileName == "animals_sleeping") {
        return SleepingAnimals::mesh();
    }
    throw std::out_of_range("No model \"" + fileName + "\" for the polar sea");
}

catalogue::TextureContent NivalisAssets::texture(const engine::Texture& texture) const {
    const std::string& name = texture.fileName;
    const auto& animations = scenes::nivalis::Animations::shared();
    for (TimeOfDay time : scenes::nivalis::TIME_OF_DAY_ENTRIES) {
        std::string lower(toString(time));
        lower[0] = static_cast<char>(std::tolower(lower[0]));
        if (name == "palette-" + lower) {
            return picture(Palette::image(time));
        }
        if (name == "sky-" + lower) {
            return picture(SkyDome::image(time, 512, 256));
        }
    }
    if (name == "blue-noise-16") {
        catalogue::TextureContent content = picture(shared::BlueNoise::image(64, 0xB10EULL));
        content.effort = io::AstcFile::Effort::THOROUGH;
        return content;
    }
    if (name == "caustics1") {
        return picture(Caustics::image(256, 6));
    }
    if (name == "bird.rgba.fp16") {
        const std::vector<double> beats = {1.0, 0.0, -1.0};
        return table(animations.animationBird, posesOf(beats, [](double beat) { return BirdModel::build(beat); }));
    }
    if (name == "penguin/idle/animal.rgba.fp16") {
        const auto& a = animations.animationPenguinIdle;
        return table(a, posesOf(PenguinModel::idleLoop(a.frames()), [](const PenguinModel::Pose& p) {
                         return PenguinModel::build(PenguinModel::Detail::FINE, p);
                     }));
    }
    if (name == "penguin/idle2/animal.rgba.fp16") {
        const auto& a = animations.animationPenguinIdle2;
        return table(a, posesOf(PenguinModel::preenLoop(a.frames()), [](const PenguinModel::Pose& p) {
                         return PenguinModel::build(PenguinModel::Detail::COARSE, p);
                     }));
    }
    if (name == "seal/idle/animal.rgba.fp16") {
        const auto& a = animations.animationSealIdle;
        return table(a, posesOf(SealModel::idleLoop(a.frames()), [](const SealModel::Pose& p) { return SealModel::build(p); }));
    }
    if (name == "seal/walk/animal.rgba.fp16") {
        const auto& a = animations.animationSealWalk;
        return table(a, posesOf(SealModel::walkLoop(a.frames()), [](const SealModel::Pose& p) { return SealModel::build(p); }));
    }
    throw std::out_of_range("No texture \"" + name + "\" for the polar sea");
}

} // namespace tools::assetgen::nivalis
