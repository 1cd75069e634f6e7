// nivalis-render end to end: the executable on a generated resource set, its PNG files judged
// by their pixels, and its answers to bad arguments and missing resources.

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>

#include "renderer/headless/PngFile.h"
#include "tests/renderer/loaders/LoaderFiles.h"
#include "tests/tools/render/TestResources.h"

namespace tools::render {
namespace {

using renderer::headless::PngFile;
using renderer::test::channelDistance;
using test::TestResources;

struct Run {
    int status = -1;
    std::string output;
};

/// Runs nivalis-render with `arguments` (shell words), standard output and error together.
Run render(const std::string& arguments) {
    const std::string command = std::string(NIVALIS_RENDER_EXECUTABLE) + " " + arguments + " 2>&1";
    Run run;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return run;
    }
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), pipe) != nullptr) {
        run.output += buffer.data();
    }
    const int status = pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

/// Each channel times `factor`, rounded, alpha kept.
std::uint32_t scaled(std::uint32_t rgba, double factor) {
    std::uint32_t result = rgba & 0xFFu;
    for (int shift = 8; shift < 32; shift += 8) {
        const auto channel = static_cast<std::uint32_t>(((rgba >> shift) & 0xFFu) * factor + 0.5);
        result |= channel << shift;
    }
    return result;
}

class RenderGlTest : public ::testing::Test {
protected:
    static std::filesystem::path base;

    static void SetUpTestSuite() {
        base = std::filesystem::temp_directory_path() / ("nivalis-render-test-" + std::to_string(::getpid()));
        std::filesystem::remove_all(base);
        const auto shaders = std::filesystem::path(NIVALIS_RESOURCES_DIR) / "shaders";
        for (const char* scene : {"nivalis", "betonia", "example"}) {
            TestResources::write(scene, base / "resources", shaders);
        }
    }

    static void TearDownTestSuite() { std::filesystem::remove_all(base); }

    static std::string resources() { return "--resources " + (base / "resources").string(); }
    static std::string out(const std::string& name) { return (base / "out" / name).string(); }
};

std::filesystem::path RenderGlTest::base;

TEST_F(RenderGlTest, EachTimeOfDayShowsItsOwnSkyThroughTheVignette) {
    // The test vignette is closed everywhere: the picture is the sky times the rim colour 0.65.
    const std::vector<std::pair<std::string, std::uint32_t>> times = {{"day", TestResources::SKY_DAY},
                                                                      {"night", TestResources::SKY_NIGHT},
                                                                      {"sunset", TestResources::SKY_SUNSET}};
    for (const auto& [time, sky] : times) {
        SCOPED_TRACE(time);
        const auto run = render(resources() + " --scene nivalis --size 64x36 --time-of-day " + time +
                                " --camera 3 --path-at 0.5 --at 60000 --seed 1 --out " + out(time + ".png"));
        ASSERT_EQ(run.status, 0) << run.output;
        EXPECT_NE(run.output.find(out(time + ".png")), std::string::npos);
        const auto image = PngFile::read(out(time + ".png"));
        ASSERT_EQ(image.width, 64);
        ASSERT_EQ(image.height, 36);
        for (const auto& [x, y] : std::vector<std::pair<int, int>>{{0, 0}, {32, 18}, {63, 35}}) {
            EXPECT_LE(channelDistance(image.rgba(x, y), scaled(sky, 0.65)), 3)
                << x << "," << y << " " << std::hex << image.rgba(x, y);
        }
    }
}

TEST_F(RenderGlTest, SettingsReachThePicture) {
    const auto run = render(resources() + " --size 32x32 --set vignette=false --out " + out("clear.png"));
    ASSERT_EQ(run.status, 0) << run.output;
    const auto image = PngFile::read(out("clear.png"));
    EXPECT_LE(channelDistance(image.rgba(16, 16), TestResources::SKY_DAY), 2) << std::hex << image.rgba(16, 16);
}

TEST_F(RenderGlTest, NumberedFramesAreWrittenOnePerStep) {
    const auto run = render(resources() + " --size 16x16 --frames 3 --step 500 --out " + out("seq/f%02d.png"));
    ASSERT_EQ(run.status, 0) << run.output;
    for (const char* name : {"seq/f00.png", "seq/f01.png", "seq/f02.png"}) {
        EXPECT_TRUE(std::filesystem::is_regular_file(out(name))) << name;
    }
    EXPECT_FALSE(std::filesystem::exists(out("seq/f03.png")));
}

TEST_F(RenderGlTest, OtherScenesRenderTheirOwnTrees) {
    // The sample valley's tree opens no pass of its own; the tool hangs it under a main pass,
    // so its clear colour and draws reach an opaque picture.
    auto run = render(resources() + " --scene example --size 24x24 --camera 2 --out " + out("example.png"));
    ASSERT_EQ(run.status, 0) << run.output;
    EXPECT_EQ(run.output.find("has no main pass"), std::string::npos) << run.output;
    EXPECT_EQ(PngFile::read(out("example.png")).rgba(12, 12) & 0xFFu, 0xFFu);
    // Nothing of the generated rooms covers a pixel: white clear colour under a vignette of 0.4.
    run = render(resources() + " --scene betonia --size 24x24 --out " + out("betonia.png"));
    ASSERT_EQ(run.status, 0) << run.output;
    EXPECT_LE(channelDistance(PngFile::read(out("betonia.png")).rgba(12, 12), 0x666666FFu), 1);
}

TEST_F(RenderGlTest, BadArgumentsExitWithAMessageAndStatusTwo) {
    auto run = render("--size 12");
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.output.find("Invalid value '12' for --size"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("--help"), std::string::npos);
    run = render(resources() + " --scene betonia --time-of-day night --out " + out("x.png"));
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.output.find("Scene betonia has no time of day"), std::string::npos) << run.output;
    EXPECT_FALSE(std::filesystem::exists(out("x.png")));
    run = render("--help");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.output.find("--path-at"), std::string::npos);
}

TEST_F(RenderGlTest, MissingResourcesExitWithAMessage) {
    auto run = render("--resources " + (base / "nowhere").string() + " --out " + out("y.png"));
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.output.find("resources directory"), std::string::npos) << run.output;

    // A set that lacks one model stops at load with the loader's message.
    const auto partial = base / "partial";
    TestResources::write("nivalis", partial, std::filesystem::path(NIVALIS_RESOURCES_DIR) / "shaders");
    std::filesystem::remove(partial / "nivalis" / "models" / "sun-strides.bin");
    run = render("--resources " + partial.string() + " --out " + out("z.png"));
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.output.find("Fatal error: Cannot create model buffers: File not found in bundle: "
                              "nivalis/models/sun-strides.bin"),
              std::string::npos)
        << run.output;
}

} // namespace
} // namespace tools::render
