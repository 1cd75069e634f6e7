#include "renderer/passes/VignetteUtils.h"

#include "engine/commands/DrawMeshState.h"
#include "renderer/SceneUtils.h"

namespace renderer::passes {

const std::shared_ptr<engine::Shader>& VignetteUtils::shader() {
    static const auto SHADER = std::make_shared<engine::Shader>("");
    return SHADER;
}

const std::shared_ptr<engine::Blending>& VignetteUtils::blending() {
    static const auto BLENDING = [] {
        auto blending = std::make_shared<engine::Blending>();
        blending->enabled = true;
        blending->isSeparateAlpha = false;
        blending->equationColor = engine::BlendingEquation::ADD;
        blending->sourceFactorColor = engine::BlendingFactor::ZERO;
        blending->destinationFactorColor = engine::BlendingFactor::SRC_COLOR;
        return blending;
    }();
    return BLENDING;
}

const std::shared_ptr<engine::DepthMode>& VignetteUtils::depthMode() {
    static const auto DEPTH = std::make_shared<engine::DepthMode>(false, false);
    return DEPTH;
}

const std::shared_ptr<engine::VertexAttributesDescriptor>& VignetteUtils::attributes() {
    static const auto ATTRIBUTES = std::make_shared<engine::VertexAttributesDescriptor>(
        std::vector<engine::VertexAttribute>{
            engine::VertexAttribute(engine::AttributeType::VERTEX, 0, engine::VertexFormat::HALF2, 0),
            engine::VertexAttribute(engine::AttributeType::AO, 1, engine::VertexFormat::UBYTE_NORMALIZED, 6)},
        8);
    return ATTRIBUTES;
}

RenderPipelineStateWithDepth VignetteUtils::makePipeline(gl::Gl& gl, ShaderFunctions& functions) {
    shader()->name = "Vignette";
    const engine::commands::DrawMeshState state(shader(), blending(), depthMode(), engine::CullFace::DISABLED,
                                                attributes());
    RenderPipelineStateWithDepth pipeline;
    pipeline.depthState = SceneUtils::makeDepthState(*state.depthMode);
    pipeline.renderPipelineState = SceneUtils::makePipelineState(gl, state, functions);
    pipeline.cullMode = SceneUtils::cullMode(state.culling);
    return pipeline;
}

} // namespace renderer::passes
