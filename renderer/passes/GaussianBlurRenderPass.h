#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "engine/DepthMode.h"
#include "engine/Shader.h"
#include "engine/VertexAttributesDescriptor.h"
#include "renderer/RenderPipelineStateWithDepth.h"
#include "renderer/gl/Gl.h"
#include "renderer/gpu/RenderEncoder.h"
#include "renderer/gpu/RenderPassDescriptor.h"

namespace renderer::passes {

/// One blur chain: part of the tree is drawn into a small 4-sample target, resolved into
/// `textureOffscreenBlurPass1`, blurred horizontally into `textureOffscreenBlurPass2` and
/// vertically back into `textureOffscreenBlurPass1`, where the result stays for a
/// DrawBlurredCommand. The chain has the aspect of the screen when it was made and its short
/// side fixed at `minSize`, so its cost does not depend on the display; it is never resized.
///
/// The multisampled colour and depth targets are renderbuffers whose contents are dropped
/// (invalidated) at the end of the pass; only the two resolved images keep memory.
class GaussianBlurRenderPass {
public:
    /// The chain's size for an aspect ratio A (width / height) and a short side M: M high and
    /// A * M wide for A above 1, else M wide and M / A high, rounded to the nearest integer,
    /// ties away from zero.
    static std::pair<int, int> chainSize(int minSize, float aspect);

    /// A chain of the size `chainSize(minSize, aspect)`; nothing is created before
    /// `createTextures`. `resources` holds the shader library.
    GaussianBlurRenderPass(int minSize, gl::Gl& gl, std::string name, float aspect,
                           std::filesystem::path resources);
    /// Deletes the GL objects of the chain.
    ~GaussianBlurRenderPass();
    GaussianBlurRenderPass(const GaussianBlurRenderPass&) = delete;
    GaussianBlurRenderPass& operator=(const GaussianBlurRenderPass&) = delete;

    /// Creates the targets, the three pass descriptors, the quad and the four kernel pipelines
    /// ("GaussianBlur", "GaussianBlur4", "GaussianBlur3", "GaussianBlur2"). A target that cannot
    /// be made stops the process with "Cannot create textures: " and the reason. A kernel whose
    /// shader the library lacks leaves its pipeline, and those built after it, empty.
    void createTextures();
    /// Opens the pass that draws the scene into the chain (clockwise front faces, as a fresh
    /// pass has them).
    void startRTT(gpu::RenderEncoder& encoder);
    /// The two blur passes with kernel `kernel` (2, 3 or 4; anything else is the 5 kernel) and
    /// `brightness`. A kernel without a pipeline stops the process.
    void blur(gpu::RenderEncoder& encoder, int kernel, float brightness);

    int width;
    int height;
    std::string name;
    gl::Gl& gl;
    std::filesystem::path resources;

    /// 4-sample colour target (a renderbuffer).
    GLuint textureOffscreen = 0;
    /// 4-sample depth target (a renderbuffer).
    GLuint textureDepth = 0;
    /// Receives the resolve; holds the final result.
    GLuint textureOffscreenBlurPass1 = 0;
    /// Receives the horizontal pass.
    GLuint textureOffscreenBlurPass2 = 0;
    /// Framebuffers of the 4-sample targets and of the two images.
    GLuint framebufferRTT = 0;
    GLuint framebufferBlurPass1 = 0;
    GLuint framebufferBlurPass2 = 0;
    /// Linear, clamped sampling of the images by the blur shaders.
    GLuint sampler = 0;

    gpu::RenderPassDescriptor renderPassDescriptorRTT;
    gpu::RenderPassDescriptor renderPassDescriptorBlur1;
    gpu::RenderPassDescriptor renderPassDescriptorBlur2;
    std::string renderEncoderLabelRTT;
    std::string renderEncoderLabelBlur1;
    std::string renderEncoderLabelBlur2;

    /// The quad as a triangle strip of four vertices x, y, u, v.
    static constexpr std::array<float, 16> VERTICES = {-1.0f, -1.0f, 0.0f, 1.0f, 1.0f, -1.0f, 1.0f, 1.0f,
                                                       -1.0f, 1.0f,  0.0f, 0.0f, 1.0f, 1.0f,  1.0f, 0.0f};
    std::array<float, 16> vertices = VERTICES;
    GLuint vertexBufferQuad = 0;

    /// Named anew before each pipeline is made.
    std::shared_ptr<engine::Shader> BLUR_SHADER;
    /// Neither test nor write.
    std::shared_ptr<engine::DepthMode> BLUR_DEPTH;
    /// x, y as FLOAT2 at 0, u, v as FLOAT2 at 8, stride 16.
    std::shared_ptr<engine::VertexAttributesDescriptor> BLUR_ATTRIBS;

    std::array<float, 2> bufferDirection{0.0f, 0.0f};
    std::array<float, 1> bufferBrightness{0.0f};

    std::optional<RenderPipelineStateWithDepth> pipelineStateWithDepthBlur5;
    std::optional<RenderPipelineStateWithDepth> pipelineStateWithDepthBlur4;
    std::optional<RenderPipelineStateWithDepth> pipelineStateWithDepthBlur3;
    std::optional<RenderPipelineStateWithDepth> pipelineStateWithDepthBlur2;

private:
    std::optional<RenderPipelineStateWithDepth> makeBlurPipeline(const std::string& suffix);
    void blurPass(gpu::RenderEncoder& encoder, const RenderPipelineStateWithDepth& pipeline,
                  const gpu::RenderPassDescriptor& descriptor, const std::string& label, GLuint source);
};

} // namespace renderer::passes
