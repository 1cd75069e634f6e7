// nivalis-render: renders frames of a scene without a display and writes them as PNG files.

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/math/Random.h"
#include "renderer/scenes/SceneFactory.h"
#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/headless/PngFile.h"
#include "tools/render/RenderOptions.h"
#include "tools/render/SceneSetup.h"

namespace {

using tools::render::RenderOptions;
using tools::render::SceneSetup;

constexpr int EXIT_RUNTIME = 1;
constexpr int EXIT_USAGE = 2;

std::filesystem::path executableDirectory(const char* argv0) {
    std::error_code error;
    auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        self = std::filesystem::absolute(argv0, error);
    }
    return self.parent_path();
}

// The build tree's resources/ beside the program, else the installed share/nivalis.
std::filesystem::path defaultResources(const char* argv0) {
    const auto directory = executableDirectory(argv0);
    const auto beside = directory / "resources";
    if (std::filesystem::is_directory(beside)) {
        return beside;
    }
    return directory.parent_path() / "share" / "nivalis";
}

int run(const RenderOptions& options, const char* argv0) {
    const std::filesystem::path resources = options.resources ? *options.resources : defaultResources(argv0);
    if (!std::filesystem::is_directory(resources)) {
        std::cerr << "nivalis-render: resources directory " << resources.string() << " not found\n";
        return EXIT_RUNTIME;
    }
    if (!std::filesystem::is_directory(resources / "shaders")) {
        std::cerr << "nivalis-render: no shaders in " << (resources / "shaders").string() << "\n";
        return EXIT_RUNTIME;
    }
    const std::string root = SceneSetup::resourcesRoot(options.scene);
    if (!std::filesystem::is_directory(resources / root)) {
        std::cerr << "nivalis-render: no resources of scene " << options.scene << " in " << (resources / root).string()
                  << "\n";
        return EXIT_RUNTIME;
    }

    engine::math::Random::seed(options.seed);
    std::shared_ptr<engine::Scene> scene = SceneSetup::create(options.scene);
    try {
        // Once now, so that a setting or camera the scene lacks fails before anything loads.
        SceneSetup::apply(*scene, options);
        // The tree is complete once the scene is made, and the frames walk it afresh.
        SceneSetup::hide(*scene, options);
    } catch (const std::invalid_argument& e) {
        std::cerr << "nivalis-render: " << e.what() << "\n";
        return EXIT_USAGE;
    }

    std::unique_ptr<renderer::headless::HeadlessContext> context;
    try {
        context = std::make_unique<renderer::headless::HeadlessContext>(options.platform);
    } catch (const std::exception& e) {
        std::cerr << "nivalis-render: " << e.what() << "\n";
        return EXIT_RUNTIME;
    }
    renderer::gl::EpoxyGl gl;
    renderer::headless::OffscreenTarget target(options.width, options.height);

    int frame = 0;
    renderer::SceneRenderer::Options rendererOptions;
    rendererOptions.resources = resources;
    rendererOptions.astcDecoding = options.astc;
    rendererOptions.quality = options.quality;
    // The fixed clock: the first frame at --at, each next one --step later, in seconds.
    rendererOptions.clock = [&options, &frame] { return (options.at + frame * options.step) / 1000.0; };
    // Nivalis starts at a fixed time of day instead of the wall clock; its own is set afterwards.
    auto sceneRenderer =
        renderer::scenes::SceneFactory::makeRenderer(gl, options.scene, scene, std::move(rendererOptions), "day");
    // Again after loading: the renderer has written its start-up time of day into the scene.
    SceneSetup::apply(*scene, options);

    const renderer::FrameTarget frameTarget{target.framebuffer(), static_cast<double>(options.width),
                                            static_cast<double>(options.height)};
    for (frame = 0; frame < options.frames; ++frame) {
        // A frame whose tree reaches no main pass leaves the picture transparent, not stale.
        target.clear(0.0f, 0.0f, 0.0f, 0.0f);
        if (sceneRenderer->drawFrame(frameTarget) == 0) {
            std::cerr << "nivalis-render: warning: frame " << frame << " of scene " << options.scene
                      << " has no main pass; the picture is empty\n";
        }
        const auto pixels = target.readPixels();
        const std::filesystem::path path = options.outputPath(frame);
        try {
            if (path.has_parent_path()) {
                std::filesystem::create_directories(path.parent_path());
            }
            renderer::headless::PngFile::write(path.string(), options.width, options.height, pixels);
        } catch (const std::exception& e) {
            std::cerr << "nivalis-render: " << e.what() << "\n";
            return EXIT_RUNTIME;
        }
        std::cout << path.string() << "\n";
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    RenderOptions options;
    try {
        options = RenderOptions::parse(arguments);
    } catch (const std::invalid_argument& e) {
        std::cerr << "nivalis-render: " << e.what() << "\nRun 'nivalis-render --help' for the options.\n";
        return EXIT_USAGE;
    }
    if (options.help) {
        std::cout << RenderOptions::usage();
        return 0;
    }
    return run(options, argv[0]);
}
