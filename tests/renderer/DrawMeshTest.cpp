#include <gtest/gtest.h>

#include "engine/commands/MainPassCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "renderer/SceneRenderer.h"
#include "tests/renderer/support/RendererHarness.h"

namespace renderer {
namespace {

using namespace engine::commands;
using test::GlCall;
using test::RendererHarness;

/// A renderer on the fake with an open main pass, for driving drawMesh directly.
class DrawMeshTest : public ::testing::Test {
protected:
    void SetUp() override {
        mesh = h.addMesh("a", 2);
        flat = h.addShader("Flat");
        h.addShader("NotInLibrary");
        renderer = h.makeRenderer();
        openPass();
    }

    void openPass() {
        gpu::RenderPassDescriptor descriptor;
        descriptor.width = 4;
        descriptor.height = 4;
        renderer->encoder.begin(descriptor, "test");
        h.gl.clearCalls();
    }

    std::shared_ptr<DrawMeshCommand> flatDraw(const std::shared_ptr<DrawMeshState>& state) {
        return RendererHarness::draw(mesh, state,
                                     {RendererHarness::floats(std::vector<float>(16, 1.0f)),
                                      RendererHarness::floats({1, 0, 0, 1})});
    }

    void draw(const std::shared_ptr<DrawMeshCommand>& command) { renderer->drawMesh(*command, renderer->encoder); }

    RendererHarness h;
    std::shared_ptr<engine::Mesh> mesh;
    std::shared_ptr<engine::Shader> flat;
    std::unique_ptr<test::TableRenderer> renderer;
};

TEST_F(DrawMeshTest, PipelinesAreCachedByTheIdentityOfTheState) {
    auto shared = RendererHarness::state(flat);
    auto equal = RendererHarness::state(flat); // equal fields, another object
    draw(flatDraw(shared));
    draw(flatDraw(shared));
    // One use to tie the samplers when the program is linked, one for the pipeline.
    EXPECT_EQ(renderer->pipelinesCache.size(), 1u);
    EXPECT_EQ(h.gl.count(GlCall::useProgram), 2u);
    draw(flatDraw(equal));
    EXPECT_EQ(renderer->pipelinesCache.size(), 2u);
    // Both pipelines run the one program of the shader.
    EXPECT_EQ(h.gl.count(GlCall::createProgram), 1u);
    EXPECT_EQ(h.gl.count(GlCall::createVertexArray), 2u);
    EXPECT_EQ(renderer->activeState, equal);
}

TEST_F(DrawMeshTest, StateChangesAreFilteredButVertexBuffersAndUniformsAreNot) {
    auto a = RendererHarness::state(flat);
    auto b = RendererHarness::state(flat);
    b->culling = engine::CullFace::DISABLED;
    draw(flatDraw(a));
    draw(flatDraw(a));
    draw(flatDraw(a));
    draw(flatDraw(b));
    EXPECT_EQ(h.gl.count(GlCall::useProgram), 3u); // linking, a, then b
    EXPECT_EQ(h.gl.count(GlCall::bindVertexArray), 4u); // two at creation, two on the encoder
    EXPECT_EQ(h.gl.count(GlCall::depthFunc), 2u);
    EXPECT_EQ(h.gl.count(GlCall::cullFace), 1u);        // b disables culling instead
    EXPECT_EQ(h.gl.log({GlCall::disable}).back(), "disable(2884)"); // GL_CULL_FACE
    EXPECT_EQ(h.gl.count(GlCall::vertexAttribPointer), 4u);
    EXPECT_EQ(h.gl.count(GlCall::uniformFloats), 8u);
    // Every draw had its state: program, depth test with writes, its cull mode.
    ASSERT_EQ(h.gl.draws.size(), 4u);
    EXPECT_EQ(h.gl.draws[2].depthFunc, GLenum(GL_LESS));
    EXPECT_TRUE(h.gl.draws[2].depthMask);
    EXPECT_TRUE(h.gl.draws[2].cullFace);
    EXPECT_FALSE(h.gl.draws[3].cullFace);
}

TEST_F(DrawMeshTest, TheDepthCallIsSkippedOnlyForTheActiveDepthState) {
    auto a = RendererHarness::state(flat);
    auto b = RendererHarness::state(flat);
    draw(flatDraw(a));
    draw(flatDraw(b));
    EXPECT_EQ(h.gl.count(GlCall::depthFunc), 2u); // each entry owns its depth state
    // Pretend that a's depth state stands while b's pipeline does: going back to a sets the
    // pipeline and the cull mode but not the depth state.
    renderer->activeDepthStencilState = renderer->pipelinesCache.at(a).depthState.get();
    h.gl.clearCalls();
    draw(flatDraw(a));
    EXPECT_EQ(h.gl.count(GlCall::useProgram), 1u);
    EXPECT_EQ(h.gl.count(GlCall::cullFace), 1u);
    EXPECT_EQ(h.gl.count(GlCall::depthFunc), 0u);
    draw(flatDraw(b));
    EXPECT_EQ(h.gl.count(GlCall::depthFunc), 1u);
}

TEST_F(DrawMeshTest, AShaderTheLibraryLacksDrawsNothingAndChangesNothing) {
    auto known = RendererHarness::state(flat);
    draw(flatDraw(known));
    h.gl.clearCalls();
    auto missing = RendererHarness::state(h.scene->shaders[1]);
    draw(RendererHarness::draw(mesh, missing));
    EXPECT_TRUE(h.gl.calls.empty());
    EXPECT_EQ(renderer->activeState, known);
    EXPECT_EQ(renderer->pipelinesCache.count(missing), 0u);
}

TEST_F(DrawMeshTest, TheWholeIndexBufferIsDrawnWithThePrimitiveOfTheCommand) {
    auto command = flatDraw(RendererHarness::state(flat));
    command->primitiveType = PrimitiveType::POINTS;
    command->primitiveCount = 0;
    draw(command);
    command->primitiveType = PrimitiveType::TRIANGLE_STRIP;
    draw(command);
    EXPECT_EQ(h.gl.log({GlCall::drawElements}),
              (std::vector<std::string>{"drawElements(0, 6, 5123, 0)", "drawElements(5, 6, 5123, 0)"}));
    // The mesh's buffer feeds the FLOAT3 attribute at location 0, stride 12.
    EXPECT_EQ(h.gl.draws[0].attributes.at(0),
              (std::array<double, 6>{double(renderer->models[0].vertexBuffer()), 3, GL_FLOAT, 0, 12, 0}));
    EXPECT_EQ(h.gl.draws[0].elementBuffer, renderer->models[0].indexBuffer());
}

} // namespace
} // namespace renderer
