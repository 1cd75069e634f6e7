#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "engine/AttributeType.h"
#include "engine/BackendMode.h"
#include "engine/Blending.h"
#include "engine/CullFace.h"
#include "engine/DepthMode.h"
#include "engine/Mesh.h"
#include "engine/MeshAttribute.h"
#include "engine/MeshAttributes.h"
#include "engine/Shader.h"
#include "engine/Texture.h"
#include "engine/VertexAttribute.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/VertexFormat.h"

namespace {

using namespace engine;

TEST(AssetEnumerationsTest, VertexFormatSizesAndKinds) {
    struct Row {
        VertexFormat format;
        int components;
        VertexComponentType type;
        int bytes;
        bool normalized;
        bool integer;
    };
    using T = VertexComponentType;
    const Row rows[] = {
        {VertexFormat::UBYTE, 1, T::UBYTE, 1, false, true},
        {VertexFormat::BYTE3, 3, T::BYTE, 3, false, true},
        {VertexFormat::UBYTE4_NORMALIZED, 4, T::UBYTE, 4, true, false},
        {VertexFormat::BYTE2_NORMALIZED, 2, T::BYTE, 2, true, false},
        {VertexFormat::USHORT2, 2, T::USHORT, 4, false, true},
        {VertexFormat::SHORT4, 4, T::SHORT, 8, false, true},
        {VertexFormat::USHORT_NORMALIZED, 1, T::USHORT, 2, true, false},
        {VertexFormat::SHORT3_NORMALIZED, 3, T::SHORT, 6, true, false},
        {VertexFormat::HALF2, 2, T::HALF, 4, false, false},
        {VertexFormat::HALF3, 3, T::HALF, 6, false, false},
        {VertexFormat::FLOAT, 1, T::FLOAT, 4, false, false},
        {VertexFormat::FLOAT4, 4, T::FLOAT, 16, false, false},
        {VertexFormat::UINT3, 3, T::UINT, 12, false, true},
        {VertexFormat::INT2, 2, T::INT, 8, false, true},
        {VertexFormat::INT_1010102_NORMALIZED, 4, T::INT_2_10_10_10, 4, true, false},
        {VertexFormat::UINT_1010102_NORMALIZED, 4, T::UINT_2_10_10_10, 4, true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(toString(row.format)));
        EXPECT_EQ(componentCount(row.format), row.components);
        EXPECT_EQ(componentType(row.format), row.type);
        EXPECT_EQ(byteSize(row.format), row.bytes);
        EXPECT_EQ(isNormalized(row.format), row.normalized);
        EXPECT_EQ(isInteger(row.format), row.integer);
    }
    EXPECT_THROW(componentCount(static_cast<VertexFormat>(50)), std::out_of_range);
    EXPECT_THROW(byteSize(static_cast<VertexFormat>(-1)), std::out_of_range);
}

TEST(BlendingTest, NoneIsSharedAndDisabledThoughItsFactorsAreZero) {
    ASSERT_NE(BLENDING_NONE, nullptr);
    EXPECT_EQ(*BLENDING_NONE, Blending());
    EXPECT_EQ(BLENDING_NONE->toString(),
              "Blending(equationAlpha=ADD, equationColor=ADD, sourceFactorAlpha=ZERO, destinationFactorAlpha=ZERO, "
              "sourceFactorColor=ZERO, destinationFactorColor=ZERO, enabled=false, isSeparateAlpha=false)");
}

TEST(BlendingTest, AdditiveRecordDiffersFromNone) {
    Blending additive;
    additive.enabled = true;
    additive.sourceFactorColor = BlendingFactor::ONE;
    additive.destinationFactorColor = BlendingFactor::ONE;
    EXPECT_NE(additive, *BLENDING_NONE);
    EXPECT_NE(additive.hash(), BLENDING_NONE->hash());
    Blending copy = additive;
    EXPECT_EQ(copy, additive);
    EXPECT_EQ(std::hash<Blending>{}(copy), additive.hash());
}

TEST(DepthModeTest, SharedModesCarryTheirFlags) {
    EXPECT_EQ(*DEPTH_NONE, DepthMode(false, false));
    EXPECT_EQ(*DEPTH_TEST_ENABLED, DepthMode(true, true));
    EXPECT_EQ(*DEPTH_NO_WRITE, DepthMode(true, false));
    EXPECT_EQ(*DEPTH_NO_READ, DepthMode(false, true));
    EXPECT_EQ(DEPTH_NO_WRITE->toString(), "DepthMode(depthTest=true, depthWrite=false)");
    const std::unordered_set<DepthMode> distinct{*DEPTH_NONE, *DEPTH_TEST_ENABLED, *DEPTH_NO_WRITE, *DEPTH_NO_READ};
    EXPECT_EQ(distinct.size(), 4u);
}

TEST(VertexLayoutTest, TextForms) {
    EXPECT_EQ(VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0).toString(),
              "VertexAttribute(type=VERTEX, index=0, format=HALF3, offset=0)");
    EXPECT_EQ(MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 6).toString(),
              "MeshAttribute(type=UV0, format=HALF2, offset=6)");
    const MeshAttributes layout({{AttributeType::VERTEX, VertexFormat::HALF3, 0}, {AttributeType::UV0, VertexFormat::HALF2, 6}},
                                12);
    EXPECT_EQ(layout.toString(), "MeshAttributes(attributes=[MeshAttribute(type=VERTEX, format=HALF3, offset=0), "
                                 "MeshAttribute(type=UV0, format=HALF2, offset=6)], stride=12)");
    const VertexAttributesDescriptor descriptor(
        {{AttributeType::VERTEX, 0, VertexFormat::HALF3, 0}, {AttributeType::UV0, 1, VertexFormat::HALF2, 6}}, 12);
    EXPECT_EQ(descriptor.toString(),
              "VertexAttributesDescriptor(attributes=[VertexAttribute(type=VERTEX, index=0, format=HALF3, offset=0), "
              "VertexAttribute(type=UV0, index=1, format=HALF2, offset=6)], stride=12)");
    EXPECT_EQ(MeshAttributes({}, 0).toString(), "MeshAttributes(attributes=[], stride=0)");
}

TEST(VertexLayoutTest, EqualityAndHashCoverEveryField) {
    const MeshAttribute base(AttributeType::VERTEX, VertexFormat::HALF3, 0);
    EXPECT_EQ(base, MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0));
    EXPECT_NE(base, MeshAttribute(AttributeType::NORMAL, VertexFormat::HALF3, 0));
    EXPECT_NE(base, MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF4, 0));
    EXPECT_NE(base, MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 2));

    const VertexAttribute slot(AttributeType::UV0, 1, VertexFormat::HALF2, 6);
    EXPECT_NE(slot, VertexAttribute(AttributeType::UV0, 2, VertexFormat::HALF2, 6));

    const MeshAttributes a({base, {AttributeType::UV0, VertexFormat::HALF2, 6}}, 12);
    const MeshAttributes b({base, {AttributeType::UV0, VertexFormat::HALF2, 6}}, 12);
    EXPECT_EQ(a, b);
    EXPECT_EQ(a.hash(), b.hash());
    EXPECT_EQ(std::hash<MeshAttributes>{}(a), b.hash());
    EXPECT_NE(a, MeshAttributes({base, {AttributeType::UV0, VertexFormat::HALF2, 6}}, 16));
    EXPECT_NE(a, MeshAttributes({{AttributeType::UV0, VertexFormat::HALF2, 6}, base}, 12));
    EXPECT_NE(a, MeshAttributes({base}, 12));

    const std::unordered_set<VertexAttributesDescriptor> set{
        VertexAttributesDescriptor({slot}, 12), VertexAttributesDescriptor({slot}, 12),
        VertexAttributesDescriptor({slot}, 8)};
    EXPECT_EQ(set.size(), 2u);
}

TEST(VertexLayoutTest, DoCopyReplacesOnlyTheFieldsGiven) {
    const VertexAttribute original(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0);
    EXPECT_EQ(original.doCopy(), original);
    const VertexAttribute moved = original.doCopy(std::nullopt, 3, std::nullopt, 12);
    EXPECT_EQ(moved, VertexAttribute(AttributeType::VERTEX, 3, VertexFormat::FLOAT3, 12));
    EXPECT_EQ(original.index(), 0);

    const MeshAttribute attribute(AttributeType::NORMAL, VertexFormat::BYTE4_NORMALIZED, 8);
    EXPECT_EQ(attribute.doCopy(AttributeType::COLOR), MeshAttribute(AttributeType::COLOR, VertexFormat::BYTE4_NORMALIZED, 8));
    EXPECT_EQ(attribute.doCopy(AttributeType::NORMAL, VertexFormat::UBYTE4, 4),
              MeshAttribute(AttributeType::NORMAL, VertexFormat::UBYTE4, 4));

    const MeshAttributes layout({attribute}, 12);
    EXPECT_EQ(layout.doCopy(std::nullopt, 16), MeshAttributes({attribute}, 16));
    EXPECT_EQ(layout.doCopy(std::vector<MeshAttribute>{}), MeshAttributes({}, 12));

    const VertexAttributesDescriptor descriptor({original}, 12);
    EXPECT_EQ(descriptor.doCopy(std::vector<VertexAttribute>{moved}).attributes().front(), moved);
    EXPECT_EQ(descriptor.doCopy().stride(), 12);
}

TEST(AssetRecordsTest, NewTextureIsA2dRgba8WithLinearFiltersAndRepeat) {
    const Texture texture;
    EXPECT_EQ(texture.toString(),
              "Texture(type=TEX_2D, name=, fileName=, minFilter=LINEAR, magFilter=LINEAR, wrapping=REPEAT, "
              "format=RGBA8, id=0, width=0, height=0, mipmaps=0, anisotropy=0, loaded=false)");
}

TEST(AssetRecordsTest, ShaderStartsUnpreparedAndMeshesStartAtZero) {
    const Shader shader("Diffuse");
    EXPECT_EQ(shader.toString(), "Shader(name=Diffuse, id=-1)");

    const Mesh empty;
    EXPECT_EQ(empty.toString(), "Mesh(name=, fileName=, attributes=null, id=0, loaded=false)");
}

TEST(AssetRecordsTest, NamedMeshUsesItsNameAsFileStemAndSharesItsLayout) {
    auto layout = std::make_shared<MeshAttributes>(
        std::vector<MeshAttribute>{{AttributeType::VERTEX, VertexFormat::HALF3, 0}}, 6);
    const Mesh sky("sky", layout);
    const Mesh sea("sea", layout);
    EXPECT_EQ(sky.attributes, sea.attributes);
    EXPECT_EQ(sky.toString(), "Mesh(name=sky, fileName=sky, attributes=MeshAttributes(attributes=["
                              "MeshAttribute(type=VERTEX, format=HALF3, offset=0)], stride=6), id=0, loaded=false)");
}

} // namespace
