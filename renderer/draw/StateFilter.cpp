#include "renderer/draw/StateFilter.h"

namespace renderer::draw {

void StateFilter::applyState(const std::shared_ptr<engine::commands::DrawMeshState>& state,
                             const RenderPipelineStateWithDepth& pipeline, gpu::RenderEncoder& encoder) {
    if (activeState != state) {
        encoder.setRenderPipelineState(*pipeline.renderPipelineState);
        if (activeDepthStencilState == nullptr || activeDepthStencilState != pipeline.depthState.get()) {
            encoder.setDepthStencilState(*pipeline.depthState);
        }
        activeDepthStencilState = pipeline.depthState.get();
        encoder.setCullMode(pipeline.cullMode);
    }
    activeState = state;
}

void StateFilter::bindFragmentTexture(int slot, GLuint texture, GLuint sampler, gpu::RenderEncoder& encoder) {
    const auto index = static_cast<std::size_t>(slot);
    if (activeFragmentSamplers[index] != sampler) {
        encoder.setFragmentSamplerState(slot, sampler);
    }
    if (activeFragmentTextures[index] != texture) {
        encoder.setFragmentTexture(slot, texture);
    }
    activeFragmentSamplers[index] = sampler;
    activeFragmentTextures[index] = texture;
}

void StateFilter::bindVertexTexture(int slot, GLuint texture, gpu::RenderEncoder& encoder) {
    const auto index = static_cast<std::size_t>(slot);
    if (activeVertexTextures[index] != texture) {
        encoder.setVertexTexture(slot, texture);
    }
    activeVertexTextures[index] = texture;
}

void StateFilter::forgetDepthAndSlots() {
    activeDepthStencilState = nullptr;
    resetBindingCaches();
}

void StateFilter::resetBindingCaches() {
    activeFragmentSamplers.fill(0);
    activeFragmentTextures.fill(0);
    activeVertexTextures.fill(0);
}

} // namespace renderer::draw
