#include "renderer/SceneUtils.h"

#include <gtest/gtest.h>

#include "tests/renderer/support/RecordingGl.h"
#include "tests/renderer/support/RendererHarness.h"

namespace renderer {
namespace {

using engine::BlendingEquation;
using engine::BlendingFactor;
using engine::TextureFiltering;
using engine::TextureWrapping;
using engine::VertexFormat;

TEST(SceneUtilsTest, ApplyBlendingUsesColourFieldsForAlphaUnlessSeparate) {
    engine::Blending blending;
    blending.enabled = true;
    blending.equationColor = BlendingEquation::SUBTRACT;
    blending.equationAlpha = BlendingEquation::REVERSE_SUBTRACT;
    blending.sourceFactorColor = BlendingFactor::SRC_ALPHA;
    blending.destinationFactorColor = BlendingFactor::ONE_MINUS_SRC_ALPHA;
    blending.sourceFactorAlpha = BlendingFactor::ONE;
    blending.destinationFactorAlpha = BlendingFactor::DST_ALPHA;

    gpu::BlendState shared = SceneUtils::applyBlending(blending);
    EXPECT_TRUE(shared.enabled);
    EXPECT_EQ(shared.rgbOperation, GLenum(GL_FUNC_SUBTRACT));
    EXPECT_EQ(shared.alphaOperation, GLenum(GL_FUNC_SUBTRACT));
    EXPECT_EQ(shared.sourceAlphaFactor, GLenum(GL_SRC_ALPHA));
    EXPECT_EQ(shared.destinationAlphaFactor, GLenum(GL_ONE_MINUS_SRC_ALPHA));

    blending.isSeparateAlpha = true;
    gpu::BlendState separate = SceneUtils::applyBlending(blending);
    EXPECT_EQ(separate.rgbOperation, GLenum(GL_FUNC_SUBTRACT));
    EXPECT_EQ(separate.alphaOperation, GLenum(GL_FUNC_REVERSE_SUBTRACT));
    EXPECT_EQ(separate.sourceRGBFactor, GLenum(GL_SRC_ALPHA));
    EXPECT_EQ(separate.sourceAlphaFactor, GLenum(GL_ONE));
    EXPECT_EQ(separate.destinationAlphaFactor, GLenum(GL_DST_ALPHA));

    // The shared "no blending" record is off, with factors that are still valid names.
    gpu::BlendState none = SceneUtils::applyBlending(*engine::BLENDING_NONE);
    EXPECT_FALSE(none.enabled);
    EXPECT_EQ(none.sourceRGBFactor, GLenum(GL_ZERO));
}

class SamplerTest : public ::testing::Test {
protected:
    std::map<GLenum, double> sampler(const engine::Texture& texture) {
        return gl.samplerParameters(SceneUtils::makeSampler(gl, texture));
    }
    test::RecordingGl gl;
};

TEST_F(SamplerTest, PlainFiltersAndWrapping) {
    engine::Texture texture; // linear, repeat
    auto parameters = sampler(texture);
    EXPECT_EQ(parameters[GL_TEXTURE_MIN_FILTER], GL_LINEAR);
    EXPECT_EQ(parameters[GL_TEXTURE_MAG_FILTER], GL_LINEAR);
    EXPECT_EQ(parameters[GL_TEXTURE_WRAP_S], GL_REPEAT);
    EXPECT_EQ(parameters[GL_TEXTURE_WRAP_T], GL_REPEAT);

    texture.minFilter = TextureFiltering::NEAREST_MIPMAP_LINEAR;
    texture.magFilter = TextureFiltering::NEAREST;
    texture.wrapping = TextureWrapping::MIRRORED_REPEAT;
    parameters = sampler(texture);
    EXPECT_EQ(parameters[GL_TEXTURE_MIN_FILTER], GL_NEAREST); // no mipmaps: no mip filter
    EXPECT_EQ(parameters[GL_TEXTURE_MAG_FILTER], GL_NEAREST);
    EXPECT_EQ(parameters[GL_TEXTURE_WRAP_T], GL_MIRRORED_REPEAT);

    texture.wrapping = TextureWrapping::CLAMP_TO_EDGE;
    EXPECT_EQ(sampler(texture)[GL_TEXTURE_WRAP_S], GL_CLAMP_TO_EDGE);
}

} // namespace
} // namespace renderer
