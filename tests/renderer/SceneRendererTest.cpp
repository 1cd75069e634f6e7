#include "renderer/SceneRenderer.h"

#include <gtest/gtest.h>

#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/NoopCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "tests/renderer/support/RendererHarness.h"

namespace renderer {
namespace {

using namespace engine::commands;
using test::GlCall;
using test::RendererHarness;
using test::TableRenderer;

std::shared_ptr<MainPassCommand> mainPass(std::vector<std::shared_ptr<Command>> children) {
    return std::make_shared<MainPassCommand>(true, std::move(children));
}

std::shared_ptr<ClearCommand> clear(ClearCommandClearType type) {
    auto command = std::make_shared<ClearCommand>();
    command->clearType = type;
    return command;
}

std::shared_ptr<ClearColorCommand> clearColor(float r, float g, float b, float a) {
    auto command = std::make_shared<ClearColorCommand>();
    command->color = engine::math::Vec4(r, g, b, a);
    return command;
}

/// The framebuffers that passes were opened on, in order.
std::vector<double> passFramebuffers(const test::RecordingGl& gl) {
    std::vector<double> framebuffers;
    for (const auto& call : gl.calls) {
        if (call.kind == GlCall::bindFramebuffer && call.args[0] == GL_FRAMEBUFFER) {
            framebuffers.push_back(call.args[1]);
        }
    }
    return framebuffers;
}

const test::RecordedCall& firstCall(const test::RecordingGl& gl, GlCall kind) {
    for (const auto& call : gl.calls) {
        if (call.kind == kind) {
            return call;
        }
    }
    throw std::runtime_error("no such call");
}

class SceneRendererTest : public ::testing::Test {
protected:
    RendererHarness h;
};

// ---- Start-up ----------------------------------------------------------------------------

TEST_F(SceneRendererTest, StartUpWritesIdsBeforeInitializeAndSetsLoadedAfter) {
    h.addMesh("a");
    h.addMesh("b");
    h.addShader("Flat");
    h.addShader("NotInLibrary");
    h.addShader("Textured");
    h.addTexture("first");
    auto noLoader = std::make_shared<engine::Texture>();
    noLoader->format = engine::TextureFormat::RGBA32F;
    noLoader->fileName = "never-read";
    h.scene->textures.push_back(noLoader);
    h.addTexture("second");
    h.scene->backendMode = engine::BackendMode::METAL;

    auto renderer = h.makeRenderer();

    EXPECT_EQ(h.scene->initializeCalls, 1);
    EXPECT_FALSE(h.scene->loadedAtInitialize);
    EXPECT_TRUE(h.scene->loaded);
    EXPECT_EQ(h.scene->backendMode, engine::BackendMode::OPENGL);
    EXPECT_EQ(h.scene->meshIdsAtInitialize, (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(h.scene->shaderIdsAtInitialize, (std::vector<std::int32_t>{0, 1, 2}));
    // A format without a loader gets an id and a sampler but no texture, so the samplers run
    // one ahead from there on.
    EXPECT_EQ(h.scene->textureIdsAtInitialize, (std::vector<std::int32_t>{0, 1, 1}));
    EXPECT_EQ(renderer->textures.size(), 2u);
    EXPECT_EQ(renderer->samplers.size(), 3u);
    ASSERT_EQ(renderer->shaders.size(), 3u);
    EXPECT_NE(renderer->shaders[0], nullptr);
    EXPECT_EQ(renderer->shaders[1], nullptr);
    EXPECT_EQ(renderer->shaders[2]->name, "Textured");
    EXPECT_EQ(renderer->models.size(), 2u);
    EXPECT_TRUE(renderer->vignettePipelineStateWithDepth.has_value());
    EXPECT_EQ(h.gl.liveTextures(), 2u);
    EXPECT_EQ(h.gl.liveSamplers(), 3u);
}

TEST_F(SceneRendererTest, StartUpStopsOnWhatItCannotDo) {
    auto stopMessage = [&](auto&& make) -> std::string {
        try {
            make();
        } catch (const Fatal::Stop& stop) {
            return stop.what();
        }
        return "no stop";
    };
    EXPECT_EQ(stopMessage([&] { SceneRenderer bare(h.gl, h.scene, "scene", h.options()); }), "Not implemented");

    h.scene->meshes.push_back(std::make_shared<engine::Mesh>("ghost", nullptr));
    EXPECT_EQ(stopMessage([&] { h.makeRenderer(); }),
              "Cannot create model buffers: File not found in bundle: scene/models/ghost-strides.bin");
    h.scene->meshes.clear();

    auto texture = h.addTexture("present");
    texture->fileName = "absent.rgba.fp16";
    EXPECT_EQ(stopMessage([&] { h.makeRenderer(); }), "Cannot load texture scene/textures/absent.rgba.fp16: file not found");
    h.scene->textures.clear();

    std::filesystem::remove_all(h.resources.path() / "shaders");
    EXPECT_EQ(stopMessage([&] { h.makeRenderer(); }), "Cannot load the default shader library");
}

TEST_F(SceneRendererTest, DestroyingTheRendererReleasesEveryGlObject) {
    auto mesh = h.addMesh("a");
    auto shader = h.addShader("Textured");
    auto state = RendererHarness::state(shader);
    auto texture = h.addTexture("t");
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->commands.push_back(
        RendererHarness::draw(mesh, RendererHarness::state(shader), {RendererHarness::floats(std::vector<float>(16))}));
    h.scene->commands = {blurred,
                         mainPass({RendererHarness::draw(mesh, state,
                                                         {RendererHarness::floats(std::vector<float>(16)),
                                                          RendererHarness::texture(texture)}),
                                   std::make_shared<DrawBlurredCommand>(), std::make_shared<VignetteCommand>()})};
    {
        auto renderer = h.makeRenderer();
        renderer->drawFrame(RendererHarness::target());
        renderer->drawFrame(RendererHarness::target(80, 40));
        EXPECT_GT(h.gl.livePrograms(), 0u);
    }
    EXPECT_EQ(h.gl.liveBuffers(), 0u);
    EXPECT_EQ(h.gl.liveTextures(), 0u);
    EXPECT_EQ(h.gl.liveSamplers(), 0u);
    EXPECT_EQ(h.gl.livePrograms(), 0u);
    EXPECT_EQ(h.gl.liveVertexArrays(), 0u);
    EXPECT_EQ(h.gl.liveFramebuffers(), 0u);
    EXPECT_EQ(h.gl.liveRenderbuffers(), 0u);
}

TEST_F(SceneRendererTest, ASharedTableLoadsOnceChecksEachSceneAndGoesWithItsLastRenderer) {
    auto scene = [&](int meshes) { // one per monitor: the same lists, objects of its own
        h.scene = std::make_shared<test::FakeScene>();
        for (int i = 0; i < meshes; ++i) {
            h.addMesh(std::string(1, static_cast<char>('a' + i)));
        }
        h.addShader("Textured");
        h.addTexture("t");
        return h.scene;
    };
    SceneRenderer::Options options = h.options();
    options.assets = std::make_shared<assets::AssetTable>(h.gl);
    auto first = std::make_unique<test::TableRenderer>(h.gl, scene(2), "scene", options, h.table);
    const std::array loaded{h.gl.liveBuffers(), h.gl.liveTextures(), h.gl.liveSamplers()};
    auto second = std::make_unique<test::TableRenderer>(h.gl, scene(2), "scene", options, h.table);
    EXPECT_EQ((std::array{h.gl.liveBuffers(), h.gl.liveTextures(), h.gl.liveSamplers()}), loaded);
    EXPECT_EQ(h.scene->meshIdsAtInitialize, (std::vector<std::int32_t>{0, 1}));
    EXPECT_THROW(test::TableRenderer(h.gl, scene(1), "scene", options, h.table), Fatal::Stop);
    first.reset();
    options.assets.reset();
    EXPECT_EQ(h.gl.liveSamplers(), 1u);
    second.reset();
    EXPECT_EQ(h.gl.liveBuffers() + h.gl.liveTextures() + h.gl.liveSamplers() + h.gl.liveVertexArrays(), 0u);
}

// ---- The frame ---------------------------------------------------------------------------

TEST_F(SceneRendererTest, OneFrameIsOneWalkWithOnePresent) {
    auto renderer = h.makeRenderer();
    h.gl.clearCalls();
    EXPECT_EQ(renderer->drawFrame(RendererHarness::target()), 0); // empty tree
    EXPECT_EQ(h.gl.count(GlCall::bindFramebuffer), 0u);

    // A main pass inside a main pass is a plain group of the outer one.
    h.scene->commands = {mainPass({mainPass({})})};
    const GLuint window = h.gl.createFramebuffer();
    EXPECT_EQ(renderer->drawFrame(RendererHarness::target(64, 32, window)), 1);
    EXPECT_EQ(passFramebuffers(h.gl).size(), 1u);
    const auto blits = h.gl.log({GlCall::blitFramebuffer});
    ASSERT_EQ(blits.size(), 1u);
    // Whole 64 x 32 target, colour only, from the 4-sample framebuffer into the window's.
    const auto& blit = firstCall(h.gl, GlCall::blitFramebuffer);
    EXPECT_EQ(std::vector<double>(blit.args.begin(), blit.args.begin() + 10),
              (std::vector<double>{0, 0, 64, 32, 0, 0, 64, 32, GL_COLOR_BUFFER_BIT, GL_NEAREST}));
    EXPECT_EQ(blit.args[10], renderer->framebufferMsaa);
    EXPECT_EQ(blit.args[11], window);

    // Nothing to draw on: the main pass is dropped, the scene still advances.
    const std::size_t times = h.scene->times.size();
    EXPECT_EQ(renderer->drawFrame(RendererHarness::target(0, 0)), 0);
    EXPECT_EQ(h.scene->times.size(), times + 1);
}

TEST_F(SceneRendererTest, QualityChoosesTheMainPassSizeSamplesAndScaling) {
    const char* llvmpipe = "llvmpipe (LLVM 15.0.6, 256 bits)";
    const struct {
        RenderQuality quality;
        const char* glRenderer;
        double width, height;
        GLsizei passWidth, passHeight;
        int samples;
    } cases[] = {
        {RenderQuality::HIGH, llvmpipe, 1920, 1080, 1920, 1080, 4},
        {RenderQuality::LOW, "NVIDIA GeForce RTX 3060/PCIe/SSE2", 1920, 1080, 640, 360, 1},
        {RenderQuality::LOW, llvmpipe, 1366, 767, 455, 256, 1}, // sizes round, a pixel at least
        {RenderQuality::LOW, llvmpipe, 1, 1, 1, 1, 1},
        {RenderQuality::AUTO, llvmpipe, 1920, 1080, 640, 360, 1},
        {RenderQuality::AUTO, "softpipe", 1920, 1080, 640, 360, 1},
        {RenderQuality::AUTO, "Mesa Intel(R) UHD Graphics 620 (KBL GT2)", 1920, 1080, 1920, 1080, 4},
    };
    h.scene->commands = {mainPass({})};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(toString(c.quality)) + " on " + c.glRenderer);
        h.gl.glRenderer = c.glRenderer;
        auto options = h.options();
        options.quality = c.quality;
        TableRenderer renderer(h.gl, h.scene, "scene", options, h.table);
        h.gl.clearCalls();
        ASSERT_EQ(renderer.drawFrame(RendererHarness::target(c.width, c.height, 0)), 1);
        EXPECT_EQ(renderer.textureMsaaWidth, c.passWidth);
        EXPECT_EQ(renderer.textureMsaaHeight, c.passHeight);
        EXPECT_EQ(renderer.sampleCount, c.samples);
        EXPECT_EQ(h.scene->viewportUpdates.back(), std::pair(c.passWidth, c.passHeight));
        // The resolve fills the whole drawable, filtered where it scales.
        const bool scaled = c.passWidth != GLsizei(c.width) || c.passHeight != GLsizei(c.height);
        const auto& blit = firstCall(h.gl, GlCall::blitFramebuffer);
        EXPECT_EQ(std::vector<double>(blit.args.begin(), blit.args.begin() + 10),
                  (std::vector<double>{0, 0, double(c.passWidth), double(c.passHeight), 0, 0, c.width, c.height,
                                       GL_COLOR_BUFFER_BIT, double(scaled ? GL_LINEAR : GL_NEAREST)}));
    }
}

TEST_F(SceneRendererTest, AQualityChangeTakesTheNextFrameAndLeaksNothing) {
    h.scene->commands = {mainPass({})};
    auto renderer = h.makeRenderer();
    renderer->drawFrame(RendererHarness::target(640, 360));
    const auto live = std::pair(h.gl.liveRenderbuffers(), h.gl.liveFramebuffers());
    for (RenderQuality quality : {RenderQuality::LOW, RenderQuality::HIGH}) {
        renderer->setQuality(quality);
        renderer->drawFrame(RendererHarness::target(640, 360));
        EXPECT_EQ(renderer->sampleCount, quality == RenderQuality::LOW ? 1 : 4);
        EXPECT_EQ(std::pair(h.gl.liveRenderbuffers(), h.gl.liveFramebuffers()), live);
    }
}

TEST_F(SceneRendererTest, PassesRunInTreeOrderAtAnyDepthOfPlainGroups) {
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->id = 3;
    h.scene->commands = {std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{blurred}),
                         std::make_shared<GroupCommand>(
                             true, std::vector<std::shared_ptr<Command>>{std::make_shared<GroupCommand>(
                                       true, std::vector<std::shared_ptr<Command>>{mainPass({})})})};
    auto renderer = h.makeRenderer();
    h.gl.clearCalls();
    EXPECT_EQ(renderer->drawFrame(RendererHarness::target()), 1);
    const auto& chain = *renderer->blurredPassesCache.at(3);
    EXPECT_EQ(passFramebuffers(h.gl),
              (std::vector<double>{double(chain.framebufferRTT), double(chain.framebufferBlurPass2),
                                   double(chain.framebufferBlurPass1), double(renderer->framebufferMsaa)}));
}

TEST_F(SceneRendererTest, ADisabledGroupIsHiddenFromAllThreeWalks) {
    auto mesh = h.addMesh("a");
    auto state = RendererHarness::state(h.addShader("Flat"));
    auto blurred = std::make_shared<BlurredPassCommand>();
    auto hidden = std::make_shared<GroupCommand>(
        false, std::vector<std::shared_ptr<Command>>{
                   blurred, clearColor(0, 1, 0, 1), clear(ClearCommandClearType::COLOR_AND_DEPTH),
                   RendererHarness::draw(mesh, state, {RendererHarness::floats(std::vector<float>(16))})});
    h.scene->commands = {hidden, mainPass({hidden})};
    auto options = h.options();
    options.viewColorLoadAction = gpu::LoadAction::DONT_CARE;
    options.viewDepthLoadAction = gpu::LoadAction::DONT_CARE;
    test::TableRenderer renderer(h.gl, h.scene, "scene", options, h.table);
    h.gl.clearCalls();
    renderer.drawFrame(RendererHarness::target());
    EXPECT_TRUE(renderer.blurredPassesCache.empty());
    EXPECT_EQ(h.gl.count(GlCall::clear), 0u);
    EXPECT_TRUE(h.gl.draws.empty());
    EXPECT_EQ(renderer.clearColor, (std::array<double, 4>{1, 0, 0, 1}));
}

// ---- Clears ------------------------------------------------------------------------------

TEST_F(SceneRendererTest, LoadActionsAreOnlyRaisedToClear) {
    auto renderer = h.makeRenderer();
    gpu::RenderPassDescriptor descriptor;
    descriptor.depthAttachment.present = true;

    renderer->prepareCommands({clear(ClearCommandClearType::DEPTH)}, descriptor);
    EXPECT_EQ(descriptor.colorAttachment.loadAction, gpu::LoadAction::DONT_CARE);
    EXPECT_EQ(descriptor.depthAttachment.loadAction, gpu::LoadAction::CLEAR);

    renderer->prepareCommands({clear(ClearCommandClearType::COLOR)}, descriptor);
    EXPECT_EQ(descriptor.colorAttachment.loadAction, gpu::LoadAction::CLEAR);
    EXPECT_EQ(descriptor.depthAttachment.loadAction, gpu::LoadAction::CLEAR);

    descriptor.colorAttachment.loadAction = gpu::LoadAction::LOAD;
    renderer->prepareCommands({clearColor(1, 1, 1, 1)}, descriptor);
    EXPECT_EQ(descriptor.colorAttachment.loadAction, gpu::LoadAction::LOAD);
    EXPECT_EQ(descriptor.colorAttachment.clearColor, (std::array<double, 4>{1, 1, 1, 1}));
}

TEST_F(SceneRendererTest, AClearColourStaysButOnlyItsOwnPassGetsIt) {
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->commands = {clearColor(0, 1, 0, 1)};
    h.scene->commands = {blurred, mainPass({clear(ClearCommandClearType::COLOR_AND_DEPTH)})};
    auto renderer = h.makeRenderer();
    h.gl.clearCalls();
    renderer->drawFrame(RendererHarness::target());
    EXPECT_EQ(renderer->clearColor, (std::array<double, 4>{0, 1, 0, 1}));
    // The chain's pass clears green (its descriptor keeps it), the main pass with the view's
    // black, and the three passes of the chain clear transparent black where nothing says else.
    EXPECT_EQ(h.gl.log({GlCall::clearColor}),
              (std::vector<std::string>{"clearColor(0, 1, 0, 1)", "clearColor(0, 0, 0, 0)", "clearColor(0, 0, 0, 0)",
                                        "clearColor(0, 0, 0, 1)"}));
    EXPECT_EQ(renderer->blurredPassesCache.at(0)->renderPassDescriptorRTT.colorAttachment.clearColor,
              (std::array<double, 4>{0, 1, 0, 1}));
}

} // namespace
} // namespace renderer
