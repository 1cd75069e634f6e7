#include "renderer/SceneUtils.h"

#include "renderer/Fatal.h"

namespace renderer {

namespace {

[[noreturn]] void unknown(std::string_view table, std::string_view name) {
    Fatal::stop("Unknown " + std::string(table) + " " + (name.empty() ? std::string("value") : std::string(name)));
}

/// Nearest or linear by the name's minification/magnification part.
GLenum minMagFilter(engine::TextureFiltering filter) {
    switch (filter) {
    case engine::TextureFiltering::NEAREST:
    case engine::TextureFiltering::NEAREST_MIPMAP_NEAREST:
    case engine::TextureFiltering::NEAREST_MIPMAP_LINEAR:
        return GL_NEAREST;
    case engine::TextureFiltering::LINEAR:
    case engine::TextureFiltering::LINEAR_MIPMAP_NEAREST:
    case engine::TextureFiltering::LINEAR_MIPMAP_LINEAR:
        return GL_LINEAR;
    }
    unknown("TextureFiltering", engine::toString(filter));
}

enum class MipFilter { NONE, NEAREST, LINEAR };

MipFilter mipFilter(engine::TextureFiltering filter) {
    switch (filter) {
    case engine::TextureFiltering::NEAREST_MIPMAP_NEAREST:
    case engine::TextureFiltering::LINEAR_MIPMAP_NEAREST:
        return MipFilter::NEAREST;
    case engine::TextureFiltering::NEAREST_MIPMAP_LINEAR:
    case engine::TextureFiltering::LINEAR_MIPMAP_LINEAR:
        return MipFilter::LINEAR;
    default:
        return MipFilter::NONE;
    }
}

std::shared_ptr<gpu::RenderPipelineState> buildPipeline(gl::Gl& gl, const engine::commands::DrawMeshState& state,
                                                        ShaderFunctions& functions, std::string label,
                                                        int sampleCount, bool depthAttachment) {
    std::string log;
    auto program = functions.program(gl, log);
    if (!program) {
        Fatal::stop("Cannot create render pipeline state: " + log);
    }
    std::optional<gpu::VertexLayout> layout;
    if (state.vertexAttributes) {
        layout = SceneUtils::makeVertexDescriptor(*state.vertexAttributes);
    }
    const gpu::BlendState blend =
        SceneUtils::applyBlending(state.blending ? *state.blending : *engine::BLENDING_NONE);
    return std::make_shared<gpu::RenderPipelineState>(gl, std::move(program), std::move(layout), blend, sampleCount,
                                                      depthAttachment, std::move(label));
}

} // namespace

gpu::CullMode SceneUtils::cullMode(engine::CullFace face) {
    switch (face) {
    case engine::CullFace::DISABLED: return gpu::CullMode::NONE;
    case engine::CullFace::FRONT: return gpu::CullMode::FRONT;
    case engine::CullFace::BACK: return gpu::CullMode::BACK;
    default: unknown("CullFace", engine::toString(face));
    }
}

GLenum SceneUtils::blendOperation(engine::BlendingEquation equation) {
    switch (equation) {
    case engine::BlendingEquation::ADD: return GL_FUNC_ADD;
    case engine::BlendingEquation::SUBTRACT: return GL_FUNC_SUBTRACT;
    case engine::BlendingEquation::REVERSE_SUBTRACT: return GL_FUNC_REVERSE_SUBTRACT;
    }
    unknown("BlendingEquation", engine::toString(equation));
}

GLenum SceneUtils::blendFactor(engine::BlendingFactor factor) {
    using F = engine::BlendingFactor;
    switch (factor) {
    case F::ZERO: return GL_ZERO;
    case F::ONE: return GL_ONE;
    case F::SRC_COLOR: return GL_SRC_COLOR;
    case F::ONE_MINUS_SRC_COLOR: return GL_ONE_MINUS_SRC_COLOR;
    case F::DST_COLOR: return GL_DST_COLOR;
    case F::ONE_MINUS_DST_COLOR: return GL_ONE_MINUS_DST_COLOR;
    case F::SRC_ALPHA: return GL_SRC_ALPHA;
    case F::ONE_MINUS_SRC_ALPHA: return GL_ONE_MINUS_SRC_ALPHA;
    case F::DST_ALPHA: return GL_DST_ALPHA;
    case F::ONE_MINUS_DST_ALPHA: return GL_ONE_MINUS_DST_ALPHA;
    case F::CONSTANT_COLOR: return GL_CONSTANT_COLOR;
    case F::ONE_MINUS_CONSTANT_COLOR: return GL_ONE_MINUS_CONSTANT_COLOR;
    case F::CONSTANT_ALPHA: return GL_CONSTANT_ALPHA;
    case F::ONE_MINUS_CONSTANT_ALPHA: return GL_ONE_MINUS_CONSTANT_ALPHA;
    case F::SRC_ALPHA_SATURATE: return GL_SRC_ALPHA_SATURATE;
    }
    unknown("BlendingFactor", engine::toString(factor));
}

gpu::VertexLayout::Attribute SceneUtils::vertexFormat(engine::VertexFormat format) {
    if (engine::toString(format).empty()) {
        unknown("VertexFormat", {});
    }
    gpu::VertexLayout::Attribute attribute;
    attribute.size = engine::componentCount(format);
    switch (engine::componentType(format)) {
    case engine::VertexComponentType::UBYTE: attribute.type = GL_UNSIGNED_BYTE; break;
    case engine::VertexComponentType::BYTE: attribute.type = GL_BYTE; break;
    case engine::VertexComponentType::USHORT: attribute.type = GL_UNSIGNED_SHORT; break;
    case engine::VertexComponentType::SHORT: attribute.type = GL_SHORT; break;
    case engine::VertexComponentType::HALF: attribute.type = GL_HALF_FLOAT; break;
    case engine::VertexComponentType::FLOAT: attribute.type = GL_FLOAT; break;
    case engine::VertexComponentType::UINT: attribute.type = GL_UNSIGNED_INT; break;
    case engine::VertexComponentType::INT: attribute.type = GL_INT; break;
    case engine::VertexComponentType::INT_2_10_10_10: attribute.type = GL_INT_2_10_10_10_REV; break;
    case engine::VertexComponentType::UINT_2_10_10_10: attribute.type = GL_UNSIGNED_INT_2_10_10_10_REV; break;
    }
    attribute.normalized = engine::isNormalized(format);
    attribute.integer = engine::isInteger(format);
    return attribute;
}

GLenum SceneUtils::primitiveType(engine::commands::PrimitiveType type) {
    switch (static_cast<int>(type)) {
    case 1: return GL_TRIANGLE_STRIP;
    case 2: return GL_POINTS;
    default: return GL_TRIANGLES;
    }
}

std::shared_ptr<gpu::DepthStencilState> SceneUtils::makeDepthState(const engine::DepthMode& depthMode) {
    return std::make_shared<gpu::DepthStencilState>(depthMode.depthTest ? GL_LESS : GL_ALWAYS, depthMode.depthWrite);
}

gpu::VertexLayout SceneUtils::makeVertexDescriptor(const engine::VertexAttributesDescriptor& attributes) {
    gpu::VertexLayout layout;
    layout.stride = attributes.stride();
    GLuint location = 0;
    for (const auto& entry : attributes.attributes()) {
        gpu::VertexLayout::Attribute attribute = vertexFormat(entry.format());
        attribute.location = location++;
        attribute.offset = static_cast<std::size_t>(entry.offset());
        layout.attributes.push_back(attribute);
    }
    return layout;
}

gpu::BlendState SceneUtils::applyBlending(const engine::Blending& blending) {
    gpu::BlendState blend;
    blend.enabled = blending.enabled;
    blend.rgbOperation = blendOperation(blending.equationColor);
    blend.alphaOperation = blendOperation(blending.isSeparateAlpha ? blending.equationAlpha : blending.equationColor);
    blend.sourceRGBFactor = blendFactor(blending.sourceFactorColor);
    blend.destinationRGBFactor = blendFactor(blending.destinationFactorColor);
    blend.sourceAlphaFactor =
        blendFactor(blending.isSeparateAlpha ? blending.sourceFactorAlpha : blending.sourceFactorColor);
    blend.destinationAlphaFactor =
        blendFactor(blending.isSeparateAlpha ? blending.destinationFactorAlpha : blending.destinationFactorColor);
    return blend;
}

std::shared_ptr<gpu::RenderPipelineState> SceneUtils::makePipelineState(gl::Gl& gl,
                                                                        const engine::commands::DrawMeshState& state,
                                                                        ShaderFunctions& functions,
                                                                        std::optional<std::string> label) {
    return buildPipeline(gl, state, functions, label.value_or(std::string{}), SAMPLE_COUNT, true);
}

std::shared_ptr<gpu::RenderPipelineState> SceneUtils::makeOffscreenPipelineState(
    gl::Gl& gl, const engine::commands::DrawMeshState& state, ShaderFunctions& functions, const std::string& label,
    int sampleCount) {
    return buildPipeline(gl, state, functions, label, sampleCount, false);
}

GLuint SceneUtils::makeSampler(gl::Gl& gl, const engine::Texture& texture) {
    const GLenum minFilter = minMagFilter(texture.minFilter);
    const GLenum magFilter = minMagFilter(texture.magFilter);
    const MipFilter mip = texture.mipmaps > 0 ? mipFilter(texture.magFilter) : MipFilter::NONE;
    GLenum glMinFilter = minFilter;
    if (mip == MipFilter::NEAREST) {
        glMinFilter = minFilter == GL_NEAREST ? GL_NEAREST_MIPMAP_NEAREST : GL_LINEAR_MIPMAP_NEAREST;
    } else if (mip == MipFilter::LINEAR) {
        glMinFilter = minFilter == GL_NEAREST ? GL_NEAREST_MIPMAP_LINEAR : GL_LINEAR_MIPMAP_LINEAR;
    }
    // A sampler that is told no wrapping clamps to the edge, as a fresh sampler description does.
    GLenum wrap = GL_CLAMP_TO_EDGE;
    switch (texture.wrapping) {
    case engine::TextureWrapping::REPEAT: wrap = GL_REPEAT; break;
    case engine::TextureWrapping::CLAMP_TO_EDGE: wrap = GL_CLAMP_TO_EDGE; break;
    case engine::TextureWrapping::MIRRORED_REPEAT: wrap = GL_MIRRORED_REPEAT; break;
    }

    const GLuint sampler = gl.createSampler();
    if (sampler == 0) {
        Fatal::stop("Cannot create sampler state.");
    }
    gl.samplerParameteri(sampler, GL_TEXTURE_MIN_FILTER, static_cast<GLint>(glMinFilter));
    gl.samplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, static_cast<GLint>(magFilter));
    if (texture.anisotropy >= 2 &&
        (gl.version() >= 46 || gl.hasExtension("GL_EXT_texture_filter_anisotropic") ||
         gl.hasExtension("GL_ARB_texture_filter_anisotropic"))) {
        gl.samplerParameterf(sampler, GL_TEXTURE_MAX_ANISOTROPY, static_cast<GLfloat>(texture.anisotropy));
    }
    gl.samplerParameteri(sampler, GL_TEXTURE_WRAP_S, static_cast<GLint>(wrap));
    gl.samplerParameteri(sampler, GL_TEXTURE_WRAP_T, static_cast<GLint>(wrap));
    return sampler;
}

} // namespace renderer
