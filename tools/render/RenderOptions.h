#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "renderer/loaders/AstcTexture.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/RenderQuality.h"

namespace tools::render {

/// The command line of `nivalis-render`: which scene to draw, how big, at which moment of its
/// fixed clock, from which camera, with which settings, and where the PNG files go.
///
///     nivalis-render --scene nivalis --size 1280x720 --time-of-day day --camera 3 --path-at 0.5
///                    --at 60000 --frames 1 --step 33.3 --seed 1 --set vignette=false --out frame.png
///
/// Options take their value as the next argument or after "=" ("--size=640x360"). What the
/// options mean for a particular scene (its times of day, its number of camera paths, the
/// fields of its settings) is checked when the scene is set up, not here.
class RenderOptions {
public:
    /// Scene to draw: "nivalis", "spirelight", "betonia" or "example".
    std::string scene = "nivalis";
    /// Size of the picture in pixels.
    int width = 1280;
    int height = 720;
    /// The scene's own time of day in lower case ("day", "night", "sunrise", "sunset").
    std::optional<std::string> timeOfDay;
    /// Camera path to put the camera on; turns the scene's automatic cuts off.
    std::optional<int> camera;
    /// Progress along that path, 0 to 1; turns the automatic cuts off.
    std::optional<float> pathAt;
    /// The scene's clock at the first frame, in milliseconds; above 0.
    double at = 1000.0;
    /// Number of frames to render.
    int frames = 1;
    /// Clock step from one frame to the next, in milliseconds.
    double step = 1000.0 / 30.0;
    /// Seed of the process-wide random source, so that a run repeats exactly.
    std::uint64_t seed = 1;
    /// Parts of the scene to leave out of the picture (nivalis only), in the order given; each
    /// one of `PARTS`. Hiding a part shows what lies behind it, so that a test can tell which
    /// pixels belong to it.
    std::vector<std::string> hide;
    /// Settings fields to write, as field and value text, in the order given.
    std::vector<std::pair<std::string, std::string>> settings;
    /// Output file; "%d" (or "%04d" and the like) is replaced by the frame number, from 0.
    std::string out = "frame.png";
    /// The resources directory; empty for the one found beside the executable.
    std::optional<std::filesystem::path> resources;
    /// Where ASTC textures are decoded.
    renderer::loaders::AstcTexture::Decoding astc = renderer::loaders::AstcTexture::Decoding::AUTO;
    /// The quality of the main pass; HIGH by default, so that pictures compare across machines.
    renderer::RenderQuality quality = renderer::RenderQuality::HIGH;
    /// The EGL platform of the headless context.
    renderer::headless::HeadlessContext::Platform platform = renderer::headless::HeadlessContext::Platform::AUTO;
    /// Only print the usage.
    bool help = false;

    /// The names that --hide takes.
    static constexpr std::array<std::string_view, 9> PARTS = {"ships", "animals", "birds", "mountains", "water",
                                                              "sky",   "clouds",  "stars", "sun"};

    /// Reads the arguments that follow the program name. Throws std::invalid_argument with a
    /// message naming the offending option or value.
    static RenderOptions parse(std::span<const std::string> arguments);
    /// The text of --help: every option with its meaning and default.
    static std::string usage();

    /// The output path of frame `frame`. Throws std::invalid_argument when `out` holds a
    /// conversion other than one "%d" with an optional zero-padded width, or "%%".
    std::string outputPath(int frame) const;
};

} // namespace tools::render
