#pragma once

#include <epoxy/gl.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace renderer::gl {

/// The whole GPU interface of the renderer, in one narrow class: every OpenGL call that the
/// renderer and its loaders make goes through here. `EpoxyGl` forwards to a real OpenGL 3.3 core
/// context; the tests use a recording fake, so that walks, caches and the filtering of state
/// changes can be checked call by call without a GPU.
///
/// Object names and enumerations are the plain GL types and constants (`GL_TRIANGLES`,
/// `GL_RGBA8`, ...). Calls that only create or fill an object (buffers, textures, samplers,
/// renderbuffers, framebuffer attachments) never disturb the bindings that drawing relies on:
/// the vertex array, the array buffer and texture units 0 to 15 keep what they held. Names are
/// never 0 for a created object; 0 stands for "none" wherever a name is taken.
class Gl {
public:
    virtual ~Gl() = default;

    // ---- Context ---------------------------------------------------------------------------

    /// Whether the context offers the extension `name` (e.g. "GL_KHR_texture_compression_astc_ldr").
    virtual bool hasExtension(std::string_view name) const = 0;
    /// Version of the context as major * 10 + minor, e.g. 33 for OpenGL 3.3.
    virtual int version() const = 0;
    /// The oldest error flag, GL_NO_ERROR when there is none; clears that flag.
    virtual GLenum getError() = 0;
    /// Waits until the GPU has finished all work given so far (benchmarks and readback only).
    virtual void finish() = 0;

    // ---- Buffers ---------------------------------------------------------------------------

    /// A new buffer holding a copy of `data` (static draw). `target` says what it is for:
    /// GL_ARRAY_BUFFER for vertices, GL_ELEMENT_ARRAY_BUFFER for indices.
    virtual GLuint createBuffer(GLenum target, std::span<const std::byte> data) = 0;
    virtual void deleteBuffer(GLuint buffer) = 0;
    /// Binds `buffer` to `target`. An element array binding belongs to the bound vertex array.
    virtual void bindBuffer(GLenum target, GLuint buffer) = 0;

    // ---- Textures (all two-dimensional) ----------------------------------------------------

    virtual GLuint createTexture() = 0;
    virtual void deleteTexture(GLuint texture) = 0;
    /// Uploads one level of `texture`. `pixels` may be null to only allocate; rows are tightly
    /// packed (unpack alignment 1), the first row being the first in memory.
    virtual void texImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width, GLsizei height,
                            GLenum format, GLenum type, const void* pixels) = 0;
    /// Uploads one level of compressed blocks as they stand (ASTC where the driver has it).
    virtual void compressedTexImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width,
                                      GLsizei height, std::span<const std::byte> data) = 0;
    /// Sets an integer parameter of `texture`, e.g. GL_TEXTURE_MAX_LEVEL.
    virtual void texParameteri(GLuint texture, GLenum name, GLint value) = 0;
    /// Binds `texture` (0 for none) to GL_TEXTURE_2D of texture unit `unit`.
    virtual void bindTexture(GLuint unit, GLuint texture) = 0;

    // ---- Samplers --------------------------------------------------------------------------

    virtual GLuint createSampler() = 0;
    virtual void deleteSampler(GLuint sampler) = 0;
    virtual void samplerParameteri(GLuint sampler, GLenum name, GLint value) = 0;
    virtual void samplerParameterf(GLuint sampler, GLenum name, GLfloat value) = 0;
    /// Binds `sampler` (0 for none) to texture unit `unit`.
    virtual void bindSampler(GLuint unit, GLuint sampler) = 0;

    // ---- Programs and uniforms -------------------------------------------------------------

    /// Compiles both stages and links them. Returns the program, or 0 with the compiler's or
    /// linker's words in `log` when either step fails.
    virtual GLuint createProgram(std::string_view vertexSource, std::string_view fragmentSource,
                                 std::string& log) = 0;
    virtual void deleteProgram(GLuint program) = 0;
    /// Location of the active uniform `name` in `program`, -1 where the program has none.
    virtual GLint uniformLocation(GLuint program, const char* name) = 0;
    virtual void useProgram(GLuint program) = 0;
    /// Sets float uniforms of the program in use: `components` 1 to 4 for float to vec4, 16 for
    /// mat4 (column-major); `count` elements of that type (count > 1 for arrays). A location of
    /// -1 is ignored, as GL does.
    virtual void uniformFloats(GLint location, int components, GLsizei count, const GLfloat* values) = 0;
    /// Sets integer uniforms of the program in use: `components` 1 to 4 for int to ivec4, or a
    /// sampler's texture unit with components 1.
    virtual void uniformInts(GLint location, int components, GLsizei count, const GLint* values) = 0;

    // ---- Vertex arrays ---------------------------------------------------------------------

    virtual GLuint createVertexArray() = 0;
    virtual void deleteVertexArray(GLuint vertexArray) = 0;
    virtual void bindVertexArray(GLuint vertexArray) = 0;
    virtual void enableVertexAttribArray(GLuint index) = 0;
    /// Points attribute `index` of the bound vertex array into the bound array buffer, read as
    /// floats (`normalized` for normalised integer formats).
    virtual void vertexAttribPointer(GLuint index, GLint size, GLenum type, bool normalized, GLsizei stride,
                                     std::size_t offset) = 0;
    /// The same for attributes that the shader reads as integers.
    virtual void vertexAttribIPointer(GLuint index, GLint size, GLenum type, GLsizei stride,
                                      std::size_t offset) = 0;

    // ---- Framebuffers ----------------------------------------------------------------------

    virtual GLuint createFramebuffer() = 0;
    virtual void deleteFramebuffer(GLuint framebuffer) = 0;
    /// Binds `framebuffer` (0 for the default one) to GL_FRAMEBUFFER, GL_DRAW_FRAMEBUFFER or
    /// GL_READ_FRAMEBUFFER.
    virtual void bindFramebuffer(GLenum target, GLuint framebuffer) = 0;
    /// Attaches level 0 of `texture` to `attachment` (GL_COLOR_ATTACHMENT0, GL_DEPTH_ATTACHMENT)
    /// of `framebuffer`. Leaves `framebuffer` bound as the draw framebuffer.
    virtual void framebufferTexture(GLuint framebuffer, GLenum attachment, GLuint texture) = 0;
    /// Attaches `renderbuffer` likewise; leaves `framebuffer` bound as the draw framebuffer.
    virtual void framebufferRenderbuffer(GLuint framebuffer, GLenum attachment, GLuint renderbuffer) = 0;
    /// GL_FRAMEBUFFER_COMPLETE or the reason why `framebuffer` is not; leaves it bound as the
    /// draw framebuffer.
    virtual GLenum checkFramebufferStatus(GLuint framebuffer) = 0;
    /// A renderbuffer of `samples` samples (0 for a single-sampled one).
    virtual GLuint createRenderbuffer(GLsizei samples, GLenum internalFormat, GLsizei width, GLsizei height) = 0;
    virtual void deleteRenderbuffer(GLuint renderbuffer) = 0;
    /// Copies, and resolves multisampled pixels, from the read to the draw framebuffer.
    virtual void blitFramebuffer(GLint srcX0, GLint srcY0, GLint srcX1, GLint srcY1, GLint dstX0, GLint dstY0,
                                 GLint dstX1, GLint dstY1, GLbitfield mask, GLenum filter) = 0;
    /// Tells the driver that the contents of `attachments` of the framebuffer bound to `target`
    /// are no longer needed. Does nothing where the context cannot do it.
    virtual void invalidateFramebuffer(GLenum target, std::span<const GLenum> attachments) = 0;
    /// Reads pixels of the read framebuffer, rows from the bottom up, tightly packed.
    virtual void readPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type,
                            void* pixels) = 0;

    // ---- Fixed-function state --------------------------------------------------------------

    virtual void viewport(GLint x, GLint y, GLsizei width, GLsizei height) = 0;
    virtual void clearColor(GLfloat red, GLfloat green, GLfloat blue, GLfloat alpha) = 0;
    virtual void clearDepth(GLdouble depth) = 0;
    /// Clears the buffers of `mask` of the draw framebuffer (subject to the write masks).
    virtual void clear(GLbitfield mask) = 0;
    /// Switches a capability on or off: GL_BLEND, GL_DEPTH_TEST, GL_CULL_FACE, ...
    virtual void enable(GLenum capability) = 0;
    virtual void disable(GLenum capability) = 0;
    virtual void blendEquationSeparate(GLenum modeColor, GLenum modeAlpha) = 0;
    virtual void blendFuncSeparate(GLenum sourceColor, GLenum destinationColor, GLenum sourceAlpha,
                                   GLenum destinationAlpha) = 0;
    virtual void depthFunc(GLenum function) = 0;
    virtual void depthMask(bool write) = 0;
    /// Which faces GL_CULL_FACE removes: GL_FRONT, GL_BACK.
    virtual void cullFace(GLenum mode) = 0;
    /// The winding of front faces: GL_CW or GL_CCW.
    virtual void frontFace(GLenum mode) = 0;

    // ---- Drawing ---------------------------------------------------------------------------

    /// Draws `count` indices of the element array buffer of the bound vertex array, from byte
    /// `offset` on.
    virtual void drawElements(GLenum mode, GLsizei count, GLenum type, std::size_t offset) = 0;
    virtual void drawArrays(GLenum mode, GLint first, GLsizei count) = 0;

    // ---- Timer queries ---------------------------------------------------------------------

    virtual GLuint createQuery() = 0;
    virtual void deleteQuery(GLuint query) = 0;
    /// Starts measuring GPU time (GL_TIME_ELAPSED) into `query`; one query runs at a time.
    virtual void beginTimeQuery(GLuint query) = 0;
    virtual void endTimeQuery() = 0;
    /// Nanoseconds measured by `query`, waiting for the result.
    virtual std::uint64_t timeQueryResult(GLuint query) = 0;
};

} // namespace renderer::gl
