#include "renderer/gl/EpoxyGl.h"

#include <string>

namespace renderer::gl {

namespace {

std::string shaderLog(GLuint shader) {
    GLint length = 0;
    glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    std::string log(static_cast<std::size_t>(length > 0 ? length : 0), '\0');
    if (length > 0) {
        glGetShaderInfoLog(shader, length, nullptr, log.data());
        log.resize(log.find('\0') == std::string::npos ? log.size() : log.find('\0'));
    }
    return log;
}

std::string programLog(GLuint program) {
    GLint length = 0;
    glGetProgramiv(program, GL_INFO_LOG_LENGTH, &length);
    std::string log(static_cast<std::size_t>(length > 0 ? length : 0), '\0');
    if (length > 0) {
        glGetProgramInfoLog(program, length, nullptr, log.data());
        log.resize(log.find('\0') == std::string::npos ? log.size() : log.find('\0'));
    }
    return log;
}

/// Compiles one stage; 0 and the compiler's words in `log` on failure.
GLuint compile(GLenum stage, std::string_view source, std::string& log) {
    GLuint shader = glCreateShader(stage);
    const GLchar* text = source.data();
    const GLint length = static_cast<GLint>(source.size());
    glShaderSource(shader, 1, &text, &length);
    glCompileShader(shader);
    GLint ok = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &ok);
    if (ok != GL_TRUE) {
        log = (stage == GL_VERTEX_SHADER ? "vertex stage: " : "fragment stage: ") + shaderLog(shader);
        glDeleteShader(shader);
        return 0;
    }
    return shader;
}

} // namespace

EpoxyGl::EpoxyGl() {
    version_ = epoxy_gl_version();
    invalidateSupported_ = version_ >= 43 || epoxy_has_gl_extension("GL_ARB_invalidate_subdata");
    GLint units = 0;
    glGetIntegerv(GL_MAX_COMBINED_TEXTURE_IMAGE_UNITS, &units);
    uploadUnit_ = units > 16 ? static_cast<GLuint>(units - 1) : 15u;
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
}

bool EpoxyGl::hasExtension(std::string_view name) const {
    return epoxy_has_gl_extension(std::string(name).c_str());
}

int EpoxyGl::version() const { return version_; }

GLenum EpoxyGl::getError() { return glGetError(); }

void EpoxyGl::finish() { glFinish(); }

// ---- Renderer name (the quality setting's AUTO) ----

std::string EpoxyGl::rendererName() const {
    const auto* name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    return name != nullptr ? std::string(name) : std::string();
}

GLuint EpoxyGl::createBuffer(GLenum target, std::span<const std::byte> data) {
    (void)target; // every buffer is plain memory in GL; the copy target leaves draw bindings alone
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_COPY_WRITE_BUFFER, buffer);
    glBufferData(GL_COPY_WRITE_BUFFER, static_cast<GLsizeiptr>(data.size()), data.data(), GL_STATIC_DRAW);
    glBindBuffer(GL_COPY_WRITE_BUFFER, 0);
    return buffer;
}

void EpoxyGl::deleteBuffer(GLuint buffer) { glDeleteBuffers(1, &buffer); }

void EpoxyGl::bindBuffer(GLenum target, GLuint buffer) { glBindBuffer(target, buffer); }

GLuint EpoxyGl::createTexture() {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    bindForUpload(texture); // a name becomes a texture object only once it is bound
    return texture;
}

void EpoxyGl::deleteTexture(GLuint texture) { glDeleteTextures(1, &texture); }

void EpoxyGl::texImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width, GLsizei height,
                         GLenum format, GLenum type, const void* pixels) {
    bindForUpload(texture);
    glTexImage2D(GL_TEXTURE_2D, level, static_cast<GLint>(internalFormat), width, height, 0, format, type, pixels);
}

void EpoxyGl::compressedTexImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width,
                                   GLsizei height, std::span<const std::byte> data) {
    bindForUpload(texture);
    glCompressedTexImage2D(GL_TEXTURE_2D, level, internalFormat, width, height, 0,
                           static_cast<GLsizei>(data.size()), data.data());
}

void EpoxyGl::texParameteri(GLuint texture, GLenum name, GLint value) {
    bindForUpload(texture);
    glTexParameteri(GL_TEXTURE_2D, name, value);
}

void EpoxyGl::bindTexture(GLuint unit, GLuint texture) {
    activeTexture(unit);
    glBindTexture(GL_TEXTURE_2D, texture);
}

GLuint EpoxyGl::createSampler() {
    GLuint sampler = 0;
    glGenSamplers(1, &sampler);
    return sampler;
}

void EpoxyGl::deleteSampler(GLuint sampler) { glDeleteSamplers(1, &sampler); }

void EpoxyGl::samplerParameteri(GLuint sampler, GLenum name, GLint value) {
    glSamplerParameteri(sampler, name, value);
}

void EpoxyGl::samplerParameterf(GLuint sampler, GLenum name, GLfloat value) {
    glSamplerParameterf(sampler, name, value);
}

void EpoxyGl::bindSampler(GLuint unit, GLuint sampler) { glBindSampler(unit, sampler); }

GLuint EpoxyGl::createProgram(std::string_view vertexSource, std::string_view fragmentSource, std::string& log) {
    GLuint vertex = compile(GL_VERTEX_SHADER, vertexSource, log);
    if (vertex == 0) {
        return 0;
    }
    GLuint fragment = compile(GL_FRAGMENT_SHADER, fragmentSource, log);
    if (fragment == 0) {
        glDeleteShader(vertex);
        return 0;
    }
    GLuint program = glCreateProgram();
    glAttachShader(program, vertex);
    glAttachShader(program, fragment);
    glLinkProgram(program);
    glDetachShader(program, vertex);
    glDetachShader(program, fragment);
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    GLint ok = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &ok);
    if (ok != GL_TRUE) {
        log = "link: " + programLog(program);
        glDeleteProgram(program);
        return 0;
    }
    return program;
}

void EpoxyGl::deleteProgram(GLuint program) { glDeleteProgram(program); }

GLint EpoxyGl::uniformLocation(GLuint program, const char* name) { return glGetUniformLocation(program, name); }

void EpoxyGl::useProgram(GLuint program) { glUseProgram(program); }

void EpoxyGl::uniformFloats(GLint location, int components, GLsizei count, const GLfloat* values) {
    switch (components) {
    case 1: glUniform1fv(location, count, values); break;
    case 2: glUniform2fv(location, count, values); break;
    case 3: glUniform3fv(location, count, values); break;
    case 4: glUniform4fv(location, count, values); break;
    case 16: glUniformMatrix4fv(location, count, GL_FALSE, values); break;
    default: break;
    }
}

void EpoxyGl::uniformInts(GLint location, int components, GLsizei count, const GLint* values) {
    switch (components) {
    case 1: glUniform1iv(location, count, values); break;
    case 2: glUniform2iv(location, count, values); break;
    case 3: glUniform3iv(location, count, values); break;
    case 4: glUniform4iv(location, count, values); break;
    default: break;
    }
}

GLuint EpoxyGl::createVertexArray() {
    GLuint vertexArray = 0;
    glGenVertexArrays(1, &vertexArray);
    return vertexArray;
}

void EpoxyGl::deleteVertexArray(GLuint vertexArray) { glDeleteVertexArrays(1, &vertexArray); }

void EpoxyGl::bindVertexArray(GLuint vertexArray) { glBindVertexArray(vertexArray); }

void EpoxyGl::enableVertexAttribArray(GLuint index) { glEnableVertexAttribArray(index); }

void EpoxyGl::vertexAttribPointer(GLuint index, GLint size, GLenum type, bool normalized, GLsizei stride,
                                  std::size_t offset) {
    glVertexAttribPointer(index, size, type, normalized ? GL_TRUE : GL_FALSE, stride,
                          reinterpret_cast<const void*>(offset));
}

void EpoxyGl::vertexAttribIPointer(GLuint index, GLint size, GLenum type, GLsizei stride, std::size_t offset) {
    glVertexAttribIPointer(index, size, type, stride, reinterpret_cast<const void*>(offset));
}

GLuint EpoxyGl::createFramebuffer() {
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    return framebuffer;
}

void EpoxyGl::deleteFramebuffer(GLuint framebuffer) { glDeleteFramebuffers(1, &framebuffer); }

void EpoxyGl::bindFramebuffer(GLenum target, GLuint framebuffer) { glBindFramebuffer(target, framebuffer); }

void EpoxyGl::framebufferTexture(GLuint framebuffer, GLenum attachment, GLuint texture) {
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_DRAW_FRAMEBUFFER, attachment, GL_TEXTURE_2D, texture, 0);
}

void EpoxyGl::framebufferRenderbuffer(GLuint framebuffer, GLenum attachment, GLuint renderbuffer) {
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
    glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, attachment, GL_RENDERBUFFER, renderbuffer);
}

GLenum EpoxyGl::checkFramebufferStatus(GLuint framebuffer) {
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
    return glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER);
}

GLuint EpoxyGl::createRenderbuffer(GLsizei samples, GLenum internalFormat, GLsizei width, GLsizei height) {
    GLuint renderbuffer = 0;
    glGenRenderbuffers(1, &renderbuffer);
    glBindRenderbuffer(GL_RENDERBUFFER, renderbuffer);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, internalFormat, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
    return renderbuffer;
}

void EpoxyGl::deleteRenderbuffer(GLuint renderbuffer) { glDeleteRenderbuffers(1, &renderbuffer); }

void EpoxyGl::blitFramebuffer(GLint srcX0, GLint srcY0, GLint srcX1, GLint srcY1, GLint dstX0, GLint dstY0,
                              GLint dstX1, GLint dstY1, GLbitfield mask, GLenum filter) {
    glBlitFramebuffer(srcX0, srcY0, srcX1, srcY1, dstX0, dstY0, dstX1, dstY1, mask, filter);
}

void EpoxyGl::invalidateFramebuffer(GLenum target, std::span<const GLenum> attachments) {
    if (invalidateSupported_ && !attachments.empty()) {
        glInvalidateFramebuffer(target, static_cast<GLsizei>(attachments.size()), attachments.data());
    }
}

void EpoxyGl::readPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type,
                         void* pixels) {
    glReadPixels(x, y, width, height, format, type, pixels);
}

void EpoxyGl::viewport(GLint x, GLint y, GLsizei width, GLsizei height) { glViewport(x, y, width, height); }

void EpoxyGl::clearColor(GLfloat red, GLfloat green, GLfloat blue, GLfloat alpha) {
    glClearColor(red, green, blue, alpha);
}

void EpoxyGl::clearDepth(GLdouble depth) { glClearDepth(depth); }

void EpoxyGl::clear(GLbitfield mask) { glClear(mask); }

void EpoxyGl::enable(GLenum capability) { glEnable(capability); }

void EpoxyGl::disable(GLenum capability) { glDisable(capability); }

void EpoxyGl::blendEquationSeparate(GLenum modeColor, GLenum modeAlpha) {
    glBlendEquationSeparate(modeColor, modeAlpha);
}

void EpoxyGl::blendFuncSeparate(GLenum sourceColor, GLenum destinationColor, GLenum sourceAlpha,
                                GLenum destinationAlpha) {
    glBlendFuncSeparate(sourceColor, destinationColor, sourceAlpha, destinationAlpha);
}

void EpoxyGl::depthFunc(GLenum function) { glDepthFunc(function); }

void EpoxyGl::depthMask(bool write) { glDepthMask(write ? GL_TRUE : GL_FALSE); }

void EpoxyGl::cullFace(GLenum mode) { glCullFace(mode); }

void EpoxyGl::frontFace(GLenum mode) { glFrontFace(mode); }

void EpoxyGl::drawElements(GLenum mode, GLsizei count, GLenum type, std::size_t offset) {
    glDrawElements(mode, count, type, reinterpret_cast<const void*>(offset));
}

void EpoxyGl::drawArrays(GLenum mode, GLint first, GLsizei count) { glDrawArrays(mode, first, count); }

GLuint EpoxyGl::createQuery() {
    GLuint query = 0;
    glGenQueries(1, &query);
    return query;
}

void EpoxyGl::deleteQuery(GLuint query) { glDeleteQueries(1, &query); }

void EpoxyGl::beginTimeQuery(GLuint query) { glBeginQuery(GL_TIME_ELAPSED, query); }

void EpoxyGl::endTimeQuery() { glEndQuery(GL_TIME_ELAPSED); }

std::uint64_t EpoxyGl::timeQueryResult(GLuint query) {
    GLuint64 nanoseconds = 0;
    glGetQueryObjectui64v(query, GL_QUERY_RESULT, &nanoseconds);
    return nanoseconds;
}

void EpoxyGl::activeTexture(GLuint unit) {
    // Not cached: a host may share the context and move the active unit between frames.
    glActiveTexture(GL_TEXTURE0 + unit);
}

void EpoxyGl::bindForUpload(GLuint texture) {
    activeTexture(uploadUnit_);
    glBindTexture(GL_TEXTURE_2D, texture);
}

// ---- Program binaries, for the program binary cache -----------------------------------------

void EpoxyGl::driverName(std::string& name) const {
    auto text = [](GLenum which) {
        const GLubyte* value = glGetString(which);
        return value != nullptr ? std::string(reinterpret_cast<const char*>(value)) : std::string();
    };
    name = text(GL_VENDOR) + " / " + text(GL_RENDERER) + " / " + text(GL_VERSION);
}

GLint EpoxyGl::programBinaryFormats() const {
    if (version_ < 41 && !epoxy_has_gl_extension("GL_ARB_get_program_binary")) {
        return 0;
    }
    GLint formats = 0;
    glGetIntegerv(GL_NUM_PROGRAM_BINARY_FORMATS, &formats);
    return formats;
}

bool EpoxyGl::programBinary(GLuint program, GLenum& format, std::vector<std::byte>& binary) {
    GLint length = 0;
    glGetProgramiv(program, GL_PROGRAM_BINARY_LENGTH, &length);
    if (length <= 0) {
        return false;
    }
    binary.resize(static_cast<std::size_t>(length));
    GLsizei written = 0;
    glGetProgramBinary(program, length, &written, &format, binary.data());
    binary.resize(static_cast<std::size_t>(written > 0 ? written : 0));
    return !binary.empty();
}

GLuint EpoxyGl::createProgramFromBinary(GLenum format, std::span<const std::byte> binary) {
    const GLuint program = glCreateProgram();
    glProgramBinary(program, format, binary.data(), static_cast<GLsizei>(binary.size()));
    GLint ok = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &ok);
    // A format the driver does not know raises GL_INVALID_ENUM; the program then simply failed.
    while (glGetError() != GL_NO_ERROR) {
    }
    if (ok != GL_TRUE) {
        glDeleteProgram(program);
        return 0;
    }
    return program;
}

} // namespace renderer::gl
