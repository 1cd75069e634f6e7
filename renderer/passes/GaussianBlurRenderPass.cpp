#include "renderer/passes/GaussianBlurRenderPass.h"

#include <cmath>
#include <stdexcept>

#include "engine/Blending.h"
#include "engine/commands/DrawMeshState.h"
#include "renderer/Fatal.h"
#include "renderer/SceneUtils.h"
#include "renderer/ShaderFunctions.h"

namespace renderer::passes {

namespace {

std::string sizeText(GLenum format, int width, int height) {
    char hex[16];
    std::snprintf(hex, sizeof hex, "0x%04X", format);
    return "Cannot create texture with pixelFormat " + std::string(hex) + " of size " + std::to_string(width) + "x" +
           std::to_string(height);
}

} // namespace

namespace {

/// Rounds half away from zero; a result that is no usable size (not finite, beyond an int)
/// becomes 0, which no texture can have.
int roundedSize(float value) {
    if (!std::isfinite(value) || std::fabs(value) >= 2147483647.0f) {
        return 0;
    }
    return static_cast<int>(std::lround(value));
}

} // namespace

std::pair<int, int> GaussianBlurRenderPass::chainSize(int minSize, float aspect) {
    if (aspect > 1.0f) {
        return {roundedSize(aspect * static_cast<float>(minSize)), minSize};
    }
    return {minSize, roundedSize(static_cast<float>(minSize) / aspect)};
}

GaussianBlurRenderPass::GaussianBlurRenderPass(int minSize, gl::Gl& gl_, std::string name_, float aspect,
                                               std::filesystem::path resources_)
    : name(std::move(name_)), gl(gl_), resources(std::move(resources_)) {
    const auto size = chainSize(minSize, aspect);
    width = size.first;
    height = size.second;
    renderEncoderLabelRTT = "Blur pass " + name + " RTT";
    renderEncoderLabelBlur1 = "Blur pass " + name + " blur 2";
    renderEncoderLabelBlur2 = "Blur pass " + name + " blur 2";
    BLUR_SHADER = std::make_shared<engine::Shader>("");
    BLUR_DEPTH = std::make_shared<engine::DepthMode>(false, false);
    BLUR_ATTRIBS = std::make_shared<engine::VertexAttributesDescriptor>(
        std::vector<engine::VertexAttribute>{
            engine::VertexAttribute(engine::AttributeType::VERTEX, 0, engine::VertexFormat::FLOAT2, 0),
            engine::VertexAttribute(engine::AttributeType::UV0, 1, engine::VertexFormat::FLOAT2, 8)},
        16);
}

GaussianBlurRenderPass::~GaussianBlurRenderPass() {
    for (GLuint framebuffer : {framebufferRTT, framebufferBlurPass1, framebufferBlurPass2}) {
        if (framebuffer != 0) gl.deleteFramebuffer(framebuffer);
    }
    for (GLuint renderbuffer : {textureOffscreen, textureDepth}) {
        if (renderbuffer != 0) gl.deleteRenderbuffer(renderbuffer);
    }
    for (GLuint texture : {textureOffscreenBlurPass1, textureOffscreenBlurPass2}) {
        if (texture != 0) gl.deleteTexture(texture);
    }
    if (vertexBufferQuad != 0) gl.deleteBuffer(vertexBufferQuad);
    if (sampler != 0) gl.deleteSampler(sampler);
}

void GaussianBlurRenderPass::createTextures() {
    try {
        if (width < 1 || height < 1) {
            throw std::runtime_error(sizeText(SceneUtils::COLOR_FORMAT, width, height));
        }
        textureOffscreen = gl.createRenderbuffer(SceneUtils::SAMPLE_COUNT, SceneUtils::COLOR_FORMAT, width, height);
        for (GLuint* texture : {&textureOffscreenBlurPass1, &textureOffscreenBlurPass2}) {
            *texture = gl.createTexture();
            gl.texImage2D(*texture, 0, SceneUtils::COLOR_FORMAT, width, height, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
            gl.texParameteri(*texture, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
            gl.texParameteri(*texture, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
            gl.texParameteri(*texture, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
            gl.texParameteri(*texture, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
            gl.texParameteri(*texture, GL_TEXTURE_MAX_LEVEL, 0);
        }
        textureDepth = gl.createRenderbuffer(SceneUtils::SAMPLE_COUNT, SceneUtils::DEPTH_FORMAT, width, height);

        framebufferRTT = gl.createFramebuffer();
        gl.framebufferRenderbuffer(framebufferRTT, GL_COLOR_ATTACHMENT0, textureOffscreen);
        gl.framebufferRenderbuffer(framebufferRTT, GL_DEPTH_ATTACHMENT, textureDepth);
        if (gl.checkFramebufferStatus(framebufferRTT) != GL_FRAMEBUFFER_COMPLETE) {
            throw std::runtime_error(sizeText(SceneUtils::COLOR_FORMAT, width, height));
        }
        framebufferBlurPass1 = gl.createFramebuffer();
        gl.framebufferTexture(framebufferBlurPass1, GL_COLOR_ATTACHMENT0, textureOffscreenBlurPass1);
        framebufferBlurPass2 = gl.createFramebuffer();
        gl.framebufferTexture(framebufferBlurPass2, GL_COLOR_ATTACHMENT0, textureOffscreenBlurPass2);
        for (GLuint framebuffer : {framebufferBlurPass1, framebufferBlurPass2}) {
            if (gl.checkFramebufferStatus(framebuffer) != GL_FRAMEBUFFER_COMPLETE) {
                throw std::runtime_error(sizeText(SceneUtils::COLOR_FORMAT, width, height));
            }
        }
    } catch (const std::runtime_error& error) {
        Fatal::stop(std::string("Cannot create textures: ") + error.what());
    }

    renderPassDescriptorRTT = {};
    renderPassDescriptorRTT.framebuffer = framebufferRTT;
    renderPassDescriptorRTT.width = width;
    renderPassDescriptorRTT.height = height;
    renderPassDescriptorRTT.colorAttachment.loadAction = gpu::LoadAction::CLEAR;
    renderPassDescriptorRTT.colorAttachment.clearColor = {0.0, 0.0, 0.0, 0.0};
    renderPassDescriptorRTT.colorAttachment.storeAction = gpu::StoreAction::MULTISAMPLE_RESOLVE;
    renderPassDescriptorRTT.colorAttachment.resolveFramebuffer = framebufferBlurPass1;
    renderPassDescriptorRTT.depthAttachment.present = true;
    renderPassDescriptorRTT.depthAttachment.loadAction = gpu::LoadAction::CLEAR;
    renderPassDescriptorRTT.depthAttachment.storeAction = gpu::StoreAction::DONT_CARE;

    for (auto [descriptor, framebuffer] : {std::pair{&renderPassDescriptorBlur1, framebufferBlurPass2},
                                          std::pair{&renderPassDescriptorBlur2, framebufferBlurPass1}}) {
        *descriptor = {};
        descriptor->framebuffer = framebuffer;
        descriptor->width = width;
        descriptor->height = height;
        descriptor->colorAttachment.loadAction = gpu::LoadAction::CLEAR;
        descriptor->colorAttachment.clearColor = {0.0, 0.0, 0.0, 0.0};
        descriptor->colorAttachment.storeAction = gpu::StoreAction::STORE;
    }

    vertexBufferQuad = gl.createBuffer(GL_ARRAY_BUFFER, std::as_bytes(std::span<const float>(vertices)));
    sampler = gl.createSampler();
    gl.samplerParameteri(sampler, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    gl.samplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    gl.samplerParameteri(sampler, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    gl.samplerParameteri(sampler, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);

    std::optional<RenderPipelineStateWithDepth>* fields[] = {&pipelineStateWithDepthBlur5, &pipelineStateWithDepthBlur4,
                                                            &pipelineStateWithDepthBlur3, &pipelineStateWithDepthBlur2};
    const char* suffixes[] = {"", "4", "3", "2"};
    for (int i = 0; i < 4; ++i) {
        *fields[i] = makeBlurPipeline(suffixes[i]);
        if (!*fields[i]) {
            break;
        }
    }
}

std::optional<RenderPipelineStateWithDepth> GaussianBlurRenderPass::makeBlurPipeline(const std::string& suffix) {
    const ShaderLibrary library = ShaderLibrary::openOrStop(resources);
    std::optional<ShaderFunctions> functions;
    try {
        functions.emplace("GaussianBlur" + suffix, library);
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
    BLUR_SHADER->name = functions->name;
    auto blending = std::make_shared<engine::Blending>();
    const engine::commands::DrawMeshState state(BLUR_SHADER, blending, BLUR_DEPTH, engine::CullFace::DISABLED,
                                                BLUR_ATTRIBS);
    RenderPipelineStateWithDepth pipeline;
    pipeline.depthState = SceneUtils::makeDepthState(*state.depthMode);
    pipeline.renderPipelineState = SceneUtils::makeOffscreenPipelineState(
        gl, state, *functions, "Blur Pass " + name + " PipelineState", 1);
    pipeline.cullMode = SceneUtils::cullMode(state.culling);
    return pipeline;
}

void GaussianBlurRenderPass::startRTT(gpu::RenderEncoder& encoder) {
    encoder.begin(renderPassDescriptorRTT, renderEncoderLabelRTT);
}

void GaussianBlurRenderPass::blur(gpu::RenderEncoder& encoder, int kernel, float brightness) {
    bufferBrightness[0] = brightness;
    bufferDirection = {1.0f, 0.0f};
    const std::optional<RenderPipelineStateWithDepth>* chosen = &pipelineStateWithDepthBlur5;
    switch (kernel) {
    case 2: chosen = &pipelineStateWithDepthBlur2; break;
    case 3: chosen = &pipelineStateWithDepthBlur3; break;
    case 4: chosen = &pipelineStateWithDepthBlur4; break;
    default: break;
    }
    if (!*chosen) {
        Fatal::stop("Blur pipeline of kernel " + std::to_string(kernel) + " is not available");
    }
    blurPass(encoder, **chosen, renderPassDescriptorBlur1, renderEncoderLabelBlur1, textureOffscreenBlurPass1);
    bufferDirection = {0.0f, 1.0f};
    blurPass(encoder, **chosen, renderPassDescriptorBlur2, renderEncoderLabelBlur2, textureOffscreenBlurPass2);
}

void GaussianBlurRenderPass::blurPass(gpu::RenderEncoder& encoder, const RenderPipelineStateWithDepth& pipeline,
                                      const gpu::RenderPassDescriptor& descriptor, const std::string& label,
                                      GLuint source) {
    encoder.begin(descriptor, label);
    encoder.setRenderPipelineState(*pipeline.renderPipelineState);
    encoder.setDepthStencilState(*pipeline.depthState);
    encoder.setVertexBuffer(vertexBufferQuad);
    encoder.setFragmentBytes(1, std::span<const float>(bufferDirection));
    encoder.setFragmentBytes(2, std::span<const float>(bufferBrightness));
    encoder.setFragmentTexture(0, source);
    // The blur shaders sample with a sampler of their own, whatever a draw left on the unit.
    encoder.setFragmentSamplerState(0, sampler);
    encoder.drawPrimitives(GL_TRIANGLE_STRIP, 0, 4);
    encoder.end();
}

} // namespace renderer::passes
