// GPU time per frame of each scene, measured with timer queries on a headless EGL context, and the
// whole process's CPU while the frames are paced at a frame rate, as the wallpaper paces them.
//
// Usage: gpu_frames [--platform auto|device|surfaceless] [--scene NAME]... [--size WxH]...
//                   [--frames N] [--fps F] [--resources DIR]
// Defaults: every scene, 1920x1080 and 3840x2160, 60 frames, 30 fps, the build tree's resources.
// The device platform is a GPU's driver; surfaceless is Mesa's software rasteriser where there is
// none. GPU time comes from a ring of GL_TIME_ELAPSED queries read a few frames late, so that the
// measuring never waits for the GPU; CPU is getrusage over the paced frames (every thread of the
// process, the driver's included) against the wall time they took; waits are the drawing thread's
// sleeps per frame inside GL (voluntary context switches, the pacing sleep left out).
#include <epoxy/gl.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/GpuFrameTimer.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/scenes/SceneFactory.h"

namespace {

using renderer::headless::HeadlessContext;

struct Size {
    int width;
    int height;
};

struct Arguments {
    HeadlessContext::Platform platform = HeadlessContext::Platform::AUTO;
    std::vector<std::string> scenes;
    std::vector<Size> sizes;
    int frames = 60;
    double fps = 30.0;
    std::filesystem::path resources = NIVALIS_RESOURCES_DIR;
};

[[noreturn]] void usage(const std::string& problem) {
    std::fprintf(stderr,
                 "gpu_frames: %s\nusage: gpu_frames [--platform auto|device|surfaceless] [--scene NAME]... "
                 "[--size WxH]... [--frames N] [--fps F] [--resources DIR]\n",
                 problem.c_str());
    std::exit(2);
}

Arguments parse(int argc, char** argv) {
    Arguments arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (i + 1 >= argc) {
            usage("missing value of " + option);
        }
        const std::string value = argv[++i];
        if (option == "--platform") {
            if (value == "auto") {
                arguments.platform = HeadlessContext::Platform::AUTO;
            } else if (value == "device") {
                arguments.platform = HeadlessContext::Platform::DEVICE;
            } else if (value == "surfaceless") {
                arguments.platform = HeadlessContext::Platform::SURFACELESS;
            } else {
                usage("unknown platform " + value);
            }
        } else if (option == "--scene") {
            const auto& names = renderer::scenes::SceneFactory::NAMES;
            if (std::find(names.begin(), names.end(), value) == names.end()) {
                usage("unknown scene " + value);
            }
            arguments.scenes.push_back(value);
        } else if (option == "--size") {
            Size size{};
            if (std::sscanf(value.c_str(), "%dx%d", &size.width, &size.height) != 2 || size.width < 1 ||
                size.height < 1) {
                usage("size " + value + " is not WIDTHxHEIGHT");
            }
            arguments.sizes.push_back(size);
        } else if (option == "--frames") {
            arguments.frames = std::atoi(value.c_str());
            if (arguments.frames < 1) {
                usage("--frames takes a number above 0");
            }
        } else if (option == "--fps") {
            arguments.fps = std::atof(value.c_str());
            if (!(arguments.fps > 0.0)) {
                usage("--fps takes a number above 0");
            }
        } else if (option == "--resources") {
            arguments.resources = value;
        } else {
            usage("unknown option " + option);
        }
    }
    if (arguments.scenes.empty()) {
        arguments.scenes.assign(renderer::scenes::SceneFactory::NAMES.begin(),
                                renderer::scenes::SceneFactory::NAMES.end());
    }
    if (arguments.sizes.empty()) {
        arguments.sizes = {{1920, 1080}, {3840, 2160}};
    }
    return arguments;
}

double processCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Samples of the main pass's colour target, asked of GL; 0 when the pass draws single-sampled.
int mainPassSamples(const renderer::SceneRenderer& sceneRenderer) {
    const GLuint colour = sceneRenderer.multisampledTarget.textureMsaa;
    if (colour == 0) {
        return 0;
    }
    GLint samples = 0;
    glBindRenderbuffer(GL_RENDERBUFFER, colour);
    glGetRenderbufferParameteriv(GL_RENDERBUFFER, GL_RENDERBUFFER_SAMPLES, &samples);
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
    return samples;
}

/// Times the calling thread has slept and been woken so far (voluntary context switches).
long threadWaits() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

struct Figures {
    int samples = 0;
    std::vector<std::uint64_t> gpuNanoseconds;
    double cpuShare = 0.0;
    double framesPerSecond = 0.0;
    /// Waits of the drawing thread per frame besides the pacing sleep: on the GPU driver.
    double waitsPerFrame = 0.0;
};

Figures measure(renderer::gl::EpoxyGl& gl, renderer::SceneRenderer& sceneRenderer, int& frame, Size size,
                const Arguments& arguments) {
    renderer::headless::OffscreenTarget target(size.width, size.height);
    const renderer::FrameTarget frameTarget{target.framebuffer(), static_cast<double>(size.width),
                                            static_cast<double>(size.height)};
    // Unmeasured frames first: the targets of this size are made and the driver's lazy work done.
    for (int i = 0; i < 3; ++i, ++frame) {
        sceneRenderer.drawFrame(frameTarget);
    }
    gl.finish();

    Figures figures;
    figures.samples = mainPassSamples(sceneRenderer);
    renderer::headless::GpuFrameTimer timer(gl);
    using Clock = std::chrono::steady_clock;
    const auto period = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1.0 / arguments.fps));
    const double cpuStart = processCpuSeconds();
    const auto start = Clock::now();
    long waits = 0;
    for (int i = 0; i < arguments.frames; ++i, ++frame) {
        std::this_thread::sleep_until(start + i * period);
        const long waitsBefore = threadWaits();
        timer.begin();
        sceneRenderer.drawFrame(frameTarget);
        timer.end();
        // Handed to the GPU as a buffer swap would hand it, without waiting for it.
        glFlush();
        waits += threadWaits() - waitsBefore;
    }
    timer.finish();
    const double wall = std::chrono::duration<double>(Clock::now() - start).count();
    figures.cpuShare = (processCpuSeconds() - cpuStart) / wall;
    figures.framesPerSecond = arguments.frames / wall;
    figures.gpuNanoseconds = timer.nanoseconds();
    figures.waitsPerFrame = static_cast<double>(waits) / arguments.frames;
    return figures;
}

void printRow(const std::string& scene, Size size, const Figures& figures) {
    auto sorted = figures.gpuNanoseconds;
    std::sort(sorted.begin(), sorted.end());
    const double mean = std::accumulate(sorted.begin(), sorted.end(), 0.0) / static_cast<double>(sorted.size());
    const double median = static_cast<double>(sorted[sorted.size() / 2]);
    const double maximum = static_cast<double>(sorted.back());
    std::printf("%-11s %5dx%-5d %7d %6zu %9.2f %9.2f %9.2f %8.0f %8.1f %8.1f\n", scene.c_str(), size.width,
                size.height, figures.samples, sorted.size(), mean / 1e6, median / 1e6, maximum / 1e6,
                100.0 * figures.cpuShare, figures.framesPerSecond, figures.waitsPerFrame);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const Arguments arguments = parse(argc, argv);
    try {
        HeadlessContext context(arguments.platform);
        renderer::gl::EpoxyGl gl;
        std::printf("GL renderer %s on the %s platform; %d frames paced at %g fps\n", context.rendererName().c_str(),
                    std::string(renderer::headless::toString(context.platform())).c_str(), arguments.frames,
                    arguments.fps);
        std::printf("%-11s %11s %7s %6s %9s %9s %9s %8s %8s %8s\n", "scene", "size", "samples", "frames", "GPU ms",
                    "median", "max", "CPU %", "fps", "waits");
        for (const std::string& name : arguments.scenes) {
            auto scene = renderer::scenes::SceneFactory::makeScene(name);
            int frame = 0;
            renderer::SceneRenderer::Options options;
            options.resources = arguments.resources;
            // Scene time steps by one period per frame, so that every run draws the same frames.
            options.clock = [&frame, &arguments] { return 1.0 + frame / arguments.fps; };
            auto sceneRenderer = renderer::scenes::SceneFactory::makeRenderer(gl, name, scene, options, "day");
            for (const Size size : arguments.sizes) {
                printRow(name, size, measure(gl, *sceneRenderer, frame, size, arguments));
            }
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "gpu_frames: %s\n", e.what());
        return 1;
    }
    return 0;
}
