#include "tools/render/RenderOptions.h"

#include <gtest/gtest.h>

namespace tools::render {
namespace {

RenderOptions parse(std::vector<std::string> arguments) { return RenderOptions::parse(arguments); }

std::string errorOf(std::vector<std::string> arguments) {
    try {
        RenderOptions::parse(arguments);
    } catch (const std::invalid_argument& e) {
        return e.what();
    }
    return "(no error)";
}

TEST(RenderOptionsTest, ReadsTheDocumentedCommandLine) {
    const auto options =
        parse({"--scene", "nivalis", "--size", "1280x720", "--time-of-day", "day", "--camera", "3", "--path-at",
               "0.5", "--at", "60000", "--frames", "1", "--step", "33.3", "--seed", "1", "--set", "vignette=false",
               "--out", "frame.png"});
    EXPECT_EQ(*options.timeOfDay, "day");
    EXPECT_EQ(*options.camera, 3);
    EXPECT_FLOAT_EQ(*options.pathAt, 0.5f);
    EXPECT_DOUBLE_EQ(options.at, 60000.0);
    EXPECT_DOUBLE_EQ(options.step, 33.3);
    ASSERT_EQ(options.settings.size(), 1u);
    EXPECT_EQ(options.settings[0], (std::pair<std::string, std::string>{"vignette", "false"}));
}

TEST(RenderOptionsTest, BadArgumentsAreNamedInTheMessage) {
    EXPECT_EQ(errorOf({"--colour", "red"}), "Unknown option --colour");
    EXPECT_EQ(errorOf({"frame.png"}), "Unexpected argument 'frame.png'");
    EXPECT_EQ(errorOf({"--size"}), "Option --size needs a value");
    EXPECT_EQ(errorOf({"--scene", "harbour"}),
              "Invalid value 'harbour' for --scene: expected nivalis, spirelight, betonia or example");
    EXPECT_EQ(errorOf({"--help=yes"}), "Option --help takes no value");
}

TEST(RenderOptionsTest, SeveralFramesNeedANumberedOutput) {
    EXPECT_EQ(errorOf({"--frames", "3", "--out", "shot.png"}), "--out 'shot.png' needs a %d to number 3 frames");
    EXPECT_NE(errorOf({"--out", "a%sb.png"}).find("Invalid --out"), std::string::npos);
    EXPECT_NE(errorOf({"--out", "%d-%d.png"}).find("Invalid --out"), std::string::npos);
    EXPECT_NO_THROW(parse({"--frames", "3", "--out", "shot-%d.png"}));
}

TEST(RenderOptionsTest, OutputPathNumbersFramesFromZero) {
    auto options = parse({"--frames", "12", "--out", "out/f%04d.png"});
    EXPECT_EQ(options.outputPath(0), "out/f0000.png");
    EXPECT_EQ(options.outputPath(11), "out/f0011.png");
    options.out = "100%%-%d.png";
    EXPECT_EQ(options.outputPath(7), "100%-7.png");
    options.out = "plain.png";
    EXPECT_EQ(options.outputPath(5), "plain.png");
    options.out = "f%2d.png";
    EXPECT_EQ(options.outputPath(123), "f123.png");
}

} // namespace
} // namespace tools::render
