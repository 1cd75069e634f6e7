#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/headless/PngFile.h"

#include <epoxy/gl.h>
#include <gtest/gtest.h>

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
    target.clear(0.0f, 0.0f, 1.0f, 1.0f);
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

TEST_F(OffscreenTargetGlTest, RefusesSizesBelowOnePixel) {
    EXPECT_THROW(OffscreenTarget(0, 10), std::invalid_argument);
    EXPECT_THROW(OffscreenTarget(10, -1), std::invalid_argument);
    EXPECT_THROW(OffscreenTarget(1 << 30, 1), std::invalid_argument);
}

} // namespace
} // namespace renderer::headless
