// What the generator reads from a scene and how it writes textures: layouts come from the draw
// states that draw a mesh, and a texture's files follow its description.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "engine/Blending.h"
#include "engine/DepthMode.h"
#include "engine/Scene.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "tools/assetgen/catalogue/SceneManifest.h"
#include "tools/assetgen/catalogue/TextureWriter.h"

namespace {

using engine::AttributeType;
using engine::VertexFormat;
using engine::commands::DrawMeshCommand;
using engine::commands::DrawMeshState;
using engine::commands::GroupCommand;
using tools::assetgen::catalogue::SceneManifest;

class TinyScene : public engine::Scene {
public:
    TinyScene() = default;
};

std::shared_ptr<engine::VertexAttributesDescriptor> descriptor(VertexFormat position, int stride) {
    return std::make_shared<engine::VertexAttributesDescriptor>(
        std::vector{engine::VertexAttribute(AttributeType::VERTEX, 0, position, 0)}, stride);
}

std::shared_ptr<DrawMeshCommand> draw(const std::shared_ptr<engine::Mesh>& mesh,
                                      std::shared_ptr<engine::VertexAttributesDescriptor> layout) {
    auto state = std::make_shared<DrawMeshState>(std::make_shared<engine::Shader>("Color"), engine::BLENDING_NONE,
                                                 engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK, std::move(layout));
    return std::make_shared<DrawMeshCommand>(mesh, std::vector<std::shared_ptr<engine::commands::UniformValue>>{}, state,
                                             engine::commands::PrimitiveType::TRIANGLES, -1);
}

TEST(SceneManifest, TakesEachLayoutFromTheDrawStateDeepInTheTree) {
    TinyScene scene;
    auto declared = std::make_shared<engine::MeshAttributes>(
        std::vector{engine::MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0)}, 12);
    auto drawn = std::make_shared<engine::Mesh>("drawn", declared);
    auto bare = std::make_shared<engine::Mesh>("bare", nullptr);
    auto unused = std::make_shared<engine::Mesh>("unused", declared);
    auto inner = std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<engine::commands::Command>>{
                                                          draw(drawn, descriptor(VertexFormat::HALF3, 8))});
    inner->enabled = false; // disabled nodes still name their meshes
    auto outer = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<engine::commands::Command>>{inner, draw(bare, nullptr), inner});
    scene.commands = {outer};
    scene.meshes = {drawn, bare, unused};

    const SceneManifest manifest = SceneManifest::of(scene, "tiny");
    ASSERT_EQ(manifest.meshes.size(), 3u);
    // The draw's HALF3, stride 8, not the mesh's own FLOAT3 description.
    ASSERT_TRUE(manifest.mesh("drawn").layout.has_value());
    EXPECT_EQ(manifest.mesh("drawn").layout->stride(), 8);
    EXPECT_EQ(manifest.mesh("drawn").layout->attributes()[0].format, VertexFormat::HALF3);
    EXPECT_EQ(manifest.mesh("drawn").draws, 1); // the shared group is walked once
    // Drawn without a vertex stream: no layout.
    EXPECT_FALSE(manifest.mesh("bare").layout.has_value());
    // Drawn by nothing: the mesh's own description.
    ASSERT_TRUE(manifest.mesh("unused").layout.has_value());
    EXPECT_EQ(manifest.mesh("unused").layout->stride(), 12);
    EXPECT_THROW(manifest.mesh("missing"), std::out_of_range);
}

class TextureWriterTest : public ::testing::Test {
protected:
    void SetUp() override {
        root_ = std::filesystem::temp_directory_path() /
                ("assetgen-writer-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::remove_all(root_);
    }
    void TearDown() override { std::filesystem::remove_all(root_); }

    static std::vector<unsigned char> read(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    std::filesystem::path root_;
};

TEST_F(TextureWriterTest, WritesOneAstcFilePerLevelHalvingToTheLast) {
    tools::assetgen::io::OutputTree out(root_);
    engine::Texture texture;
    texture.fileName = "chain";
    texture.format = engine::TextureFormat::ASTC;
    texture.mipmaps = 3;
    tools::assetgen::catalogue::TextureContent content;
    content.image = tools::assetgen::core::Image(32, 8, {0.5f, 0.25f, 1.0f, 1.0f});
    tools::assetgen::catalogue::TextureWriter::write(out, "scene", texture, content);
    const int widths[] = {32, 16, 8, 4};
    const int heights[] = {8, 4, 2, 1};
    for (int level = 0; level <= 3; ++level) {
        const auto bytes = read(root_ / "scene/textures" / ("chain_" + std::to_string(level) + ".astc"));
        ASSERT_GE(bytes.size(), 16u) << level;
        EXPECT_EQ(bytes[0], 0x13);
        EXPECT_EQ(bytes[4], 4);
        EXPECT_EQ(bytes[7] | bytes[8] << 8 | bytes[9] << 16, widths[level]);
        EXPECT_EQ(bytes[10] | bytes[11] << 8 | bytes[12] << 16, heights[level]);
        const std::size_t blocks = static_cast<std::size_t>((widths[level] + 3) / 4) * ((heights[level] + 3) / 4);
        EXPECT_EQ(bytes.size(), 16u + blocks * 16u);
    }
    EXPECT_FALSE(std::filesystem::exists(root_ / "scene/textures/chain_4.astc"));

    texture.mipmaps = 6; // 32 x 8 reaches 1 x 1 at level 5
    EXPECT_THROW(tools::assetgen::catalogue::TextureWriter::write(out, "scene", texture, content), std::invalid_argument);
}

} // namespace
