#pragma once

#include <memory>

#include "renderer/gpu/CullMode.h"
#include "renderer/gpu/DepthStencilState.h"
#include "renderer/gpu/RenderPipelineState.h"

namespace renderer {

/// The three things that a draw state needs on an encoder: its pipeline, its depth state and
/// its cull mode.
class RenderPipelineStateWithDepth {
public:
    std::shared_ptr<gpu::RenderPipelineState> renderPipelineState;
    std::shared_ptr<gpu::DepthStencilState> depthState;
    gpu::CullMode cullMode = gpu::CullMode::NONE;
};

} // namespace renderer
