#include "renderer/SceneRenderer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>

#include "renderer/Fatal.h"
#include "renderer/gpu/ProgramBinaryCache.h"
#include "renderer/loaders/HalfFloat.h"
#include "renderer/SceneUtils.h"
#include "renderer/passes/VignetteUtils.h"
#include "renderer/StartupTrace.h"

namespace renderer {

using engine::commands::BlurredPassCommand;
using engine::commands::BlurSize;
using engine::commands::Command;
using engine::commands::DrawBlurredCommand;
using engine::commands::DrawMeshCommand;
using engine::commands::MainPassCommand;
using engine::commands::VignetteCommand;

namespace {

/// The drawable's size as 32-bit integers, truncated; nothing when either lies outside.
std::optional<std::pair<std::int32_t, std::int32_t>> drawableSize(double width, double height) {
    auto inRange = [](double value) { return value >= -2147483648.0 && value <= 2147483647.0; };
    if (!inRange(width) || !inRange(height)) {
        return std::nullopt;
    }
    return std::pair{static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
}

} // namespace

SceneRenderer::SceneRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                             Options options_)
    : cachingGl_(gpu::ProgramBinaryCache::wrap(gl_, options_.programCache)), gl(cachingGl_ ? *cachingGl_ : gl_),
      scene(std::move(scene_)), resourcesRoot(std::move(resourcesRoot_)), options(std::move(options_)), encoder(gl_) {
    start();
}

SceneRenderer::SceneRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                             Options options_, const uniforms::ShaderUniforms& uniforms)
    : cachingGl_(gpu::ProgramBinaryCache::wrap(gl_, options_.programCache)), gl(cachingGl_ ? *cachingGl_ : gl_),
      scene(std::move(scene_)), resourcesRoot(std::move(resourcesRoot_)), options(std::move(options_)), encoder(gl_),
      uniforms_(&uniforms) {
    start();
}

SceneRenderer::~SceneRenderer() = default;

void SceneRenderer::start() {
    if (!scene) {
        Fatal::stop("No scene to render");
    }
    scene->backendMode = engine::BackendMode::OPENGL;
    if (gl.version() < 33) {
        Fatal::stop("GPU not available");
    }
    softwareRasteriser = isSoftwareRasteriser(gl.rendererName());
    StartupTrace::mark("renderer started");
    loadShaders();
    StartupTrace::mark("shader sources read");
    loadModels();
    StartupTrace::mark("models read and uploaded");
    loadTextures();
    StartupTrace::mark("textures decoded and uploaded");
    loadVignette();
    StartupTrace::mark("vignette read, its program linked");
    scene->initialize();
    scene->loaded = true;
    StartupTrace::mark("scene initialised");
}

const uniforms::ShaderUniforms& SceneRenderer::shaderUniforms() const { Fatal::stop("Not implemented"); }

double SceneRenderer::now() const {
    if (options.clock) {
        return options.clock();
    }
    using Seconds = std::chrono::duration<double>;
    const double steady =
        std::chrono::duration_cast<Seconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
    // $NIVALIS_CLOCK_RATE (a number above 0) runs the scene that many times faster from the
    // process's first reading on, so that soak benchmarks go through an hour of the scene's
    // timers and camera cuts in minutes.
    static const double rate = [] {
        const char* text = std::getenv("NIVALIS_CLOCK_RATE");
        const double value = text != nullptr ? std::strtod(text, nullptr) : 1.0;
        return std::isfinite(value) && value > 0.0 ? value : 1.0;
    }();
    static const double start = steady;
    return start + (steady - start) * rate;
}

// ---- Start-up ------------------------------------------------------------------------------

void SceneRenderer::loadShaders() {
    shadersUniforms = uniforms_ != nullptr ? uniforms_ : &shaderUniforms();
    assets.loadShaders(*scene, options.resources);
}

void SceneRenderer::loadModels() { assets.loadModels(*scene, resourcesRoot, options.resources); }

void SceneRenderer::loadTextures() {
    assets.loadTextures(*scene, options.resources / resourcesRoot / "textures", options.astcDecoding);
}

void SceneRenderer::loadVignette() {
    assets.loadVignette(options.resources);
    if (assets.vignetteFunctions != nullptr) {
        vignettePipelineStateWithDepth = passes::VignetteUtils::makePipeline(gl, *assets.vignetteFunctions);
    }
}

// ---- The frame -----------------------------------------------------------------------------

std::optional<std::pair<GLsizei, GLsizei>> SceneRenderer::mainPassSize(double width, double height) const {
    const auto size = drawableSize(width, height);
    if (!size || size->first < 1 || size->second < 1) {
        return std::nullopt;
    }
    if (effectiveQuality() != RenderQuality::LOW) {
        return size;
    }
    auto scaled = [](std::int32_t length) {
        return std::max<GLsizei>(1, static_cast<GLsizei>(std::lround(length * LOW_SCALE)));
    };
    return std::pair{scaled(size->first), scaled(size->second)};
}

int SceneRenderer::drawFrame(const FrameTarget& target) {
    StartupTrace::mark("first frame begun");
    // The scene sees the size it is drawn at; a drawable of no pixels is passed on as it is.
    auto size = mainPassSize(target.width, target.height);
    if (!size) {
        size = drawableSize(target.width, target.height);
    }
    if (size) {
        if (scene->viewportWidth != size->first || scene->viewportHeight != size->second) {
            scene->updateViewportSize(size->first, size->second);
        }
    }
    scene->updateTimers(now() * 1000.0);
    presents_ = 0;
    processCommands(scene->getCommands(), target);
    if (StartupTrace::active()) {
        // Only while tracing: the frame's GPU work apart from the host's swap.
        gl.finish();
        StartupTrace::mark("first frame rendered, its programs linked");
    }
    return presents_;
}

void SceneRenderer::processCommands(const engine::Scene::CommandList& commands, const FrameTarget& target) {
    passWalk.process(commands, target);
}

void SceneRenderer::prepareCommands(const engine::Scene::CommandList& commands,
                                    gpu::RenderPassDescriptor& descriptor) {
    passWalk.prepare(commands, descriptor);
}

void SceneRenderer::encodeCommands(const engine::Scene::CommandList& commands,
                                   gpu::RenderPassDescriptor& descriptor, gpu::RenderEncoder& encoder_) {
    passWalk.encode(commands, descriptor, encoder_);
}

void SceneRenderer::processMainPass(const MainPassCommand& pass, const FrameTarget& target) {
    const auto output = drawableSize(target.width, target.height);
    const auto size = mainPassSize(target.width, target.height);
    if (!output || !size) {
        return; // nothing to draw on: the pass is dropped for this frame
    }
    // The view's descriptor, as the host gives it for each frame.
    gpu::RenderPassDescriptor descriptor;
    descriptor.width = size->first;
    descriptor.height = size->second;
    descriptor.colorAttachment.loadAction = options.viewColorLoadAction;
    descriptor.colorAttachment.clearColor = options.viewClearColor;
    descriptor.colorAttachment.resolveFramebuffer = target.framebuffer;
    descriptor.colorAttachment.resolveWidth = output->first;
    descriptor.colorAttachment.resolveHeight = output->second;
    descriptor.depthAttachment.present = true;
    descriptor.depthAttachment.loadAction = options.viewDepthLoadAction;
    descriptor.depthAttachment.clearDepth = options.viewClearDepth;
    descriptor.depthAttachment.storeAction = gpu::StoreAction::DONT_CARE;
    const bool low = effectiveQuality() == RenderQuality::LOW;
    multisampledTarget.prepare(descriptor, size->first, size->second, low ? 1 : SceneUtils::SAMPLE_COUNT);

    prepareCommands(pass.commands, descriptor);
    descriptor.colorAttachment.storeAction = gpu::StoreAction::MULTISAMPLE_RESOLVE;
    encoder.begin(descriptor, MAIN_PASS_LABEL);
    stateFilter.forgetDepthAndSlots();
    encoder.setFrontFacingWinding(gpu::Winding::COUNTER_CLOCKWISE);
    encodeCommands(pass.commands, descriptor, encoder);
    encoder.end();
    ++presents_;
}

void SceneRenderer::processBlurredPass(const BlurredPassCommand& pass) {
    auto found = blurredPassesCache.find(pass.id);
    if (found == blurredPassesCache.end()) {
        const float aspect = static_cast<float>(scene->viewportWidth) / static_cast<float>(scene->viewportHeight);
        auto chain =
            std::make_unique<passes::GaussianBlurRenderPass>(pass.minSize, gl, pass.name, aspect, options.resources);
        chain->createTextures();
        found = blurredPassesCache.emplace(pass.id, std::move(chain)).first;
    }
    passes::GaussianBlurRenderPass& chain = *found->second;
    activeBlurredPass = &chain;

    int kernel = 0;
    switch (pass.blurSize) {
    case BlurSize::KERNEL_5: kernel = 5; break;
    case BlurSize::KERNEL_4: kernel = 4; break;
    case BlurSize::KERNEL_3: kernel = 3; break;
    case BlurSize::KERNEL_2: kernel = 2; break;
    default: Fatal::stop("Incompatible blur size");
    }

    prepareCommands(pass.commands, chain.renderPassDescriptorRTT);
    chain.startRTT(encoder);
    encodeCommands(pass.commands, chain.renderPassDescriptorRTT, encoder);
    encoder.end();
    chain.blur(encoder, kernel, pass.brightness);
}

void SceneRenderer::resetBindingCaches() { stateFilter.resetBindingCaches(); }

// ---- Command execution ---------------------------------------------------------------------

void SceneRenderer::drawMesh(const DrawMeshCommand& command, gpu::RenderEncoder& encoder_) {
    const auto& state = command.state;
    if (!state || !state->shader) {
        Fatal::stop("Draw " + command.name + " has no state or shader");
    }
    const std::int32_t shaderId = state->shader->id;
    if (shaderId < 0 || static_cast<std::size_t>(shaderId) >= shaders.size()) {
        Fatal::stop("Shader id out of range: " + std::to_string(shaderId));
    }
    ShaderFunctions* functions = shaders[static_cast<std::size_t>(shaderId)].get();
    // A draw without a mesh and without a vertex layout finds its vertices in its shader (one
    // point placed by its matrix, say): `primitiveCount` vertices, at least one, are drawn.
    const bool meshless = !command.mesh && !state->vertexAttributes;
    if (!command.mesh && !meshless) {
        Fatal::stop("Draw " + command.name + " has no mesh");
    }
    const std::int32_t meshId = meshless ? 0 : command.mesh->id;
    if (!meshless && (meshId < 0 || static_cast<std::size_t>(meshId) >= models.size())) {
        Fatal::stop("Mesh id out of range: " + std::to_string(meshId));
    }
    auto cached = pipelinesCache.find(state);
    if (functions == nullptr) {
        return;
    }
    if (cached == pipelinesCache.end()) {
        RenderPipelineStateWithDepth entry;
        entry.depthState = SceneUtils::makeDepthState(state->depthMode ? *state->depthMode : *engine::DEPTH_NONE);
        entry.renderPipelineState = SceneUtils::makePipelineState(gl, *state, *functions);
        entry.cullMode = SceneUtils::cullMode(state->culling);
        cached = pipelinesCache.emplace(state, std::move(entry)).first;
    }
    const RenderPipelineStateWithDepth& pipeline = cached->second;

    stateFilter.applyState(state, pipeline, encoder_);

    const GLenum primitive = SceneUtils::primitiveType(command.primitiveType);
    if (meshless) {
        bindUniforms(command, encoder_);
        encoder_.drawPrimitives(primitive, 0, std::max<GLsizei>(1, command.primitiveCount));
        return;
    }
    const loaders::FullModel& model = models[static_cast<std::size_t>(meshId)];
    if (model.vertexBuffer() != 0) {
        encoder_.setVertexBuffer(model.vertexBuffer());
    }
    bindUniforms(command, encoder_);
    if (model.indexBuffer() == 0) {
        Fatal::stop("Mesh " + command.mesh->fileName + " has no index buffer");
    }
    encoder_.drawIndexedPrimitives(primitive, model.indexCount(), model.indexBuffer());
}

void SceneRenderer::bindUniforms(const DrawMeshCommand& command, gpu::RenderEncoder& encoder_) {
    const std::string& name = command.state->shader->name;
    const auto row = shadersUniforms->find(name);
    if (row == shadersUniforms->end()) {
        Fatal::stop("Uniforms of shader " + name + " are not known");
    }
    uniformStaging.bind(command, name, row->second, textures, samplers, stateFilter, encoder_);
}

void SceneRenderer::drawVignette(const VignetteCommand& command, gpu::RenderEncoder& encoder_) {
    const engine::math::Vec4* colors[] = {&command.color0, &command.color1};
    std::array<std::uint16_t, 4>* halves[] = {&colorVignette0_fp16, &colorVignette1_fp16};
    for (int i = 0; i < 2; ++i) {
        (*halves[i])[0] = loaders::HalfFloat::fromFloat(colors[i]->r());
        (*halves[i])[1] = loaders::HalfFloat::fromFloat(colors[i]->g());
        (*halves[i])[2] = loaders::HalfFloat::fromFloat(colors[i]->b());
        (*halves[i])[3] = loaders::HalfFloat::fromFloat(colors[i]->a());
    }
    if (!vignettePipelineStateWithDepth) {
        Fatal::stop("Vignette pipeline state is not available");
    }
    encoder_.setRenderPipelineState(*vignettePipelineStateWithDepth->renderPipelineState);
    encoder_.setDepthStencilState(*vignettePipelineStateWithDepth->depthState);
    stateFilter.forgetDepthAndSlots();
    if (fmVignette->vertexBuffer() != 0) {
        encoder_.setVertexBuffer(fmVignette->vertexBuffer());
    }
    encoder_.setVertexBytes(1, std::span<const std::uint16_t>(colorVignette0_fp16));
    encoder_.setVertexBytes(2, std::span<const std::uint16_t>(colorVignette1_fp16));
    if (fmVignette->indexBuffer() == 0) {
        Fatal::stop("Vignette mesh has no index buffer");
    }
    encoder_.drawIndexedPrimitives(GL_TRIANGLES, fmVignette->indexCount(), fmVignette->indexBuffer());
}

void SceneRenderer::drawBlurred(const std::shared_ptr<Command>& command, gpu::RenderEncoder& encoder_) {
    if (activeBlurredPass == nullptr) {
        return;
    }
    const auto& blurred = static_cast<const DrawBlurredCommand&>(*command);
    auto found = fullscreenQuadsCache.find(blurred.id);
    if (found == fullscreenQuadsCache.end()) {
        auto quad = std::make_unique<passes::FullscreenQuad>(std::static_pointer_cast<DrawBlurredCommand>(command), gl);
        quad->createVertexBuffer();
        quad->makePipeline(options.resources);
        found = fullscreenQuadsCache.emplace(blurred.id, std::move(quad)).first;
    }
    found->second->draw(activeBlurredPass->textureOffscreenBlurPass1, encoder_);
    stateFilter.forgetDepthAndSlots();
}

} // namespace renderer
