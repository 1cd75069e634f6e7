#include "renderer/headless/PngFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace renderer::headless {
namespace {

std::string tempPath(const char* name) { return (std::filesystem::temp_directory_path() / name).string(); }

TEST(PngFileTest, RoundTripKeepsEveryChannelAndTheRowOrder) {
    // 3 by 2: each pixel distinct, alpha included, so a swapped channel or a flipped row shows.
    const std::vector<std::uint8_t> pixels = {
        255, 0,   0,   255, 0,   255, 0,   128, 0,  0,  255, 0,  //
        1,   2,   3,   4,   250, 251, 252, 253, 17, 34, 51,  68, //
    };
    const auto path = tempPath("nivalis-png-roundtrip.png");
    PngFile::write(path, 3, 2, pixels);
    const auto image = PngFile::read(path);
    std::remove(path.c_str());
    ASSERT_EQ(image.width, 3);
    ASSERT_EQ(image.height, 2);
    EXPECT_EQ(image.pixels, pixels);
    EXPECT_EQ(image.rgba(0, 0), 0xFF0000FFu);
    EXPECT_EQ(image.rgba(1, 0), 0x00FF0080u);
    EXPECT_EQ(image.rgba(0, 1), 0x01020304u);
    EXPECT_EQ(image.rgba(2, 1), 0x11223344u);
}

TEST(PngFileTest, ReportsUnwritableAndUnreadablePaths) {
    try {
        PngFile::write("/nonexistent-dir/x.png", 1, 1, {0, 0, 0, 0});
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("/nonexistent-dir/x.png"), std::string::npos);
    }
    const auto notPng = tempPath("nivalis-not-a-png.png");
    std::ofstream(notPng) << "plain text";
    EXPECT_THROW(PngFile::read(notPng), std::runtime_error);
    std::remove(notPng.c_str());
    EXPECT_THROW(PngFile::read(tempPath("nivalis-missing.png")), std::runtime_error);
}

} // namespace
} // namespace renderer::headless
