#include "renderer/FullModel.h"

#include <gtest/gtest.h>

#include "tests/renderer/loaders/LoaderFiles.h"
#include "tests/renderer/support/RecordingGl.h"

namespace renderer {
namespace {

using test::countingBytes;
using test::GlCall;
using test::RecordingGl;
using test::TempDir;

struct NameCase {
    const char* name;
    const char* filename;
    const char* path;
};

class FullModelNameTest : public ::testing::TestWithParam<NameCase> {};

TEST_P(FullModelNameTest, SplitsTheNameIntoFolderAndFile) {
    const FullModel model(GetParam().name, "nivalis");
    EXPECT_EQ(model.filename(), GetParam().filename);
    EXPECT_EQ(model.path(), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(Names, FullModelNameTest,
                         ::testing::Values(
                             // A bare name lives in "models"; a folder of its own is not put under it.
                             NameCase{"a", "a", "models"}, NameCase{"a/b", "b", "a"},
                             NameCase{"models/vignette-round-vntao", "vignette-round-vntao", "models"},
                             NameCase{"seal/idle/animal", "animal", "seal/idle"},
                             NameCase{"mountains_distant1", "mountains_distant1", "models"},
                             // Escapes are decoded; query and fragment are not part of the path.
                             NameCase{"sky%2Dday", "sky-day", "models"}, NameCase{"x/y?z#w", "y", "x"},
                             // No valid URL: an empty file name in "models".
                             NameCase{"", "", "models"}, NameCase{"two words", "", "models"},
                             NameCase{"broken%zz", "", "models"}, NameCase{"a\\b", "", "models"}));

TEST(FullModelTest, FileNamesJoinFolderFileAndSuffix) {
    const FullModel model("a/b", "root");
    EXPECT_EQ(model.verticesFileName(), "a/b-strides.bin");
    EXPECT_EQ(model.indicesFileName(), "a/b-indices.bin");
    EXPECT_EQ(FullModel("two words", "").verticesFileName(), "models/-strides.bin");
}

class FullModelLoadTest : public ::testing::Test {
protected:
    TempDir resources;
    RecordingGl gl;
};

TEST_F(FullModelLoadTest, UploadsBothFilesAsTheyStand) {
    const auto vertices = countingBytes(24, 7);
    const auto indices = countingBytes(12, 100);
    resources.write("nivalis/models/sky-strides.bin", vertices);
    resources.write("nivalis/models/sky-indices.bin", indices);
    FullModel model("sky", "nivalis");
    model.load(gl, resources.path());

    ASSERT_NE(model.vertexBuffer(), 0u);
    ASSERT_NE(model.indexBuffer(), 0u);
    EXPECT_EQ(gl.bufferData(model.vertexBuffer()), vertices);
    EXPECT_EQ(gl.bufferData(model.indexBuffer()), indices);
    EXPECT_EQ(model.indexCount(), 6);
    EXPECT_EQ(model.vertexBufferLength(), 24u);
    EXPECT_EQ(gl.log({GlCall::CreateBuffer}),
              (std::vector<std::string>{"createBuffer(34962, 24, " + std::to_string(model.vertexBuffer()) + ")",
                                        "createBuffer(34963, 12, " + std::to_string(model.indexBuffer()) + ")"}));
}

TEST_F(FullModelLoadTest, SharedModelsWithoutSceneFolderLieAtTheTopOfTheResources) {
    resources.write("models/vignette-round-vntao-strides.bin", countingBytes(16));
    resources.write("models/vignette-round-vntao-indices.bin", countingBytes(6));
    FullModel model("models/vignette-round-vntao", "");
    model.load(gl, resources.path());
    EXPECT_EQ(model.indexCount(), 3);
}

TEST_F(FullModelLoadTest, OddIndexFileDrawsHalfItsLengthRoundedDown) {
    resources.write("r/models/m-strides.bin", countingBytes(8));
    resources.write("r/models/m-indices.bin", countingBytes(7));
    FullModel model("m", "r");
    model.load(gl, resources.path());
    EXPECT_EQ(model.indexBufferLength(), 7u);
    EXPECT_EQ(model.indexCount(), 3);
}

TEST_F(FullModelLoadTest, EmptyFilesGiveNoBufferAndNoError) {
    resources.write("r/models/bird1-strides.bin", {});
    resources.write("r/models/bird1-indices.bin", countingBytes(6));
    FullModel bird("bird1", "r");
    bird.load(gl, resources.path());
    EXPECT_EQ(bird.vertexBuffer(), 0u);
    EXPECT_NE(bird.indexBuffer(), 0u);
    EXPECT_EQ(gl.count(GlCall::CreateBuffer), 1u);

    resources.write("r/models/none-strides.bin", countingBytes(4));
    resources.write("r/models/none-indices.bin", {});
    FullModel none("none", "r");
    none.load(gl, resources.path());
    EXPECT_EQ(none.indexBuffer(), 0u);
    EXPECT_EQ(none.indexCount(), 0);
}

TEST_F(FullModelLoadTest, LoadingTwiceReplacesBothBuffers) {
    resources.write("r/models/m-strides.bin", countingBytes(8));
    resources.write("r/models/m-indices.bin", countingBytes(4));
    FullModel model("m", "r");
    model.load(gl, resources.path());
    const GLuint firstVertices = model.vertexBuffer();
    const GLuint firstIndices = model.indexBuffer();

    resources.write("r/models/m-indices.bin", countingBytes(10));
    model.load(gl, resources.path());
    EXPECT_NE(model.vertexBuffer(), firstVertices);
    EXPECT_NE(model.indexBuffer(), firstIndices);
    EXPECT_EQ(model.indexCount(), 5);
    EXPECT_EQ(gl.liveBuffers(), 2u);
    EXPECT_EQ(gl.count(GlCall::DeleteBuffer), 2u);
}

TEST_F(FullModelLoadTest, ReadReportsTheMissingFileByItsName) {
    resources.write("r/models/m-strides.bin", countingBytes(8));
    try {
        FullModel("m", "r").read(resources.path());
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "File not found in bundle: r/models/m-indices.bin");
    }
    // A folder where the file should be is no file either.
    std::filesystem::create_directories(resources.path() / "r/models/d-strides.bin");
    EXPECT_THROW(FullModel("d", "r").read(resources.path()), std::runtime_error);
}

using FullModelDeathTest = FullModelLoadTest;

TEST_F(FullModelDeathTest, MissingFileStopsTheProcessWithTheModelMessage) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    FullModel model("a", "nivalis");
    EXPECT_EXIT(model.load(gl, resources.path()), ::testing::ExitedWithCode(1),
                "^Fatal error: Cannot create model buffers: File not found in bundle: nivalis/models/a-strides.bin\n$");
}

} // namespace
} // namespace renderer
