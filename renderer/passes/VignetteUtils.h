#pragma once

#include <memory>

#include "engine/Blending.h"
#include "engine/DepthMode.h"
#include "engine/Shader.h"
#include "engine/VertexAttributesDescriptor.h"
#include "renderer/RenderPipelineStateWithDepth.h"
#include "renderer/ShaderFunctions.h"
#include "renderer/gl/Gl.h"

namespace renderer::passes {

/// The constant descriptions of the vignette, each made once at first use, and the builder of
/// its pipeline. The vignette is one fixed mesh ("models/vignette-round-vntao" at the top of the
/// resources) whose colour is multiplied over the picture: the blending makes source times
/// destination.
class VignetteUtils {
public:
    VignetteUtils() = delete;

    /// The model name of the vignette mesh.
    static constexpr const char* MODEL_NAME = "models/vignette-round-vntao";

    /// A shader with an empty name, named "Vignette" when the pipeline is built.
    static const std::shared_ptr<engine::Shader>& shader();
    /// Enabled, colour equation ADD, source factor ZERO, destination factor SRC_COLOR, alpha not
    /// separate.
    static const std::shared_ptr<engine::Blending>& blending();
    /// Neither test nor write.
    static const std::shared_ptr<engine::DepthMode>& depthMode();
    /// `vertex` as HALF2 at 0, `ao` as UBYTE_NORMALIZED at 6, stride 8.
    static const std::shared_ptr<engine::VertexAttributesDescriptor>& attributes();

    /// The vignette's pipeline for the 4-sample main pass, with its depth state and the cull
    /// mode of DISABLED.
    static RenderPipelineStateWithDepth makePipeline(gl::Gl& gl, ShaderFunctions& functions);
};

} // namespace renderer::passes
