// The generated scenes as nivalis-render draws them: from every camera path, at its start, middle
// and end, and at every time of day, no pixel shows the clear colour (the sky and the rooms close
// the picture); the picture moves; Betonia's rooms and the sample valley are closed too.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <filesystem>
#include <string>

#include "renderer/headless/PngFile.h"

namespace {

namespace fs = std::filesystem;
using renderer::headless::PngFile;

struct Result {
    int status;
    std::string output;
};

Result render(const std::string& arguments, const std::string& size = "160x90") {
    const std::string command = std::string(NIVALIS_RENDER_EXECUTABLE) + " --resources " + NIVALIS_RESOURCES_DIR +
                                " --size " + size + " --at 60000 " + arguments + " 2>&1";
    Result run{-1, {}};
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) {
        return run;
    }
    char buffer[512];
    while (fgets(buffer, sizeof buffer, pipe)) {
        run.output += buffer;
    }
    run.status = pclose(pipe);
    return run;
}

class RenderCheck : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("assetgen-render-" + std::to_string(::getpid()));
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }
    std::string out(const std::string& name) const { return (dir_ / name).string(); }

    fs::path dir_;
};

/// Pixels of the clear magenta, as it shows through, darkened or not by the vignette.
int magenta(const PngFile::Image& image) {
    int count = 0;
    for (std::size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
        const int r = image.pixels[i], g = image.pixels[i + 1], b = image.pixels[i + 2];
        if (r > 90 && b > 90 && g < 40 && std::abs(r - b) < 24) {
            ++count;
        }
    }
    return count;
}

TEST_F(RenderCheck, NivalisShowsNoClearColourFromAnyPathAtAnyTimeOfDay) {
    for (int camera = 0; camera < 9; ++camera) {
        for (const char* at : {"0.02", "0.5", "0.98"}) {
            for (const char* time : {"day", "night", "sunrise", "sunset"}) {
                SCOPED_TRACE("camera " + std::to_string(camera) + " at " + at + " " + time);
                const std::string file = out("n.png");
                const Result run = render("--scene nivalis --camera " + std::to_string(camera) + " --path-at " + at +
                                       " --time-of-day " + time + " --out " + file);
                ASSERT_EQ(run.status, 0) << run.output;
                EXPECT_EQ(magenta(PngFile::read(file)), 0);
            }
        }
    }
}

TEST_F(RenderCheck, NivalisMovesFromOneSecondToTheNext) {
    // Path 4 looks at the seals, with sea and clouds: all of them move.
    const Result run = render("--scene nivalis --camera 4 --path-at 0.5 --frames 2 --step 1000 --out " + out("m%d.png"));
    ASSERT_EQ(run.status, 0) << run.output;
    const auto a = PngFile::read(out("m0.png"));
    const auto b = PngFile::read(out("m1.png"));
    ASSERT_EQ(a.pixels.size(), b.pixels.size());
    int changed = 0;
    for (std::size_t i = 0; i < a.pixels.size(); i += 4) {
        changed += a.pixels[i] != b.pixels[i] || a.pixels[i + 1] != b.pixels[i + 1] || a.pixels[i + 2] != b.pixels[i + 2];
    }
    EXPECT_GT(changed, 20);
}

TEST_F(RenderCheck, BetoniaShowsNoClearColourFromAnyPath) {
    // The sepia colour mode changes the clear colour and nothing else: where the two pictures
    // differ, the clear colour shows (directly or through the bloom). The rooms' large filtered
    // textures are slow on the software rasteriser, so each path is looked at once, small.
    for (int camera = 0; camera < 9; ++camera) {
        SCOPED_TRACE("camera " + std::to_string(camera));
        const std::string base = "--scene betonia --camera " + std::to_string(camera) + " --path-at 0.5";
        const Result white = render(base + " --out " + out("w.png"), "64x36");
        const Result sepia = render(base + " --set colorMode=Sepia --out " + out("s.png"), "64x36");
        ASSERT_EQ(white.status, 0) << white.output;
        ASSERT_EQ(sepia.status, 0) << sepia.output;
        const auto a = PngFile::read(out("w.png"));
        const auto b = PngFile::read(out("s.png"));
        int differing = 0;
        for (std::size_t i = 0; i < a.pixels.size(); ++i) {
            differing += std::abs(a.pixels[i] - b.pixels[i]) > 2;
        }
        EXPECT_EQ(differing, 0);
    }
}

TEST_F(RenderCheck, ExampleShowsNoClearColourFromAnyPath) {
    for (int camera = 0; camera < 7; ++camera) {
        for (const char* at : {"0.02", "0.5", "0.98"}) {
            SCOPED_TRACE("camera " + std::to_string(camera) + " at " + at);
            const Result run = render("--scene example --camera " + std::to_string(camera) + " --path-at " + at +
                                   " --out " + out("e.png"));
            ASSERT_EQ(run.status, 0) << run.output;
            const auto image = PngFile::read(out("e.png"));
            int clear = 0;
            for (std::size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
                // 0.55859375, 0.7578125, 0.87890625 in bytes.
                clear += std::abs(image.pixels[i] - 142) <= 1 && std::abs(image.pixels[i + 1] - 193) <= 1 &&
                         std::abs(image.pixels[i + 2] - 224) <= 1;
            }
            EXPECT_EQ(clear, 0);
        }
    }
}

} // namespace
