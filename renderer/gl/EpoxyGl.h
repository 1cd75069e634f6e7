#pragma once

#include "renderer/gl/Gl.h"

namespace renderer::gl {

/// `Gl` on the OpenGL context that is current on the calling thread, with functions loaded by
/// libepoxy. Uploads go through a texture unit of their own (the last one the context has) and
/// through GL_COPY_WRITE_BUFFER, so they leave the bindings that drawing uses alone.
class EpoxyGl final : public Gl {
public:
    /// Binds to the context current now; it must be OpenGL 3.3 core or newer.
    EpoxyGl();

    bool hasExtension(std::string_view name) const override;
    int version() const override;
    GLenum getError() override;
    void finish() override;

    GLuint createBuffer(GLenum target, std::span<const std::byte> data) override;
    void deleteBuffer(GLuint buffer) override;
    void bindBuffer(GLenum target, GLuint buffer) override;

    GLuint createTexture() override;
    void deleteTexture(GLuint texture) override;
    void texImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width, GLsizei height,
                    GLenum format, GLenum type, const void* pixels) override;
    void compressedTexImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width, GLsizei height,
                              std::span<const std::byte> data) override;
    void texParameteri(GLuint texture, GLenum name, GLint value) override;
    void bindTexture(GLuint unit, GLuint texture) override;

    GLuint createSampler() override;
    void deleteSampler(GLuint sampler) override;
    void samplerParameteri(GLuint sampler, GLenum name, GLint value) override;
    void samplerParameterf(GLuint sampler, GLenum name, GLfloat value) override;
    void bindSampler(GLuint unit, GLuint sampler) override;

    GLuint createProgram(std::string_view vertexSource, std::string_view fragmentSource,
                         std::string& log) override;
    void deleteProgram(GLuint program) override;
    GLint uniformLocation(GLuint program, const char* name) override;
    void useProgram(GLuint program) override;
    void uniformFloats(GLint location, int components, GLsizei count, const GLfloat* values) override;
    void uniformInts(GLint location, int components, GLsizei count, const GLint* values) override;

    GLuint createVertexArray() override;
    void deleteVertexArray(GLuint vertexArray) override;
    void bindVertexArray(GLuint vertexArray) override;
    void enableVertexAttribArray(GLuint index) override;
    void vertexAttribPointer(GLuint index, GLint size, GLenum type, bool normalized, GLsizei stride,
                             std::size_t offset) override;
    void vertexAttribIPointer(GLuint index, GLint size, GLenum type, GLsizei stride, std::size_t offset) override;

    GLuint createFramebuffer() override;
    void deleteFramebuffer(GLuint framebuffer) override;
    void bindFramebuffer(GLenum target, GLuint framebuffer) override;
    void framebufferTexture(GLuint framebuffer, GLenum attachment, GLuint texture) override;
    void framebufferRenderbuffer(GLuint framebuffer, GLenum attachment, GLuint renderbuffer) override;
    GLenum checkFramebufferStatus(GLuint framebuffer) override;
    GLuint createRenderbuffer(GLsizei samples, GLenum internalFormat, GLsizei width, GLsizei height) override;
    void deleteRenderbuffer(GLuint renderbuffer) override;
    void blitFramebuffer(GLint srcX0, GLint srcY0, GLint srcX1, GLint srcY1, GLint dstX0, GLint dstY0, GLint dstX1,
                         GLint dstY1, GLbitfield mask, GLenum filter) override;
    void invalidateFramebuffer(GLenum target, std::span<const GLenum> attachments) override;
    void readPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type,
                    void* pixels) override;

    void viewport(GLint x, GLint y, GLsizei width, GLsizei height) override;
    void clearColor(GLfloat red, GLfloat green, GLfloat blue, GLfloat alpha) override;
    void clearDepth(GLdouble depth) override;
    void clear(GLbitfield mask) override;
    void enable(GLenum capability) override;
    void disable(GLenum capability) override;
    void blendEquationSeparate(GLenum modeColor, GLenum modeAlpha) override;
    void blendFuncSeparate(GLenum sourceColor, GLenum destinationColor, GLenum sourceAlpha,
                           GLenum destinationAlpha) override;
    void depthFunc(GLenum function) override;
    void depthMask(bool write) override;
    void cullFace(GLenum mode) override;
    void frontFace(GLenum mode) override;

    void drawElements(GLenum mode, GLsizei count, GLenum type, std::size_t offset) override;
    void drawArrays(GLenum mode, GLint first, GLsizei count) override;

    GLuint createQuery() override;
    void deleteQuery(GLuint query) override;
    void beginTimeQuery(GLuint query) override;
    void endTimeQuery() override;
    std::uint64_t timeQueryResult(GLuint query) override;

private:
    /// Makes `unit` the active texture unit.
    void activeTexture(GLuint unit);
    /// Binds `texture` on the upload unit, where loading cannot disturb a draw's bindings.
    void bindForUpload(GLuint texture);

    int version_ = 0;
    bool invalidateSupported_ = false;
    GLuint uploadUnit_ = 0;
};

} // namespace renderer::gl
