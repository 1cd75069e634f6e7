// Golden pictures: every scene drawn small by nivalis-render at a fixed clock, camera and seed,
// compared with the PNG kept beside this file. A slip in a camera knot, a colour, a position or a
// pass setting shows as a failing picture. llvmpipe rounds a little differently from one CPU to
// the next, so a pixel counts as different only when a channel is off by more than
// CHANNEL_TOLERANCE, and a picture fails when more than MAX_DIFFERENT pixels differ: few enough
// that a penguin moved by a few metres or a ship off its course shows. On a failure the picture
// drawn and a diff image (different pixels in red over a dimmed copy) go to golden-diff/ in the
// build tree.
// NIVALIS_GOLDEN_UPDATE=1 writes the expected pictures instead: scripts/update-golden.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "renderer/headless/PngFile.h"

namespace {

namespace fs = std::filesystem;
using renderer::headless::PngFile;

constexpr int CHANNEL_TOLERANCE = 3;
constexpr int MAX_DIFFERENT = 8;

struct Golden {
    const char* name;
    const char* arguments;
};

// Small pictures, but the ships and penguins at twice the size, where they cover enough pixels.
const Golden GOLDENS[] = {
    {"nivalis-day", "--scene nivalis --time-of-day day --camera 0 --path-at 0.5"},
    {"nivalis-night", "--scene nivalis --time-of-day night --camera 2 --path-at 0.5"},
    {"nivalis-sunrise", "--scene nivalis --time-of-day sunrise --camera 4 --path-at 0.5"},
    {"nivalis-sunset", "--scene nivalis --time-of-day sunset --camera 6 --path-at 0.5"},
    {"nivalis-ships", "--scene nivalis --time-of-day day --camera 1 --path-at 0.3 --set vignette=false --size 320x180"},
    {"nivalis-penguins",
     "--scene nivalis --time-of-day day --camera 5 --path-at 0.25 --set vignette=false --size 320x180"},
    {"nivalis-blurred", "--scene nivalis --time-of-day day --camera 3 --path-at 0.5 --set blurred=true"},
    {"betonia", "--scene betonia --camera 0 --path-at 0.5"},
    {"betonia-blurred", "--scene betonia --camera 1 --path-at 0.5 --set blurred=true"},
    {"example", "--scene example --camera 0 --path-at 0.5"},
    {"spirelight", "--scene spirelight --camera 0 --path-at 0.5"},
    {"spirelight-far", "--scene spirelight --camera 3 --path-at 0.3"},
};

/// Draws `arguments` (160x90 unless they say otherwise) into `file`; empty, or the exit status and
/// output of a failed run.
std::string render(const std::string& arguments, const fs::path& file) {
    const std::string command = std::string(NIVALIS_RENDER_EXECUTABLE) + " --resources " + NIVALIS_RESOURCES_DIR +
                                " --size 160x90 --at 60000 --seed 1 " + arguments + " --out " + file.string() + " 2>&1";
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    char buffer[512];
    while (pipe != nullptr && fgets(buffer, sizeof buffer, pipe) != nullptr) {
        output += buffer;
    }
    const int status = pipe != nullptr ? pclose(pipe) : -1;
    return status == 0 ? std::string() : "exit " + std::to_string(status) + ": " + output;
}

/// Pixels with a channel off by more than the tolerance; `diff` marks them red over a dimmed copy.
int compare(const PngFile::Image& actual, const PngFile::Image& expected, std::vector<std::uint8_t>& diff) {
    int different = 0;
    diff.resize(actual.pixels.size());
    for (std::size_t i = 0; i + 3 < actual.pixels.size(); i += 4) {
        bool off = false;
        for (std::size_t c = 0; c < 4; ++c) {
            off = off || std::abs(actual.pixels[i + c] - expected.pixels[i + c]) > CHANNEL_TOLERANCE;
            diff[i + c] = static_cast<std::uint8_t>(c == 3 ? 255 : actual.pixels[i + c] / 4);
        }
        if (off) {
            ++different;
            diff[i] = 255;
        }
    }
    return different;
}

class GoldenGlTest : public ::testing::TestWithParam<Golden> {};

TEST_P(GoldenGlTest, MatchesTheExpectedPicture) {
    const Golden& golden = GetParam();
    const fs::path expectedFile = fs::path(NIVALIS_GOLDEN_DIR) / (std::string(golden.name) + ".png");
    const fs::path diffDir = fs::path(NIVALIS_BUILD_DIR) / "golden-diff";
    fs::create_directories(diffDir);
    const fs::path actualFile = diffDir / (std::string(golden.name) + ".png");
    const std::string failure = render(golden.arguments, actualFile);
    ASSERT_EQ(failure, "");
    if (std::getenv("NIVALIS_GOLDEN_UPDATE") != nullptr) {
        fs::copy_file(actualFile, expectedFile, fs::copy_options::overwrite_existing);
        GTEST_SKIP() << "wrote " << expectedFile;
    }
    const auto actual = PngFile::read(actualFile.string());
    const auto expected = PngFile::read(expectedFile.string());
    ASSERT_EQ(actual.width, expected.width);
    ASSERT_EQ(actual.height, expected.height);
    std::vector<std::uint8_t> diff;
    const int different = compare(actual, expected, diff);
    if (different <= MAX_DIFFERENT) {
        fs::remove(actualFile);
        return;
    }
    const fs::path diffFile = diffDir / (std::string(golden.name) + "-diff.png");
    PngFile::write(diffFile.string(), actual.width, actual.height, diff);
    ADD_FAILURE() << different << " pixels differ from " << expectedFile << "; see " << actualFile << " and "
                  << diffFile;
}

INSTANTIATE_TEST_SUITE_P(Scenes, GoldenGlTest, ::testing::ValuesIn(GOLDENS),
                         [](const auto& info) {
                             std::string name = info.param.name;
                             std::erase(name, '-');
                             return name;
                         });

/// Pixels of the clear colour (magenta, darkened or not by the vignette).
int clearColoured(const PngFile::Image& image) {
    int count = 0;
    for (std::size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
        const int r = image.pixels[i], g = image.pixels[i + 1], b = image.pixels[i + 2];
        count += r > 90 && b > 90 && g < 40 && std::abs(r - b) < 24;
    }
    return count;
}

/// Largest spread of a channel over the picture: a blank picture has none.
int spread(const PngFile::Image& image) {
    int widest = 0;
    for (std::size_t c = 0; c < 3; ++c) {
        int low = 255, high = 0;
        for (std::size_t i = c; i < image.pixels.size(); i += 4) {
            low = std::min<int>(low, image.pixels[i]);
            high = std::max<int>(high, image.pixels[i]);
        }
        widest = std::max(widest, high - low);
    }
    return widest;
}

class BlurredGlTest : public ::testing::TestWithParam<const char*> {};

TEST_P(BlurredGlTest, BlurredFrameIsNeitherBlankNorClearColour) {
    const std::string scene = GetParam();
    const fs::path file = fs::temp_directory_path() / ("nivalis-blurred-" + scene + ".png");
    ASSERT_EQ(render("--scene " + scene + " --camera 0 --path-at 0.5 --set blurred=true", file), "");
    const auto image = PngFile::read(file.string());
    fs::remove(file);
    EXPECT_EQ(clearColoured(image), 0);
    EXPECT_GT(spread(image), 8);
}

INSTANTIATE_TEST_SUITE_P(Scenes, BlurredGlTest, ::testing::Values("nivalis", "betonia"));

} // namespace
