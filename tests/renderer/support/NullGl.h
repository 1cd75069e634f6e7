#pragma once

#include "renderer/gl/Gl.h"

namespace renderer::test {

/// A `gl::Gl` that does nothing and remembers nothing, so that it allocates nothing either:
/// the sink for measuring what the renderer itself costs (allocations, CPU time). Created
/// objects get increasing names; every query answers as a complete, error-free OpenGL 3.3
/// context would.
class NullGl final : public gl::Gl {
public:
    bool hasExtension(std::string_view) const override { return false; }
    int version() const override { return 33; }
    GLenum getError() override { return GL_NO_ERROR; }
    void finish() override {}
    GLuint createBuffer(GLenum, std::span<const std::byte>) override { return ++next_; }
    void deleteBuffer(GLuint) override {}
    void bindBuffer(GLenum, GLuint) override {}
    GLuint createTexture() override { return ++next_; }
    void deleteTexture(GLuint) override {}
    void texImage2D(GLuint, GLint, GLenum, GLsizei, GLsizei, GLenum, GLenum, const void*) override {}
    void compressedTexImage2D(GLuint, GLint, GLenum, GLsizei, GLsizei, std::span<const std::byte>) override {}
    void texParameteri(GLuint, GLenum, GLint) override {}
    void bindTexture(GLuint, GLuint) override {}
    GLuint createSampler() override { return ++next_; }
    void deleteSampler(GLuint) override {}
    void samplerParameteri(GLuint, GLenum, GLint) override {}
    void samplerParameterf(GLuint, GLenum, GLfloat) override {}
    void bindSampler(GLuint, GLuint) override {}
    GLuint createProgram(std::string_view, std::string_view, std::string&) override { return ++next_; }
    void deleteProgram(GLuint) override {}
    GLint uniformLocation(GLuint, const char*) override { return -1; }
    void useProgram(GLuint) override {}
    void uniformFloats(GLint, int, GLsizei, const GLfloat*) override {}
    void uniformInts(GLint, int, GLsizei, const GLint*) override {}
    GLuint createVertexArray() override { return ++next_; }
    void deleteVertexArray(GLuint) override {}
    void bindVertexArray(GLuint) override {}
    void enableVertexAttribArray(GLuint) override {}
    void vertexAttribPointer(GLuint, GLint, GLenum, bool, GLsizei, std::size_t) override {}
    void vertexAttribIPointer(GLuint, GLint, GLenum, GLsizei, std::size_t) override {}
    GLuint createFramebuffer() override { return ++next_; }
    void deleteFramebuffer(GLuint) override {}
    void bindFramebuffer(GLenum, GLuint) override {}
    void framebufferTexture(GLuint, GLenum, GLuint) override {}
    void framebufferRenderbuffer(GLuint, GLenum, GLuint) override {}
    GLenum checkFramebufferStatus(GLuint) override { return GL_FRAMEBUFFER_COMPLETE; }
    GLuint createRenderbuffer(GLsizei, GLenum, GLsizei, GLsizei) override { return ++next_; }
    void deleteRenderbuffer(GLuint) override {}
    void blitFramebuffer(GLint, GLint, GLint, GLint, GLint, GLint, GLint, GLint, GLbitfield, GLenum) override {}
    void invalidateFramebuffer(GLenum, std::span<const GLenum>) override {}
    void readPixels(GLint, GLint, GLsizei, GLsizei, GLenum, GLenum, void*) override {}
    void viewport(GLint, GLint, GLsizei, GLsizei) override {}
    void clearColor(GLfloat, GLfloat, GLfloat, GLfloat) override {}
    void clearDepth(GLdouble) override {}
    void clear(GLbitfield) override {}
    void enable(GLenum) override {}
    void disable(GLenum) override {}
    void blendEquationSeparate(GLenum, GLenum) override {}
    void blendFuncSeparate(GLenum, GLenum, GLenum, GLenum) override {}
    void depthFunc(GLenum) override {}
    void depthMask(bool) override {}
    void cullFace(GLenum) override {}
    void frontFace(GLenum) override {}
    void drawElements(GLenum, GLsizei, GLenum, std::size_t) override {}
    void drawArrays(GLenum, GLint, GLsizei) override {}
    GLuint createQuery() override { return ++next_; }
    void deleteQuery(GLuint) override {}
    void beginTimeQuery(GLuint) override {}
    void endTimeQuery() override {}
    std::uint64_t timeQueryResult(GLuint) override { return 0; }

private:
    GLuint next_ = 0;
};

} // namespace renderer::test
