#include "renderer/SceneRenderer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/UniformTextureValue.h"
#include "renderer/Fatal.h"
#include "renderer/ModelLayoutCheck.h"
#include "renderer/HalfFloat.h"
#include "renderer/SceneUtils.h"
#include "renderer/ShaderLibrary.h"
#include "renderer/VignetteUtils.h"
#include "renderer/textures/TextureFiles.h"

namespace renderer {

using engine::commands::BlurredPassCommand;
using engine::commands::ClearColorCommand;
using engine::commands::ClearCommand;
using engine::commands::ClearCommandClearType;
using engine::commands::Command;
using engine::commands::DrawBlurredCommand;
using engine::commands::DrawMeshCommand;
using engine::commands::GroupCommand;
using engine::commands::MainPassCommand;
using engine::commands::UniformFloatValue;
using engine::commands::UniformIntValue;
using engine::commands::UniformTextureValue;
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

const Command& existing(const std::shared_ptr<Command>& command) {
    if (!command) {
        Fatal::stop("Missing command in the command tree");
    }
    return *command;
}

std::string msaaError(GLsizei width, GLsizei height) {
    char hex[16];
    std::snprintf(hex, sizeof hex, "0x%04X", SceneUtils::COLOR_FORMAT);
    return "Cannot create MSAA texture: Cannot create texture with pixelFormat " + std::string(hex) + " of size " +
           std::to_string(width) + "x" + std::to_string(height);
}

} // namespace

SceneRenderer::SceneRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                             Options options_)
    : gl(gl_), scene(std::move(scene_)), resourcesRoot(std::move(resourcesRoot_)), options(std::move(options_)),
      encoder(gl_) {
    start();
}

SceneRenderer::SceneRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                             Options options_, const ShaderUniforms& uniforms)
    : gl(gl_), scene(std::move(scene_)), resourcesRoot(std::move(resourcesRoot_)), options(std::move(options_)),
      encoder(gl_), uniforms_(&uniforms) {
    start();
}

SceneRenderer::~SceneRenderer() {
    for (auto& model : models) {
        model.release(gl);
    }
    if (fmVignette) {
        fmVignette->release(gl);
    }
    for (GLuint texture : textures) {
        gl.deleteTexture(texture);
    }
    for (GLuint sampler : samplers) {
        gl.deleteSampler(sampler);
    }
    releaseMultisampledTarget();
}

void SceneRenderer::start() {
    if (!scene) {
        Fatal::stop("No scene to render");
    }
    scene->backendMode = engine::BackendMode::OPENGL;
    if (gl.version() < 33) {
        Fatal::stop("GPU not available");
    }
    loadShaders();
    loadModels();
    loadTextures();
    loadVignette();
    scene->initialize();
    scene->loaded = true;
}

const ShaderUniforms& SceneRenderer::shaderUniforms() const { Fatal::stop("Not implemented"); }

double SceneRenderer::now() const {
    if (options.clock) {
        return options.clock();
    }
    using Seconds = std::chrono::duration<double>;
    return std::chrono::duration_cast<Seconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// ---- Start-up ------------------------------------------------------------------------------

void SceneRenderer::loadShaders() {
    shadersUniforms = uniforms_ != nullptr ? uniforms_ : &shaderUniforms();
    shaders.clear();
    for (const auto& shader : scene->getShaders()) {
        if (!shader) {
            continue;
        }
        shader->id = static_cast<std::int32_t>(shaders.size());
        const ShaderLibrary library = ShaderLibrary::openOrStop(options.resources);
        try {
            shaders.push_back(std::make_shared<ShaderFunctions>(shader->name, library));
        } catch (const std::runtime_error&) {
            shaders.push_back(nullptr);
        }
    }
}

void SceneRenderer::loadModels() {
    for (auto& model : models) {
        model.release(gl);
    }
    models.clear();
    for (const auto& mesh : scene->getMeshes()) {
        if (!mesh) {
            continue;
        }
        mesh->id = static_cast<std::int32_t>(models.size());
        FullModel model(mesh->fileName, resourcesRoot);
        model.load(gl, options.resources);
        models.push_back(std::move(model));
    }
    ModelLayoutCheck::run(scene->getCommands(), models);
}

void SceneRenderer::loadTextures() {
    for (GLuint texture : textures) {
        gl.deleteTexture(texture);
    }
    for (GLuint sampler : samplers) {
        gl.deleteSampler(sampler);
    }
    textures.clear();
    samplers.clear();
    const std::filesystem::path directory = options.resources / resourcesRoot / "textures";
    for (const auto& texture : scene->getTextures()) {
        if (!texture) {
            continue;
        }
        texture->id = static_cast<std::int32_t>(textures.size());
        auto loaded = textures::TextureFiles::load(gl, *texture, directory, options.astcDecoding);
        if (loaded) {
            textures.push_back(loaded->texture);
        }
        samplers.push_back(SceneUtils::makeSampler(gl, *texture));
    }
}

void SceneRenderer::loadVignette() {
    fmVignette.emplace(VignetteUtils::MODEL_NAME, "");
    fmVignette->load(gl, options.resources);
    ModelLayoutCheck::check(*fmVignette, static_cast<std::size_t>(VignetteUtils::attributes()->stride()));
    const ShaderLibrary library = ShaderLibrary::openOrStop(options.resources);
    std::optional<ShaderFunctions> functions;
    try {
        functions.emplace("Vignette", library);
    } catch (const std::runtime_error&) {
        return;
    }
    vignettePipelineStateWithDepth = VignetteUtils::makePipeline(gl, *functions);
}

// ---- The frame -----------------------------------------------------------------------------

int SceneRenderer::drawFrame(const FrameTarget& target) {
    if (auto size = drawableSize(target.width, target.height)) {
        if (scene->viewportWidth != size->first || scene->viewportHeight != size->second) {
            scene->updateViewportSize(size->first, size->second);
        }
    }
    scene->updateTimers(now() * 1000.0);
    presents_ = 0;
    processCommands(scene->getCommands(), target);
    return presents_;
}

void SceneRenderer::processCommands(const engine::Scene::CommandList& commands, const FrameTarget& target) {
    for (const auto& pointer : commands) {
        const Command& command = existing(pointer);
        if (!command.enabled) {
            continue;
        }
        if (const auto* main = dynamic_cast<const MainPassCommand*>(&command)) {
            processMainPass(*main, target);
        } else if (const auto* blurred = dynamic_cast<const BlurredPassCommand*>(&command)) {
            processBlurredPass(*blurred);
        } else if (const auto* group = dynamic_cast<const GroupCommand*>(&command)) {
            processCommands(group->commands, target);
        }
    }
}

void SceneRenderer::prepareCommands(const engine::Scene::CommandList& commands,
                                    gpu::RenderPassDescriptor& descriptor) {
    for (const auto& pointer : commands) {
        const Command& command = existing(pointer);
        if (!command.enabled) {
            continue;
        }
        if (const auto* group = dynamic_cast<const GroupCommand*>(&command)) {
            prepareCommands(group->commands, descriptor);
        } else if (const auto* clear = dynamic_cast<const ClearColorCommand*>(&command)) {
            clearColor = {clear->color.r(), clear->color.g(), clear->color.b(), clear->color.a()};
            descriptor.colorAttachment.clearColor = clearColor;
        } else if (const auto* clear = dynamic_cast<const ClearCommand*>(&command)) {
            const ClearCommandClearType type = clear->clearType;
            if (type == ClearCommandClearType::COLOR || type == ClearCommandClearType::COLOR_AND_DEPTH) {
                descriptor.colorAttachment.loadAction = gpu::LoadAction::CLEAR;
            }
            if (type == ClearCommandClearType::DEPTH || type == ClearCommandClearType::COLOR_AND_DEPTH) {
                descriptor.depthAttachment.loadAction = gpu::LoadAction::CLEAR;
            }
        }
    }
}

void SceneRenderer::encodeCommands(const engine::Scene::CommandList& commands,
                                   gpu::RenderPassDescriptor& descriptor, gpu::RenderEncoder& encoder_) {
    for (const auto& pointer : commands) {
        const Command& command = existing(pointer);
        if (!command.enabled) {
            continue;
        }
        if (const auto* group = dynamic_cast<const GroupCommand*>(&command)) {
            encodeCommands(group->commands, descriptor, encoder_);
        } else if (const auto* vignette = dynamic_cast<const VignetteCommand*>(&command)) {
            drawVignette(*vignette, encoder_);
        } else if (const auto* draw = dynamic_cast<const DrawMeshCommand*>(&command)) {
            drawMesh(*draw, encoder_);
        } else if (dynamic_cast<const DrawBlurredCommand*>(&command) != nullptr) {
            drawBlurred(pointer, encoder_);
        }
    }
}

void SceneRenderer::processMainPass(const MainPassCommand& pass, const FrameTarget& target) {
    const auto size = drawableSize(target.width, target.height);
    if (!size || size->first < 1 || size->second < 1) {
        return; // nothing to draw on: the pass is dropped for this frame
    }
    // The view's descriptor, as the host gives it for each frame.
    gpu::RenderPassDescriptor descriptor;
    descriptor.width = size->first;
    descriptor.height = size->second;
    descriptor.colorAttachment.loadAction = options.viewColorLoadAction;
    descriptor.colorAttachment.clearColor = options.viewClearColor;
    descriptor.colorAttachment.resolveFramebuffer = target.framebuffer;
    descriptor.depthAttachment.present = true;
    descriptor.depthAttachment.loadAction = options.viewDepthLoadAction;
    descriptor.depthAttachment.clearDepth = options.viewClearDepth;
    descriptor.depthAttachment.storeAction = gpu::StoreAction::DONT_CARE;
    prepareMultisampledTarget(descriptor, size->first, size->second);

    prepareCommands(pass.commands, descriptor);
    descriptor.colorAttachment.storeAction = gpu::StoreAction::MULTISAMPLE_RESOLVE;
    encoder.begin(descriptor, MAIN_PASS_LABEL);
    activeDepthStencilState = nullptr;
    resetBindingCaches();
    encoder.setFrontFacingWinding(gpu::Winding::COUNTER_CLOCKWISE);
    encodeCommands(pass.commands, descriptor, encoder);
    encoder.end();
    ++presents_;
}

void SceneRenderer::processBlurredPass(const BlurredPassCommand& pass) {
    auto found = blurredPassesCache.find(pass.id);
    if (found == blurredPassesCache.end()) {
        const float aspect = static_cast<float>(scene->viewportWidth) / static_cast<float>(scene->viewportHeight);
        auto chain = std::make_unique<GaussianBlurRenderPass>(pass.minSize, gl, pass.name, aspect, options.resources);
        chain->createTextures();
        found = blurredPassesCache.emplace(pass.id, std::move(chain)).first;
    }
    GaussianBlurRenderPass& chain = *found->second;
    activeBlurredPass = &chain;

    int kernel = 0;
    const std::string_view size = engine::commands::toString(pass.blurSize);
    if (size == "KERNEL_5") {
        kernel = 5;
    } else if (size == "KERNEL_4") {
        kernel = 4;
    } else if (size == "KERNEL_3") {
        kernel = 3;
    } else if (size == "KERNEL_2") {
        kernel = 2;
    } else {
        Fatal::stop("Incompatible blur size");
    }

    prepareCommands(pass.commands, chain.renderPassDescriptorRTT);
    chain.startRTT(encoder);
    encodeCommands(pass.commands, chain.renderPassDescriptorRTT, encoder);
    encoder.end();
    chain.blur(encoder, kernel, pass.brightness);
}

void SceneRenderer::resetBindingCaches() {
    activeFragmentSamplers.fill(0);
    activeFragmentTextures.fill(0);
    activeVertexTextures.fill(0);
}

void SceneRenderer::prepareMultisampledTarget(gpu::RenderPassDescriptor& descriptor, GLsizei width,
                                              GLsizei height) {
    if (textureMsaa == 0 || textureMsaaWidth != width || textureMsaaHeight != height) {
        releaseMultisampledTarget();
        textureMsaa = gl.createRenderbuffer(SceneUtils::SAMPLE_COUNT, SceneUtils::COLOR_FORMAT, width, height);
        depthMsaa = gl.createRenderbuffer(SceneUtils::SAMPLE_COUNT, SceneUtils::DEPTH_FORMAT, width, height);
        framebufferMsaa = gl.createFramebuffer();
        gl.framebufferRenderbuffer(framebufferMsaa, GL_COLOR_ATTACHMENT0, textureMsaa);
        gl.framebufferRenderbuffer(framebufferMsaa, GL_DEPTH_ATTACHMENT, depthMsaa);
        if (textureMsaa == 0 || gl.checkFramebufferStatus(framebufferMsaa) != GL_FRAMEBUFFER_COMPLETE) {
            Fatal::stop(msaaError(width, height));
        }
        textureMsaaWidth = width;
        textureMsaaHeight = height;
    }
    descriptor.framebuffer = framebufferMsaa;
}

void SceneRenderer::releaseMultisampledTarget() {
    if (framebufferMsaa != 0) gl.deleteFramebuffer(framebufferMsaa);
    if (textureMsaa != 0) gl.deleteRenderbuffer(textureMsaa);
    if (depthMsaa != 0) gl.deleteRenderbuffer(depthMsaa);
    framebufferMsaa = textureMsaa = depthMsaa = 0;
    textureMsaaWidth = textureMsaaHeight = 0;
}

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

    if (activeState != state) {
        encoder_.setRenderPipelineState(*pipeline.renderPipelineState);
        if (activeDepthStencilState == nullptr || activeDepthStencilState != pipeline.depthState.get()) {
            encoder_.setDepthStencilState(*pipeline.depthState);
        }
        activeDepthStencilState = pipeline.depthState.get();
        encoder_.setCullMode(pipeline.cullMode);
    }
    activeState = state;

    const GLenum primitive = SceneUtils::primitiveType(command.primitiveType);
    if (meshless) {
        bindUniforms(command, encoder_);
        encoder_.drawPrimitives(primitive, 0, std::max<GLsizei>(1, command.primitiveCount));
        return;
    }
    const FullModel& model = models[static_cast<std::size_t>(meshId)];
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
    const std::vector<Uniform>& table = row->second;
    if (command.uniforms.empty()) {
        return;
    }
    for (std::size_t i = 0; i < command.uniforms.size(); ++i) {
        if (i >= table.size()) {
            Fatal::stop("Shader " + name + " takes " + std::to_string(table.size()) + " uniforms, the draw gives " +
                        std::to_string(command.uniforms.size()));
        }
        const Uniform& uniform = table[i];
        const engine::commands::UniformValue* value = command.uniforms[i].get();
        if (const auto* floats = dynamic_cast<const UniformFloatValue*>(value)) {
            const std::size_t size = floats->value.size();
            if (size > STAGING_SIZE) {
                Fatal::stop("Uniform of " + std::to_string(size) + " elements exceeds " + std::to_string(STAGING_SIZE));
            }
            if (uniform.dataType == UniformDataType::FP32) {
                std::copy_n(floats->value.begin(), size, valueFp32.begin());
                const std::span<const float> bytes(valueFp32.data(), size);
                uniform.type == UniformType::VERTEX ? encoder_.setVertexBytes(uniform.index, bytes)
                                                    : encoder_.setFragmentBytes(uniform.index, bytes);
            } else {
                for (std::size_t k = 0; k < size; ++k) {
                    valueFp16[k] = HalfFloat::fromFloat(floats->value[k]);
                }
                const std::span<const std::uint16_t> bytes(valueFp16.data(), size);
                uniform.type == UniformType::VERTEX ? encoder_.setVertexBytes(uniform.index, bytes)
                                                    : encoder_.setFragmentBytes(uniform.index, bytes);
            }
        } else if (const auto* ints = dynamic_cast<const UniformIntValue*>(value)) {
            const std::size_t size = ints->value.size();
            if (size > STAGING_SIZE) {
                Fatal::stop("Uniform of " + std::to_string(size) + " elements exceeds " + std::to_string(STAGING_SIZE));
            }
            if (uniform.dataType == UniformDataType::INT32) {
                std::copy_n(ints->value.begin(), size, valueInt32.begin());
                const std::span<const std::int32_t> bytes(valueInt32.data(), size);
                uniform.type == UniformType::VERTEX ? encoder_.setVertexBytes(uniform.index, bytes)
                                                    : encoder_.setFragmentBytes(uniform.index, bytes);
            } else {
                for (std::size_t k = 0; k < size; ++k) {
                    const std::int32_t element = ints->value[k];
                    if (element < -32768 || element > 32767) {
                        Fatal::stop("Uniform value " + std::to_string(element) + " does not fit 16 bits");
                    }
                    valueInt16[k] = static_cast<std::int16_t>(element);
                }
                const std::span<const std::int16_t> bytes(valueInt16.data(), size);
                uniform.type == UniformType::VERTEX ? encoder_.setVertexBytes(uniform.index, bytes)
                                                    : encoder_.setFragmentBytes(uniform.index, bytes);
            }
        } else if (const auto* texture = dynamic_cast<const UniformTextureValue*>(value)) {
            if (!texture->value) {
                Fatal::stop("Texture uniform of shader " + name + " holds no texture");
            }
            const std::int32_t id = texture->value->id;
            if (id < 0 || static_cast<std::size_t>(id) >= textures.size() ||
                static_cast<std::size_t>(id) >= samplers.size()) {
                Fatal::stop("Texture id out of range: " + std::to_string(id));
            }
            const GLuint glTexture = textures[static_cast<std::size_t>(id)];
            const GLuint glSampler = samplers[static_cast<std::size_t>(id)];
            if (uniform.index < 0 || uniform.index >= SLOTS) {
                Fatal::stop("Texture slot out of range: " + std::to_string(uniform.index));
            }
            const auto slot = static_cast<std::size_t>(uniform.index);
            if (uniform.type == UniformType::FRAGMENT) {
                if (activeFragmentSamplers[slot] != glSampler) {
                    encoder_.setFragmentSamplerState(uniform.index, glSampler);
                }
                if (activeFragmentTextures[slot] != glTexture) {
                    encoder_.setFragmentTexture(uniform.index, glTexture);
                }
                activeFragmentSamplers[slot] = glSampler;
                activeFragmentTextures[slot] = glTexture;
            } else {
                if (activeVertexTextures[slot] != glTexture) {
                    encoder_.setVertexTexture(uniform.index, glTexture);
                }
                activeVertexTextures[slot] = glTexture;
            }
        }
    }
}

void SceneRenderer::drawVignette(const VignetteCommand& command, gpu::RenderEncoder& encoder_) {
    const engine::math::Vec4* colors[] = {&command.color0, &command.color1};
    std::array<std::uint16_t, 4>* halves[] = {&colorVignette0_fp16, &colorVignette1_fp16};
    for (int i = 0; i < 2; ++i) {
        (*halves[i])[0] = HalfFloat::fromFloat(colors[i]->r());
        (*halves[i])[1] = HalfFloat::fromFloat(colors[i]->g());
        (*halves[i])[2] = HalfFloat::fromFloat(colors[i]->b());
        (*halves[i])[3] = HalfFloat::fromFloat(colors[i]->a());
    }
    if (!vignettePipelineStateWithDepth) {
        Fatal::stop("Vignette pipeline state is not available");
    }
    encoder_.setRenderPipelineState(*vignettePipelineStateWithDepth->renderPipelineState);
    encoder_.setDepthStencilState(*vignettePipelineStateWithDepth->depthState);
    activeDepthStencilState = nullptr;
    resetBindingCaches();
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
        auto quad = std::make_unique<FullscreenQuad>(std::static_pointer_cast<DrawBlurredCommand>(command), gl);
        quad->createVertexBuffer();
        quad->makePipeline(options.resources);
        found = fullscreenQuadsCache.emplace(blurred.id, std::move(quad)).first;
    }
    found->second->draw(activeBlurredPass->textureOffscreenBlurPass1, encoder_);
    activeDepthStencilState = nullptr;
    resetBindingCaches();
}

} // namespace renderer
