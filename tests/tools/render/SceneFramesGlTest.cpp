// The generated night city and the blurred trees, drawn in this process on the generated
// resources, so that a test can reach into the scene (its clear colour, its aircraft, its bloom
// pass) and judge the pixels: no clear colour from any path, a picture that moves, aircraft and
// red lights as points, a bloom that only adds light where something glows; Nivalis blurred
// without holes and Betonia's blurred room still darkened at the corners.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "renderer/scenes/SceneFactory.h"
#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "tools/render/SceneSetup.h"

namespace tools::render {
namespace {

using Pixels = std::vector<std::uint8_t>;

constexpr int W = 320;
constexpr int H = 180;

/// Draws `frames` frames of the scene named `name`, 1 s apart from 60 s on, after `options` and
/// `tweak` have put it in place; returns the last picture, or each one into `all`.
Pixels draw(const std::string& name, RenderOptions options, const std::function<void(engine::Scene&)>& tweak = {},
            int frames = 1, std::vector<Pixels>* all = nullptr) {
    static renderer::headless::HeadlessContext context;
    renderer::gl::EpoxyGl gl;
    options.scene = name;
    auto scene = SceneSetup::create(name);
    SceneSetup::apply(*scene, options);
    int frame = 0;
    renderer::SceneRenderer::Options rendererOptions;
    rendererOptions.resources = NIVALIS_RESOURCES_DIR;
    rendererOptions.clock = [&frame] { return 60.0 + frame; };
    rendererOptions.quality = options.quality;
    auto renderer = renderer::scenes::SceneFactory::makeRenderer(gl, name, scene, rendererOptions, "day");
    SceneSetup::apply(*scene, options);
    if (tweak) {
        tweak(*scene);
    }
    renderer::headless::OffscreenTarget target(W, H);
    Pixels pixels;
    for (frame = 0; frame < frames; ++frame) {
        target.clear(0.0f, 0.0f, 0.0f, 0.0f);
        renderer->drawFrame({target.framebuffer(), static_cast<double>(W), static_cast<double>(H)});
        pixels = target.readPixels();
        if (all) {
            all->push_back(pixels);
        }
    }
    return pixels;
}

RenderOptions on(int camera, float pathAt) {
    RenderOptions options;
    options.camera = camera;
    options.pathAt = pathAt;
    return options;
}

/// Pixels of pure green, the clear colour the city's tests set, darkened or not by the vignette.
int green(const Pixels& p) {
    int count = 0;
    for (std::size_t i = 0; i + 3 < p.size(); i += 4) {
        count += p[i + 1] > 40 && p[i + 1] > 4 * (p[i] + p[i + 2]);
    }
    return count;
}

/// Pixels of a clear magenta, darkened or not by the vignette.
int magenta(const Pixels& p) {
    int count = 0;
    for (std::size_t i = 0; i + 3 < p.size(); i += 4) {
        count += p[i] > 60 && p[i + 2] > 60 && p[i + 1] < 40 && std::abs(p[i] - p[i + 2]) < 24;
    }
    return count;
}

int brightness(const Pixels& p, std::size_t pixel) { return p[pixel * 4] + p[pixel * 4 + 1] + p[pixel * 4 + 2]; }

/// Every node of the scene's tree of type T, depth first, each once.
template <typename T>
std::vector<T*> nodes(const engine::Scene::CommandList& commands) {
    std::vector<T*> found;
    for (const auto& node : commands) {
        if (auto* match = dynamic_cast<T*>(node.get()); match && std::ranges::find(found, match) == found.end()) {
            found.push_back(match);
        }
        if (const auto* group = dynamic_cast<const engine::commands::GroupCommand*>(node.get())) {
            for (T* inner : nodes<T>(group->commands)) {
                if (std::ranges::find(found, inner) == found.end()) found.push_back(inner);
            }
        }
    }
    return found;
}

engine::commands::BlurredPassCommand& bloomPass(engine::Scene& scene) {
    return *nodes<engine::commands::BlurredPassCommand>(scene.getCommands()).front();
}

const auto greenClear = [](engine::Scene& scene) {
    for (auto* clear : nodes<engine::commands::ClearColorCommand>(scene.getCommands())) {
        if (clear->name == "clear color") clear->color = engine::math::Vec4(0.0f, 1.0f, 0.0f, 1.0f);
    }
};

TEST(SpirelightFrames, NoPathShowsTheClearColour) {
    for (int camera = 0; camera < 5; ++camera) {
        for (float at : {0.02f, 0.5f, 0.98f}) {
            SCOPED_TRACE("camera " + std::to_string(camera) + " at " + std::to_string(at));
            EXPECT_EQ(green(draw("spirelight", on(camera, at), greenClear)), 0);
        }
    }
}

TEST(SpirelightFrames, FramesOneSecondApartDiffer) {
    // The camera's first two frames only take the time; from the third it travels.
    std::vector<Pixels> frames;
    draw("spirelight", on(0, 0.5f), {}, 3, &frames);
    int changed = 0;
    for (std::size_t i = 0; i < frames[1].size(); ++i) {
        changed += frames[1][i] != frames[2][i];
    }
    EXPECT_GT(changed, W * H / 4);
}

/// Connected groups of pixels that differ between two pictures, by their sizes.
std::vector<int> spots(const Pixels& a, const Pixels& b, int threshold) {
    std::vector<char> set(W * H, 0);
    for (int i = 0; i < W * H; ++i) {
        set[i] = std::abs(brightness(a, i) - brightness(b, i)) > threshold;
    }
    std::vector<int> sizes;
    for (int start = 0; start < W * H; ++start) {
        if (!set[start]) continue;
        int size = 0;
        std::vector<int> stack{start};
        set[start] = 0;
        while (!stack.empty()) {
            const int p = stack.back();
            stack.pop_back();
            ++size;
            const int x = p % W, y = p / W;
            for (const auto& [dx, dy] : {std::pair{1, 0}, std::pair{-1, 0}, std::pair{0, 1}, std::pair{0, -1}}) {
                const int q = (y + dy) * W + x + dx;
                if (x + dx >= 0 && x + dx < W && y + dy >= 0 && y + dy < H && set[q]) {
                    set[q] = 0;
                    stack.push_back(q);
                }
            }
        }
        sizes.push_back(size);
    }
    return sizes;
}

TEST(SpirelightFrames, AircraftAndRedLightsShowAsPoints) {
    struct Case {
        const char* what;
        int camera;
        std::function<void(engine::Scene&)> hide;
        int threshold;
    };
    const std::vector<Case> cases = {
        {"aircraft", 3,
         [](engine::Scene& s) {
             for (auto* draw : nodes<engine::commands::DrawMeshCommand>(s.getCommands())) {
                 if (!draw->mesh) draw->enabled = false;
             }
         },
         30},
        {"red lights", 0,
         [](engine::Scene& s) {
             for (auto* draw : nodes<engine::commands::DrawMeshCommand>(bloomPass(s).commands)) {
                 if (draw->mesh && draw->mesh->fileName == "red-lights") draw->enabled = false;
             }
         },
         6},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto sizes = spots(draw("spirelight", on(c.camera, 0.5f)), draw("spirelight", on(c.camera, 0.5f), c.hide),
                                 c.threshold);
        ASSERT_FALSE(sizes.empty());
        for (int size : sizes) {
            EXPECT_LT(size, 120) << "a point, not a patch";
        }
    }
}

TEST(SpirelightFrames, BloomBrightensWhatGlowsAndNothingElse) {
    const Pixels with = draw("spirelight", on(0, 0.5f));
    const Pixels without = draw("spirelight", on(0, 0.5f), [](engine::Scene& s) { bloomPass(s).enabled = false; });
    std::vector<std::pair<int, int>> byBrightness; // (brightness without bloom, gain)
    for (int i = 0; i < W * H; ++i) {
        for (int k = 0; k < 3; ++k) {
            ASSERT_GE(with[i * 4 + k] + 1, without[i * 4 + k]) << "the bloom only adds";
        }
        byBrightness.emplace_back(brightness(without, i), brightness(with, i) - brightness(without, i));
    }
    std::sort(byBrightness.begin(), byBrightness.end());
    const auto meanGain = [&](std::size_t from, std::size_t to) {
        double sum = 0.0;
        for (std::size_t i = from; i < to; ++i) sum += byBrightness[i].second;
        return sum / static_cast<double>(to - from);
    };
    const std::size_t n = byBrightness.size();
    const double bright = meanGain(n - n / 20, n); // the lit windows, signs and lamps
    const double dark = meanGain(0, n / 2);        // sky, sea, unlit walls
    EXPECT_GT(bright, 6.0);
    EXPECT_GT(bright, 3.0 * dark);
}

TEST(BlurredFrames, NivalisKeepsItsSkyAndSea) {
    RenderOptions options = on(4, 0.5f);
    options.settings = {{"blurred", "true"}};
    EXPECT_EQ(magenta(draw("nivalis", options)), 0);
}

TEST(BlurredFrames, BetoniaKeepsItsVignette) {
    RenderOptions options = on(0, 0.5f);
    options.settings = {{"blurred", "true"}, {"vignette", "true"}};
    const Pixels with = draw("betonia", options);
    options.settings = {{"blurred", "true"}, {"vignette", "false"}};
    const Pixels without = draw("betonia", options);
    const auto at = [](int x, int y) { return static_cast<std::size_t>(y * W + x); };
    for (const auto corner : {at(1, 1), at(W - 2, 1), at(1, H - 2), at(W - 2, H - 2)}) {
        EXPECT_LT(brightness(with, corner), 0.8 * brightness(without, corner));
    }
    EXPECT_NEAR(brightness(with, at(W / 2, H / 2)), brightness(without, at(W / 2, H / 2)), 6);
}

// The low quality's scaled blit on a real driver: the whole target is the high picture,
// softened, not a cleared or partly drawn one.
TEST(QualityFrames, LowIsTheHighPictureSoftened) {
    RenderOptions options = on(4, 0.5f);
    const Pixels high = draw("nivalis", options);
    options.quality = renderer::RenderQuality::LOW;
    const Pixels low = draw("nivalis", options);
    ASSERT_EQ(low.size(), high.size());
    double difference = 0.0;
    for (std::size_t i = 0; i < low.size(); ++i) {
        difference += std::abs(low[i] - high[i]);
    }
    EXPECT_NE(low, high);
    EXPECT_LT(difference / static_cast<double>(low.size()), 8.0);
}

} // namespace
} // namespace tools::render
