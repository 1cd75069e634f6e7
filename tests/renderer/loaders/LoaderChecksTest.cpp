// Every check a loader makes before it trusts a file, each tripped by the smallest file that
// does, seen through the stop message a user gets: the file's path inside the resources and
// the reason.
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "engine/Mesh.h"
#include "engine/Texture.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/DrawMeshState.h"
#include "engine/commands/GroupCommand.h"
#include "renderer/Fatal.h"
#include "renderer/loaders/FullModel.h"
#include "renderer/loaders/ModelLayoutCheck.h"
#include "renderer/textures/TextureFiles.h"
#include "tests/renderer/loaders/LoaderFiles.h"
#include "tests/renderer/support/RecordingGl.h"

namespace renderer {
namespace {

using test::astcFile;
using test::countingBytes;

/// The stop message of `action`, or "" when it does not stop.
std::string stopOf(const std::function<void()>& action) {
    const auto previous = Fatal::setHandler(&Fatal::throwingHandler);
    std::string message;
    try {
        action();
    } catch (const Fatal::Stop& stop) {
        message = stop.what();
    }
    Fatal::setHandler(previous);
    return message;
}

std::vector<std::byte> with(std::vector<std::byte> bytes, std::size_t at, int value) {
    bytes[at] = static_cast<std::byte>(value);
    return bytes;
}

class LoaderChecksTest : public ::testing::Test {
protected:
    test::TempDir resources;
    test::RecordingGl gl;

    std::string loadTexture(const std::string& file, const std::vector<std::byte>& bytes, engine::Texture texture) {
        resources.write("scene/textures/" + file, bytes);
        return stopOf([&] { textures::TextureFiles::load(gl, texture, resources.path() / "scene" / "textures"); });
    }
};

engine::Texture description(const std::string& fileName, engine::TextureFormat format, int width = 0, int height = 0) {
    engine::Texture texture;
    texture.fileName = fileName;
    texture.format = format;
    texture.width = width;
    texture.height = height;
    return texture;
}

struct FileCase {
    std::vector<std::byte> file;
    std::string reason;
};

TEST_F(LoaderChecksTest, AstcHeaderAndDataChecks) {
    // 8 by 8 pixels in 4 by 4 blocks: 4 blocks of 16 bytes.
    const auto good = astcFile(8, 8, 4, 4, countingBytes(64));
    const std::vector<FileCase> cases = {
        {{}, "empty file"},
        {std::vector<std::byte>(good.begin(), good.begin() + 15), "header cut short at 15 bytes"},
        {with(good, 0, 0), "magic 0x5CA1AB00 is not the ASTC magic"},
        {with(with(good, 4, 0), 5, 255), "block size 0x255 is not an ASTC block size"},
        {with(good, 5, 7), "block size 4x7 is not an ASTC block size"},
        {with(good, 6, 2), "depth 1 in blocks 2 deep: only flat images are read"},
        {with(good, 13, 2), "depth 2 in blocks 1 deep: only flat images are read"},
        {with(good, 7, 0), "size 0x8 is outside 1 to 16384 pixels"},
        {with(with(with(good, 10, 0xFF), 11, 0xFF), 12, 0xFF), "size 8x16777215 is outside 1 to 16384 pixels"},
        {with(good, 7, 1), "64 bytes of blocks where 1x8 in 4x4 blocks needs 32"},
        {astcFile(8, 8, 4, 4, countingBytes(63)), "63 bytes of blocks where 8x8 in 4x4 blocks needs 64"},
        {astcFile(8, 8, 4, 4, countingBytes(65)), "65 bytes of blocks where 8x8 in 4x4 blocks needs 64"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(loadTexture("snow.astc", c.file, description("snow", engine::TextureFormat::ASTC)),
                  "Cannot load texture scene/textures/snow.astc: " + c.reason);
    }
    EXPECT_EQ(loadTexture("snow.astc", good, description("snow", engine::TextureFormat::ASTC)), "");
    EXPECT_EQ(gl.liveTextures(), 1u) << "no texture is left behind by a refused file";

    // A level of a chain must keep the first level's block size.
    resources.write("scene/textures/room_0.astc", astcFile(10, 10, 5, 5, countingBytes(4 * 16)));
    auto room = description("room", engine::TextureFormat::ASTC);
    room.mipmaps = 1;
    EXPECT_EQ(loadTexture("room_1.astc", astcFile(5, 5, 4, 4, countingBytes(4 * 16)), room),
              "Cannot load texture scene/textures/room_1.astc: block size 4x4 differs from level 0's 5x5");
}

// A lossless WebP header (RIFF, VP8L) claiming `width` by `height`, with no image data.
std::vector<std::byte> webpHeader(int width, int height) {
    const unsigned bits = static_cast<unsigned>(width - 1) | static_cast<unsigned>(height - 1) << 14;
    const std::vector<int> bytes = {'R',
                                    'I',
                                    'F',
                                    'F',
                                    18,
                                    0,
                                    0,
                                    0,
                                    'W',
                                    'E',
                                    'B',
                                    'P',
                                    'V',
                                    'P',
                                    '8',
                                    'L',
                                    6,
                                    0,
                                    0,
                                    0,
                                    0x2F,
                                    static_cast<int>(bits & 0xFF),
                                    static_cast<int>((bits >> 8) & 0xFF),
                                    static_cast<int>((bits >> 16) & 0xFF),
                                    static_cast<int>(bits >> 24),
                                    0};
    std::vector<std::byte> file;
    for (int b : bytes) {
        file.push_back(static_cast<std::byte>(b));
    }
    return file;
}

TEST_F(LoaderChecksTest, WebpChecks) {
    const auto good = test::encodeWebp(test::quadrants(16, 16), 16, 16);
    const std::vector<FileCase> cases = {
        {{}, "empty file"},
        {countingBytes(40), "not a WebP image"},
        {webpHeader(8193, 4), "size 8193x4 is outside 1 to 8192 pixels"},
        {webpHeader(8192, 8192), "image data cut short or corrupt"},
        {std::vector<std::byte>(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(good.size() / 2)),
         "image data cut short or corrupt"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(loadTexture("sky.webp", c.file, description("sky", engine::TextureFormat::RGBA8)),
                  "Cannot load texture scene/textures/sky.webp: " + c.reason);
    }
    EXPECT_EQ(loadTexture("sky.webp", good, description("sky", engine::TextureFormat::RGBA8)), "");
}

TEST_F(LoaderChecksTest, HalfFloatTableMustFillTheScenesSize) {
    const auto table = countingBytes(4 * 2 * 8);
    EXPECT_EQ(loadTexture("bird.rgba.fp16", {}, description("bird.rgba.fp16", engine::TextureFormat::RGBA16F, 4, 2)),
              "Cannot load texture scene/textures/bird.rgba.fp16: empty file");
    EXPECT_EQ(loadTexture("bird.rgba.fp16", table, description("bird.rgba.fp16", engine::TextureFormat::RGBA16F, 4, 3)),
              "Cannot load texture scene/textures/bird.rgba.fp16: 64 bytes where the scene's 4x3 needs 96");
    EXPECT_EQ(
        loadTexture("bird.rgba.fp16", table, description("bird.rgba.fp16", engine::TextureFormat::RGBA16F, 16385, 1)),
        "Cannot load texture scene/textures/bird.rgba.fp16: Half-float texture bird.rgba.fp16 needs a size of 1 to "
        "16384 each way, not 16385x1");
    EXPECT_EQ(loadTexture("bird.rgba.fp16", table, description("bird.rgba.fp16", engine::TextureFormat::RGBA16F, 4, 2)),
              "");
}

TEST_F(LoaderChecksTest, SomethingElseInAFilesPlaceIsRefusedWithoutWaiting) {
    const auto folder = resources.path() / "scene" / "textures";
    std::filesystem::create_directories(folder / "dir.astc");
    ASSERT_EQ(::mkfifo((folder / "pipe.astc").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", folder / "zero.astc");
    std::filesystem::create_symlink(folder / "gone", folder / "dangling.astc");
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"dir", "is a directory, not a file"},
        {"pipe", "is a FIFO, not a file"},
        {"zero", "is a device, not a file"},
        {"dangling", "file not found"},
    };
    for (const auto& [name, reason] : cases) {
        EXPECT_EQ(
            stopOf([&] { textures::TextureFiles::load(gl, description(name, engine::TextureFormat::ASTC), folder); }),
            "Cannot load texture scene/textures/" + name + ".astc: " + reason);
    }
}

class ModelChecksTest : public LoaderChecksTest {
protected:
    /// Loads the model "m" of the scene folder "nivalis" from the given files.
    loaders::FullModel load(std::size_t vertexBytes, const std::vector<std::uint16_t>& indices) {
        std::vector<std::byte> indexBytes;
        for (std::uint16_t index : indices) {
            indexBytes.push_back(static_cast<std::byte>(index & 0xFF));
            indexBytes.push_back(static_cast<std::byte>(index >> 8));
        }
        resources.write("nivalis/models/m-strides.bin", countingBytes(vertexBytes));
        resources.write("nivalis/models/m-indices.bin", indexBytes);
        loaders::FullModel model("m", "nivalis");
        model.load(gl, resources.path());
        return model;
    }
};

TEST_F(ModelChecksTest, IndicesAndVertexFileAgainstTheStride) {
    struct Case {
        std::size_t vertexBytes;
        std::vector<std::uint16_t> indices;
        std::string stop;
    };
    const std::vector<Case> cases = {
        {36, {0, 1, 2}, ""},
        {36, {0, 1, 3}, "Cannot create model buffers: nivalis/models/m-indices.bin: index 3 past 3 vertices"},
        {36,
         {65535, 65535, 65535},
         "Cannot create model buffers: nivalis/models/m-indices.bin: index 65535 past 3 vertices"},
        {35,
         {0, 1, 2},
         "Cannot create model buffers: nivalis/models/m-strides.bin: 35 bytes are no whole number of "
         "12-byte vertices"},
        // Draws that read no vertex buffer, and a model without indices, have nothing to check.
        {0, {7, 8, 9}, ""},
        {36, {}, ""},
    };
    for (const auto& c : cases) {
        const loaders::FullModel model = load(c.vertexBytes, c.indices);
        EXPECT_EQ(stopOf([&] { loaders::ModelLayoutCheck::check(model, 12); }), c.stop) << c.vertexBytes;
    }
}

TEST_F(ModelChecksTest, TheTreesDrawsGiveEachModelItsStride) {
    using namespace engine::commands;
    std::vector<loaders::FullModel> models;
    models.push_back(load(48, {0, 1, 3})); // 4 vertices of 12 bytes, or 3 of 16
    auto mesh = std::make_shared<engine::Mesh>("m", nullptr);
    mesh->id = 0;
    auto draw = [&](int stride) {
        auto layout =
            std::make_shared<engine::VertexAttributesDescriptor>(std::vector<engine::VertexAttribute>{}, stride);
        auto state = std::make_shared<DrawMeshState>(nullptr, nullptr, nullptr, engine::CullFace::BACK, layout);
        return std::make_shared<DrawMeshCommand>(mesh, std::vector<std::shared_ptr<UniformValue>>{}, state,
                                                 PrimitiveType::TRIANGLES, 1);
    };
    auto group = std::make_shared<GroupCommand>();
    group->commands = {draw(12)};
    group->enabled = false; // switched off now, maybe on later: checked all the same
    const std::vector<std::shared_ptr<Command>> tree = {group, group};
    EXPECT_EQ(stopOf([&] { loaders::ModelLayoutCheck::run(tree, models); }), "");
    group->commands.push_back(draw(16));
    EXPECT_EQ(stopOf([&] { loaders::ModelLayoutCheck::run(tree, models); }),
              "Cannot create model buffers: nivalis/models/m-indices.bin: index 3 past 3 vertices");
}

} // namespace
} // namespace renderer
