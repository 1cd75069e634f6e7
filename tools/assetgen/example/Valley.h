#pragma once

#include <string>

#include "tools/assetgen/core/Image.h"
#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::example {

/// The sample valley: a rock in the middle where the alpaca grazes, a green valley floor, a lake to
/// the south, hills around, a hazy plain beyond and blue mountains on the horizon, a small sun, and
/// a painted sky dome (the scene's test draw of the texture "static", scaled by 8). Each part is
/// one flat-coloured model; lit and shaded faces of the rock and the mountains are two models.
class Valley {
public:
    /// Height of the lake's surface.
    static constexpr double WATER_LEVEL = -40.0;
    /// Height of the flat top of the rock, where the alpaca stands.
    static constexpr double TOP_OF_ROCK = -2.327;

    Valley() = delete;

    /// Height of the land at (x, y).
    static double height(double x, double y);
    /// The model of one part: "center_rock_bright", "center_rock_dark", "ground_1", "hills",
    /// "ground_2", "mountains_bright", "mountains_dark", "water", "water_highlights", "water_test",
    /// "sun", "sun_small", "stars", "static". Throws std::out_of_range for another name.
    static mesh::MeshData part(const std::string& name);
    /// The sky painted on the dome.
    static core::Image sky(int width, int height);
};

} // namespace tools::assetgen::example
