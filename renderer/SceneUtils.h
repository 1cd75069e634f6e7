#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/Blending.h"
#include "engine/BlendingEquation.h"
#include "engine/BlendingFactor.h"
#include "engine/CullFace.h"
#include "engine/DepthMode.h"
#include "engine/Texture.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/VertexFormat.h"
#include "engine/commands/DrawMeshState.h"
#include "engine/commands/PrimitiveType.h"
#include "renderer/ShaderFunctions.h"
#include "renderer/gl/Gl.h"
#include "renderer/gpu/BlendState.h"
#include "renderer/gpu/CullMode.h"
#include "renderer/gpu/DepthStencilState.h"
#include "renderer/gpu/RenderPipelineState.h"
#include "renderer/gpu/VertexLayout.h"

namespace renderer {

/// Turns the engine's portable descriptions ("LINEAR", "BACK", "FLOAT3") into GL objects and
/// values. Every mapping is total over the engine's constants except where noted; a value that a
/// table lacks stops the process.
class SceneUtils {
public:
    SceneUtils() = delete;

    /// Colour format of every pass that draws the scene.
    static constexpr GLenum COLOR_FORMAT = GL_RGBA8;
    /// Depth format of those passes.
    static constexpr GLenum DEPTH_FORMAT = GL_DEPTH_COMPONENT32F;
    /// Samples of those passes.
    static constexpr int SAMPLE_COUNT = 4;

    /// DISABLED -> NONE, FRONT -> FRONT, BACK -> BACK. FRONT_AND_BACK has no entry: a stop.
    static gpu::CullMode cullMode(engine::CullFace face);
    /// ADD, SUBTRACT, REVERSE_SUBTRACT -> GL_FUNC_ADD, GL_FUNC_SUBTRACT, GL_FUNC_REVERSE_SUBTRACT.
    static GLenum blendOperation(engine::BlendingEquation equation);
    /// The fifteen factors onto their GL namesakes (CONSTANT_COLOR -> GL_CONSTANT_COLOR, ...).
    static GLenum blendFactor(engine::BlendingFactor factor);
    /// A vertex format as GL reads it: components, component type, normalised, read as integers.
    /// The location and offset of the result are 0.
    static gpu::VertexLayout::Attribute vertexFormat(engine::VertexFormat format);
    /// By ordinal: TRIANGLES -> GL_TRIANGLES, TRIANGLE_STRIP -> GL_TRIANGLE_STRIP, POINTS ->
    /// GL_POINTS; any other ordinal is a triangle list, not a stop.
    static GLenum primitiveType(engine::commands::PrimitiveType type);

    /// Compare GL_LESS when `depthTest`, else GL_ALWAYS; depth writes as `depthWrite`. A new
    /// object at each call.
    static std::shared_ptr<gpu::DepthStencilState> makeDepthState(const engine::DepthMode& depthMode);
    /// Attribute i of the layout is the i-th entry, at location i, with the entry's format and
    /// offset; the entry's own `index` and `type` play no part. One interleaved buffer.
    static gpu::VertexLayout makeVertexDescriptor(const engine::VertexAttributesDescriptor& attributes);
    /// The colour attachment's blending: enabled as `blending.enabled`; the RGB operation and
    /// factors from the colour fields; the alpha ones from the alpha fields when
    /// `isSeparateAlpha`, else from the colour fields. The tables are consulted also when
    /// blending is off.
    static gpu::BlendState applyBlending(const engine::Blending& blending);

    /// The pipeline of a draw in a 4-sample pass with a depth attachment: the program of
    /// `functions`, the state's vertex layout (none where the state has none), its blending. A
    /// program that does not build stops the process with "Cannot create render pipeline
    /// state: " and the compiler's words.
    static std::shared_ptr<gpu::RenderPipelineState> makePipelineState(gl::Gl& gl,
                                                                       const engine::commands::DrawMeshState& state,
                                                                       ShaderFunctions& functions,
                                                                       std::optional<std::string> label = std::nullopt);
    /// The same for an off-screen pass of `sampleCount` samples without a depth attachment.
    static std::shared_ptr<gpu::RenderPipelineState> makeOffscreenPipelineState(
        gl::Gl& gl, const engine::commands::DrawMeshState& state, ShaderFunctions& functions,
        const std::string& label, int sampleCount);

    /// The sampler of a texture description. Minification and magnification filters are nearest
    /// or linear by the name of `minFilter` and `magFilter`; with `mipmaps` above 0 the mip
    /// filter comes from the name of `magFilter` (not `minFilter`): "*_MIPMAP_NEAREST" nearest,
    /// "*_MIPMAP_LINEAR" linear, a plain name none. `anisotropy` 2 and above sets the largest
    /// anisotropy where the context offers it. Wrapping on both axes by `wrapping`. A sampler
    /// that cannot be made stops the process with "Cannot create sampler state.".
    static GLuint makeSampler(gl::Gl& gl, const engine::Texture& texture);
};

} // namespace renderer
