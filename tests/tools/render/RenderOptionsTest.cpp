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

TEST(RenderOptionsTest, NoArgumentsGiveOneDefaultFrame) {
    const auto options = parse({});
    EXPECT_EQ(options.scene, "nivalis");
    EXPECT_EQ(options.width, 1280);
    EXPECT_EQ(options.height, 720);
    EXPECT_FALSE(options.timeOfDay);
    EXPECT_FALSE(options.camera);
    EXPECT_FALSE(options.pathAt);
    EXPECT_EQ(options.frames, 1);
    EXPECT_EQ(options.seed, 1u);
    EXPECT_EQ(options.out, "frame.png");
    EXPECT_FALSE(options.resources);
    EXPECT_FALSE(options.help);
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

TEST(RenderOptionsTest, ValuesMayFollowAnEqualsSign) {
    const auto options = parse({"--size=640x360", "--scene=betonia", "--set=cameraPeriod=2", "--set", "a=",
                                "--resources=/opt/res", "--astc=cpu", "--egl=surfaceless"});
    EXPECT_EQ(options.width, 640);
    EXPECT_EQ(options.height, 360);
    EXPECT_EQ(options.scene, "betonia");
    EXPECT_EQ(options.settings[0], (std::pair<std::string, std::string>{"cameraPeriod", "2"}));
    EXPECT_EQ(options.settings[1], (std::pair<std::string, std::string>{"a", ""}));
    EXPECT_EQ(*options.resources, "/opt/res");
    EXPECT_EQ(options.astc, renderer::AstcTexture::Decoding::CPU);
    EXPECT_EQ(options.platform, renderer::headless::HeadlessContext::Platform::SURFACELESS);
}

TEST(RenderOptionsTest, BadArgumentsAreNamedInTheMessage) {
    EXPECT_EQ(errorOf({"--colour", "red"}), "Unknown option --colour");
    EXPECT_EQ(errorOf({"frame.png"}), "Unexpected argument 'frame.png'");
    EXPECT_EQ(errorOf({"--size"}), "Option --size needs a value");
    EXPECT_EQ(errorOf({"--scene", "harbour"}),
              "Invalid value 'harbour' for --scene: expected nivalis, spirelight, betonia or example");
    EXPECT_EQ(errorOf({"--help=yes"}), "Option --help takes no value");
}

TEST(RenderOptionsTest, SizesMustBeTwoWholePositiveNumbers) {
    for (const char* size : {"1280", "1280x", "x720", "0x720", "1280x-1", "12.5x10", "1280x720x3", "99999x10",
                             "axb", " 1280x720"}) {
        EXPECT_NE(errorOf({"--size", size}).find("for --size"), std::string::npos) << size;
    }
    EXPECT_EQ(parse({"--size", "1x16384"}).height, 16384);
}

TEST(RenderOptionsTest, NumbersOutsideTheirRangeAreRefused) {
    EXPECT_NE(errorOf({"--path-at", "1.5"}).find("--path-at"), std::string::npos);
    EXPECT_NE(errorOf({"--path-at", "-0.1"}).find("--path-at"), std::string::npos);
    EXPECT_NE(errorOf({"--path-at", "nan"}).find("--path-at"), std::string::npos);
    EXPECT_NE(errorOf({"--camera", "-1"}).find("--camera"), std::string::npos);
    EXPECT_NE(errorOf({"--camera", "2.5"}).find("--camera"), std::string::npos);
    EXPECT_NE(errorOf({"--frames", "0"}).find("--frames"), std::string::npos);
    EXPECT_NE(errorOf({"--at", "0"}).find("--at"), std::string::npos);
    EXPECT_NE(errorOf({"--at", "inf"}).find("--at"), std::string::npos);
    EXPECT_NE(errorOf({"--step", "-1"}).find("--step"), std::string::npos);
    EXPECT_NE(errorOf({"--seed", "-3"}).find("--seed"), std::string::npos);
    EXPECT_NE(errorOf({"--astc", "fast"}).find("--astc"), std::string::npos);
    EXPECT_NE(errorOf({"--set", "vignette"}).find("FIELD=VALUE"), std::string::npos);
    EXPECT_NE(errorOf({"--set", "=true"}).find("FIELD=VALUE"), std::string::npos);
    EXPECT_EQ(parse({"--path-at", "1"}).pathAt, 1.0f);
    EXPECT_EQ(parse({"--step", "0"}).step, 0.0);
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

TEST(RenderOptionsTest, HideCollectsKnownPartsInOrder) {
    const auto options = parse({"--hide", "animals", "--hide=mountains", "--hide", "animals"});
    EXPECT_EQ(options.hide, (std::vector<std::string>{"animals", "mountains", "animals"}));
    for (const char* part : {"ships", "animals", "birds", "mountains", "water", "sky", "clouds", "stars", "sun"}) {
        EXPECT_EQ(parse({"--hide", part}).hide, std::vector<std::string>{part});
    }
    EXPECT_EQ(errorOf({"--hide", "penguins"}),
              "Invalid value 'penguins' for --hide: expected ships, animals, birds, mountains, water, sky, clouds, "
              "stars or sun");
    EXPECT_NE(errorOf({"--hide", "Ships"}).find("for --hide"), std::string::npos);
    EXPECT_EQ(errorOf({"--hide"}), "Option --hide needs a value");
    EXPECT_TRUE(parse({}).hide.empty());
}

TEST(RenderOptionsTest, HelpListsEveryOption) {
    const std::string usage = RenderOptions::usage();
    for (const char* option : {"--scene", "--size", "--time-of-day", "--camera", "--path-at", "--at", "--frames",
                               "--step", "--seed", "--set", "--hide", "--out", "--resources", "--astc", "--egl", "--help"}) {
        EXPECT_NE(usage.find(std::string(option) + " "), std::string::npos) << option;
    }
    EXPECT_TRUE(parse({"--size", "2x2", "-h"}).help);
}

} // namespace
} // namespace tools::render
