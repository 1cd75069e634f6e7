#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/headless/PngFile.h"

#include <epoxy/gl.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace renderer::headless {
namespace {

TEST(HeadlessContextGlTest, GivesAnOpenGl33CoreContextWithoutAWindow) {
    HeadlessContext context;
    EXPECT_NE(context.platform(), HeadlessContext::Platform::AUTO);
    EXPECT_FALSE(context.rendererName().empty());
    GLint major = 0;
    GLint minor = 0;
    glGetIntegerv(GL_MAJOR_VERSION, &major);
    glGetIntegerv(GL_MINOR_VERSION, &minor);
    EXPECT_GE(major * 10 + minor, 33) << context.versionString();
    GLint profile = 0;
    glGetIntegerv(GL_CONTEXT_PROFILE_MASK, &profile);
    EXPECT_TRUE(profile & GL_CONTEXT_CORE_PROFILE_BIT);
    // A core context has no default framebuffer here: drawing goes to framebuffer objects.
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(HeadlessContextGlTest, CanBeOpenedAgainAfterClosing) {
    { HeadlessContext first; }
    HeadlessContext second;
    OffscreenTarget target(2, 2);
    EXPECT_EQ(target.readPixels().size(), 16u);
}

class OffscreenTargetGlTest : public ::testing::Test {
protected:
    HeadlessContext context;
};

TEST_F(OffscreenTargetGlTest, ReadsBackTheClearColourTopRowFirst) {
    OffscreenTarget target(5, 4);
    target.bind();
    glClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    // GL's y runs upwards, so the scissor box at y 2..3 is the upper half of the picture.
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 2, 5, 2);
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);

    const auto pixels = target.readPixels();
    ASSERT_EQ(pixels.size(), 5u * 4u * 4u);
    PngFile::Image image{5, 4, pixels};
    EXPECT_EQ(image.rgba(0, 0), 0xFF0000FFu);
    EXPECT_EQ(image.rgba(4, 1), 0xFF0000FFu);
    EXPECT_EQ(image.rgba(0, 2), 0x0000FFFFu);
    EXPECT_EQ(image.rgba(4, 3), 0x0000FFFFu);
}

TEST_F(OffscreenTargetGlTest, ClearsToAnyEightBitColourExactly) {
    OffscreenTarget target(3, 3);
    target.bind();
    glClearColor(64.0f / 255.0f, 128.0f / 255.0f, 191.0f / 255.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    const PngFile::Image image{3, 3, target.readPixels()};
    EXPECT_EQ(image.rgba(1, 1), 0x4080BFFFu);
}

TEST_F(OffscreenTargetGlTest, BindSetsTheViewportToItsSize) {
    OffscreenTarget target(17, 9);
    glViewport(0, 0, 1, 1);
    target.bind();
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 17);
    EXPECT_EQ(viewport[3], 9);
    GLint bound = 0;
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &bound);
    EXPECT_EQ(static_cast<unsigned>(bound), target.framebuffer());
}

TEST_F(OffscreenTargetGlTest, RefusesSizesBelowOnePixel) {
    EXPECT_THROW(OffscreenTarget(0, 10), std::invalid_argument);
    EXPECT_THROW(OffscreenTarget(10, -1), std::invalid_argument);
    EXPECT_THROW(OffscreenTarget(1 << 30, 1), std::invalid_argument);
}

TEST_F(OffscreenTargetGlTest, ClearedFrameSurvivesTheTripThroughAPngFile) {
    OffscreenTarget target(8, 6);
    target.bind();
    glClearColor(0.0f, 1.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    const auto path = (std::filesystem::temp_directory_path() / "nivalis-headless-clear.png").string();
    PngFile::write(path, 8, 6, target.readPixels());
    const auto image = PngFile::read(path);
    std::remove(path.c_str());
    EXPECT_EQ(image.width, 8);
    EXPECT_EQ(image.height, 6);
    EXPECT_EQ(image.rgba(7, 5), 0x00FF00FFu);
}

} // namespace
} // namespace renderer::headless
