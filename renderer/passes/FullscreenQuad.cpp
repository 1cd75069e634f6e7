#include "renderer/passes/FullscreenQuad.h"

#include <stdexcept>

#include "engine/commands/DrawMeshState.h"
#include "renderer/Fatal.h"
#include "renderer/SceneUtils.h"
#include "renderer/ShaderFunctions.h"
#include "renderer/ShaderLibrary.h"

namespace renderer::passes {

FullscreenQuad::FullscreenQuad(std::shared_ptr<engine::commands::DrawBlurredCommand> command_, gl::Gl& gl_)
    : gl(gl_), command(std::move(command_)) {
    FS_SHADER = std::make_shared<engine::Shader>("");
    FS_DEPTH = std::make_shared<engine::DepthMode>(false, false);
    FS_ATTRIBS = std::make_shared<engine::VertexAttributesDescriptor>(
        std::vector<engine::VertexAttribute>{
            engine::VertexAttribute(engine::AttributeType::VERTEX, 0, engine::VertexFormat::FLOAT2, 0),
            engine::VertexAttribute(engine::AttributeType::UV0, 1, engine::VertexFormat::FLOAT2, 8)},
        16);
}

FullscreenQuad::~FullscreenQuad() {
    if (vertexBuffer != 0) gl.deleteBuffer(vertexBuffer);
    if (sampler != 0) gl.deleteSampler(sampler);
}

void FullscreenQuad::createVertexBuffer() {
    vertexBuffer = gl.createBuffer(GL_ARRAY_BUFFER, std::as_bytes(std::span<const float>(vertices)));
    sampler = gl.createSampler();
    gl.samplerParameteri(sampler, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    gl.samplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    gl.samplerParameteri(sampler, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    gl.samplerParameteri(sampler, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

void FullscreenQuad::makePipeline(const std::filesystem::path& resources) {
    const ShaderLibrary library = ShaderLibrary::openOrStop(resources);
    std::optional<ShaderFunctions> functions;
    try {
        functions.emplace("FullscreenQuad", library);
    } catch (const std::runtime_error&) {
        return;
    }
    FS_SHADER->name = "FullscreenQuad";
    const engine::commands::DrawMeshState state(FS_SHADER, command->blending ? command->blending : engine::BLENDING_NONE,
                                                FS_DEPTH, engine::CullFace::DISABLED, FS_ATTRIBS);
    RenderPipelineStateWithDepth pipeline;
    pipeline.depthState = SceneUtils::makeDepthState(*state.depthMode);
    pipeline.renderPipelineState = SceneUtils::makePipelineState(gl, state, *functions);
    pipeline.cullMode = SceneUtils::cullMode(state.culling);
    pipelineStateWithDepth = std::move(pipeline);
}

void FullscreenQuad::draw(GLuint texture, gpu::RenderEncoder& encoder) {
    if (!pipelineStateWithDepth) {
        Fatal::stop("FullscreenQuad has no pipeline state");
    }
    encoder.setRenderPipelineState(*pipelineStateWithDepth->renderPipelineState);
    encoder.setDepthStencilState(*pipelineStateWithDepth->depthState);
    encoder.setVertexBuffer(vertexBuffer);
    encoder.setFragmentTexture(0, texture);
    encoder.setFragmentSamplerState(0, sampler);
    encoder.drawPrimitives(GL_TRIANGLE_STRIP, 0, 4);
}

} // namespace renderer::passes
