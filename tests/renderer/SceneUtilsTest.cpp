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

TEST(SceneUtilsTest, VertexDescriptorUsesPositionsNotIndices) {
    const engine::VertexAttributesDescriptor attributes(
        {engine::VertexAttribute(engine::AttributeType::UV0, 5, VertexFormat::HALF2, 12),
         engine::VertexAttribute(engine::AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0)},
        16);
    const gpu::VertexLayout layout = SceneUtils::makeVertexDescriptor(attributes);
    ASSERT_EQ(layout.attributes.size(), 2u);
    EXPECT_EQ(layout.stride, 16);
    EXPECT_EQ(layout.attributes[0].location, 0u);
    EXPECT_EQ(layout.attributes[0].type, GLenum(GL_HALF_FLOAT));
    EXPECT_EQ(layout.attributes[0].offset, 12u);
    EXPECT_EQ(layout.attributes[1].location, 1u);
    EXPECT_EQ(layout.attributes[1].size, 3);
    EXPECT_EQ(layout.attributes[1].offset, 0u);
}

TEST(SceneUtilsTest, PrimitiveTypesByOrdinalWithTriangleFallback) {
    using engine::commands::PrimitiveType;
    EXPECT_EQ(SceneUtils::primitiveType(PrimitiveType::TRIANGLES), GLenum(GL_TRIANGLES));
    EXPECT_EQ(SceneUtils::primitiveType(PrimitiveType::TRIANGLE_STRIP), GLenum(GL_TRIANGLE_STRIP));
    EXPECT_EQ(SceneUtils::primitiveType(PrimitiveType::POINTS), GLenum(GL_POINTS));
    EXPECT_EQ(SceneUtils::primitiveType(static_cast<PrimitiveType>(7)), GLenum(GL_TRIANGLES));
}

TEST(SceneUtilsTest, DepthStatesCompareLessOnlyWhenTesting) {
    const auto tested = SceneUtils::makeDepthState(*engine::DEPTH_NO_WRITE);
    EXPECT_EQ(tested->depthCompareFunction, GLenum(GL_LESS));
    EXPECT_FALSE(tested->depthWriteEnabled);
    // A state can write depth without testing it.
    const auto writeOnly = SceneUtils::makeDepthState(*engine::DEPTH_NO_READ);
    EXPECT_EQ(writeOnly->depthCompareFunction, GLenum(GL_ALWAYS));
    EXPECT_TRUE(writeOnly->depthWriteEnabled);
    // Each call makes its own object, even for equal modes.
    EXPECT_NE(SceneUtils::makeDepthState(*engine::DEPTH_NONE), SceneUtils::makeDepthState(*engine::DEPTH_NONE));
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

TEST_F(SamplerTest, MipFilterComesFromTheMagnificationField) {
    engine::Texture texture;
    texture.mipmaps = 3;
    texture.minFilter = TextureFiltering::LINEAR_MIPMAP_NEAREST; // not consulted for the mip filter
    texture.magFilter = TextureFiltering::NEAREST_MIPMAP_LINEAR;
    auto parameters = sampler(texture);
    EXPECT_EQ(parameters[GL_TEXTURE_MIN_FILTER], GL_LINEAR_MIPMAP_LINEAR);
    EXPECT_EQ(parameters[GL_TEXTURE_MAG_FILTER], GL_NEAREST);

    texture.magFilter = TextureFiltering::LINEAR_MIPMAP_NEAREST;
    texture.minFilter = TextureFiltering::NEAREST;
    EXPECT_EQ(sampler(texture)[GL_TEXTURE_MIN_FILTER], GL_NEAREST_MIPMAP_NEAREST);

    // A plain name in the magnification field leaves the texture without mip filtering.
    texture.magFilter = TextureFiltering::LINEAR;
    texture.minFilter = TextureFiltering::LINEAR_MIPMAP_LINEAR;
    EXPECT_EQ(sampler(texture)[GL_TEXTURE_MIN_FILTER], GL_LINEAR);
}

TEST_F(SamplerTest, AnisotropyFromTwoWhereTheContextHasIt) {
    engine::Texture texture;
    texture.anisotropy = 8;
    EXPECT_EQ(sampler(texture).count(GL_TEXTURE_MAX_ANISOTROPY), 0u);
    gl.extensions.insert("GL_EXT_texture_filter_anisotropic");
    EXPECT_EQ(sampler(texture)[GL_TEXTURE_MAX_ANISOTROPY], 8.0);
    texture.anisotropy = 1;
    EXPECT_EQ(sampler(texture).count(GL_TEXTURE_MAX_ANISOTROPY), 0u);
}

} // namespace
} // namespace renderer
