// The fake reports the misuse that the renderer's tests rely on it to catch.
#include "tests/renderer/support/RecordingGl.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace renderer::test {
namespace {

class RecordingFakeTest : public ::testing::Test {
protected:
    GLuint program(const std::string& declarations) {
        std::string log;
        return gl.createProgram(declarations, "void main() {}\n", log);
    }
    RecordingGl gl;
};

TEST_F(RecordingFakeTest, UniformsMustFitTheirDeclarations) {
    const GLuint p = program("uniform mat4 uVertex1;\nuniform float uVertex2[4];\nuniform ivec2 uVertex3;\n");
    gl.useProgram(p);
    const float values[16] = {};
    const GLint ints[4] = {};
    gl.uniformFloats(gl.uniformLocation(p, "uVertex1"), 16, 1, values);
    gl.uniformFloats(gl.uniformLocation(p, "uVertex2"), 1, 9, values); // arrays take any count
    gl.uniformInts(gl.uniformLocation(p, "uVertex3"), 2, 1, ints);
    gl.uniformFloats(gl.uniformLocation(p, "uAbsent"), 4, 1, values); // -1 is ignored
    EXPECT_EQ(gl.uniformValue(p, "uVertex3"), (std::vector<double>{0, 0}));
    EXPECT_NONFATAL_FAILURE(gl.uniformFloats(gl.uniformLocation(p, "uVertex1"), 4, 1, values), "does not fit");
    EXPECT_NONFATAL_FAILURE(gl.uniformInts(gl.uniformLocation(p, "uVertex1"), 1, 1, ints), "does not fit");
    EXPECT_NONFATAL_FAILURE(gl.uniformInts(gl.uniformLocation(p, "uVertex3"), 2, 2, ints), "does not fit");
    gl.useProgram(0);
    EXPECT_NONFATAL_FAILURE(gl.uniformFloats(0, 16, 1, values), "no program");
}

TEST_F(RecordingFakeTest, DrawsNeedAProgramAVertexArrayAndEnoughIndices) {
    const GLuint vao = gl.createVertexArray();
    gl.bindVertexArray(vao);
    EXPECT_NONFATAL_FAILURE(gl.drawArrays(GL_TRIANGLES, 0, 3), "no program");
    gl.bindVertexArray(0);
    const GLuint p = program("void f();\n");
    gl.useProgram(p);
    EXPECT_NONFATAL_FAILURE(gl.drawArrays(GL_TRIANGLES, 0, 3), "no vertex array");
    gl.bindVertexArray(vao);
    EXPECT_NONFATAL_FAILURE(gl.drawElements(GL_TRIANGLES, 3, GL_UNSIGNED_SHORT, 0), "no element array buffer");
    const std::byte indices[6] = {};
    gl.bindBuffer(GL_ELEMENT_ARRAY_BUFFER, gl.createBuffer(GL_ELEMENT_ARRAY_BUFFER, indices));
    gl.drawElements(GL_TRIANGLES, 3, GL_UNSIGNED_SHORT, 0);
    EXPECT_NONFATAL_FAILURE(gl.drawElements(GL_TRIANGLES, 4, GL_UNSIGNED_SHORT, 0), "past the end");
    gl.enableVertexAttribArray(0);
    EXPECT_NONFATAL_FAILURE(gl.drawArrays(GL_TRIANGLES, 0, 3), "enabled but not pointed");
}

TEST_F(RecordingFakeTest, NamesAreCheckedAndCounted) {
    const GLuint texture = gl.createTexture();
    const GLuint sampler = gl.createSampler();
    EXPECT_EQ(gl.liveTextures(), 1u);
    EXPECT_NONFATAL_FAILURE(gl.bindTexture(0, sampler), "unknown texture");
    gl.deleteTexture(texture);
    EXPECT_NONFATAL_FAILURE(gl.deleteTexture(texture), "unknown texture");
    EXPECT_EQ(gl.liveTextures(), 0u);
    EXPECT_NONFATAL_FAILURE(gl.bindFramebuffer(GL_FRAMEBUFFER, 99), "unknown framebuffer");
    gl.depthMask(false);
    EXPECT_NONFATAL_FAILURE(gl.clear(GL_DEPTH_BUFFER_BIT), "depth writes are off");
    EXPECT_EQ(gl.count(GlCall::CreateSampler), 1u);
    EXPECT_EQ(gl.log({GlCall::DepthMask}), (std::vector<std::string>{"depthMask(0)"}));
}

TEST_F(RecordingFakeTest, ProgramsFailOnEmptyOrErroneousSources) {
    std::string log;
    EXPECT_EQ(gl.createProgram("", "x", log), 0u);
    EXPECT_EQ(gl.createProgram("#error broken\n", "x", log), 0u);
    EXPECT_EQ(log, "compile error");
    EXPECT_EQ(gl.livePrograms(), 0u);
}

} // namespace
} // namespace renderer::test
