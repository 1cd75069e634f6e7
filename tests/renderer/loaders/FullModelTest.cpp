#include "renderer/loaders/FullModel.h"

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
    const loaders::FullModel model(GetParam().name, "nivalis");
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
    loaders::FullModel model("sky", "nivalis");
    model.load(gl, resources.path());

    ASSERT_NE(model.vertexBuffer(), 0u);
    ASSERT_NE(model.indexBuffer(), 0u);
    EXPECT_EQ(gl.bufferData(model.vertexBuffer()), vertices);
    EXPECT_EQ(gl.bufferData(model.indexBuffer()), indices);
    EXPECT_EQ(model.indexCount(), 6);
    EXPECT_EQ(model.vertexBufferLength(), 24u);
    EXPECT_EQ(gl.log({GlCall::createBuffer}),
              (std::vector<std::string>{"createBuffer(34962, 24, " + std::to_string(model.vertexBuffer()) + ")",
                                        "createBuffer(34963, 12, " + std::to_string(model.indexBuffer()) + ")"}));
}

TEST_F(FullModelLoadTest, ReadReportsTheMissingFileByItsName) {
    resources.write("r/models/m-strides.bin", countingBytes(8));
    try {
        loaders::FullModel("m", "r").read(resources.path());
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "File not found in bundle: r/models/m-indices.bin");
    }
    // A folder where the file should be is no file either.
    std::filesystem::create_directories(resources.path() / "r/models/d-strides.bin");
    EXPECT_THROW(loaders::FullModel("d", "r").read(resources.path()), std::runtime_error);
}

using FullModelDeathTest = FullModelLoadTest;

TEST_F(FullModelDeathTest, MissingFileStopsTheProcessWithTheModelMessage) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    loaders::FullModel model("a", "nivalis");
    EXPECT_EXIT(model.load(gl, resources.path()), ::testing::ExitedWithCode(1),
                "^Fatal error: Cannot create model buffers: File not found in bundle: nivalis/models/a-strides.bin\n$");
}

} // namespace
} // namespace renderer
