#pragma once

#include <map>
#include <memory>

#include "tools/assetgen/betonia/Interior.h"
#include "tools/assetgen/catalogue/SceneAssets.h"

namespace tools::assetgen::betonia {

/// The two rooms of Betonia. Each part of a room is baked once, mesh and texture together:
///
/// | model            | texture | size         | what it shows                                  |
/// |------------------|---------|--------------|------------------------------------------------|
/// | room1            | room1   | 2048 x 2048  | room 1, its daylight behind the openings       |
/// | room2-optimized0 | room20  | 4096 x 2048  | the concrete shell of room 2                   |
/// | room2-optimized1 | room21  | 1024 x 512   | the light strips                               |
/// | room2-optimized2 | room22  | 512 x 512    | the window glass                               |
///
/// The bloom passes draw the rooms with "room21" and "room22": room21 is black over the left
/// three quarters, where every plain surface of both rooms lies in its atlas, and glows over the
/// right quarter, where the light strips and room 1's openings lie; room22 is the glass itself.
/// So only what shines in the picture shines in the bloom.
class BetoniaAssets : public catalogue::SceneAssets {
public:
    /// Share of each atlas's width given to plain surfaces; glowing ones lie to the right.
    static constexpr double PLAIN_SHARE = 0.75;

    std::string resourcesRoot() const override { return "betonia"; }
    std::unique_ptr<engine::Scene> makeScene() const override;
    mesh::MeshData mesh(const std::string& fileName) const override;
    catalogue::TextureContent texture(const engine::Texture& texture) const override;

    /// The glow texture of the bloom passes.
    static core::Image glow(int width, int height);

private:
    struct Baked {
        mesh::MeshData mesh;
        core::Image atlas{1, 1};
    };
    /// Mesh and texture of a model, baked on first use.
    const Baked& baked(const std::string& model) const;

    mutable std::map<std::string, Baked> cache_;
};

} // namespace tools::assetgen::betonia
