// One file for the recording fake: each GL call records itself and keeps the piece of GL state
// that later calls and draws read back (bindings, programs, vertex arrays), so the calls depend
// on one another the way GL's do.
#include "tests/renderer/support/RecordingGl.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

namespace renderer::test {

namespace {

constexpr const char* CALL_NAMES[] = {
#define GL_METHOD(Result, name, parameters, arguments, qualifier) #name,
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD
};

/// Components and kind of a GLSL type name; false for types the fake does not know.
bool parseType(const std::string& type, bool& isFloat, int& components) {
    static const std::map<std::string, std::pair<bool, int>> TYPES = {
        {"float", {true, 1}}, {"vec2", {true, 2}}, {"vec3", {true, 3}}, {"vec4", {true, 4}},
        {"mat4", {true, 16}}, {"int", {false, 1}}, {"ivec2", {false, 2}}, {"ivec3", {false, 3}},
        {"ivec4", {false, 4}}, {"sampler2D", {false, 1}}, {"isampler2D", {false, 1}},
        {"usampler2D", {false, 1}},
    };
    auto it = TYPES.find(type);
    if (it == TYPES.end()) {
        return false;
    }
    isFloat = it->second.first;
    components = it->second.second;
    return true;
}

/// The `uniform <type> <name>;` and `uniform <type> <name>[<n>];` declarations of `source`.
std::vector<RecordingGl::UniformDecl> declarations(const std::string& source) {
    std::vector<RecordingGl::UniformDecl> found;
    std::istringstream words(source);
    std::string word;
    while (words >> word) {
        if (word != "uniform") {
            continue;
        }
        std::string type;
        std::string rest;
        if (!(words >> type >> rest)) {
            break;
        }
        RecordingGl::UniformDecl decl;
        const std::size_t end = rest.find_first_of("[;");
        decl.name = rest.substr(0, end);
        if (end != std::string::npos && rest[end] == '[') {
            decl.arraySize = std::stoi(rest.substr(end + 1));
        }
        if (!parseType(type, decl.isFloat, decl.components)) {
            ADD_FAILURE() << "uniform of unknown type " << type;
        }
        found.push_back(decl);
    }
    return found;
}

std::string number(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.9g", value);
    return buffer;
}

} // namespace

std::string toString(GlCall call) { return CALL_NAMES[static_cast<int>(call)]; }

std::string RecordedCall::toString() const {
    std::string text = test::toString(kind) + "(";
    for (std::size_t i = 0; i < args.size(); ++i) {
        text += (i == 0 ? "" : ", ") + number(args[i]);
    }
    return text + ")";
}

RecordingGl::RecordingGl() = default;

std::size_t RecordingGl::count(GlCall kind) const {
    std::size_t n = 0;
    for (const auto& call : calls) {
        n += call.kind == kind ? 1 : 0;
    }
    return n;
}

std::vector<std::string> RecordingGl::log(std::initializer_list<GlCall> kinds) const {
    std::vector<std::string> lines;
    for (const auto& call : calls) {
        for (GlCall kind : kinds) {
            if (call.kind == kind) {
                lines.push_back(call.toString());
                break;
            }
        }
    }
    return lines;
}

void RecordingGl::clearCalls() {
    calls.clear();
    draws.clear();
}

const std::vector<std::byte>& RecordingGl::bufferData(GLuint buffer) const {
    static const std::vector<std::byte> NONE;
    auto it = buffers_.find(buffer);
    return it == buffers_.end() ? NONE : it->second;
}

void RecordingGl::record(GlCall kind, std::vector<double> args) { calls.push_back({kind, std::move(args)}); }

GLuint RecordingGl::newName() { return nextName_++; }

RecordingGl::Program* RecordingGl::current() {
    auto it = programs_.find(program_);
    return it == programs_.end() ? nullptr : &it->second;
}

bool RecordingGl::hasExtension(std::string_view name) const {
    return extensions.count(std::string(name)) > 0;
}

int RecordingGl::version() const { return 33; }

GLenum RecordingGl::getError() {
    record(GlCall::getError, {});
    return GL_NO_ERROR;
}

void RecordingGl::finish() { record(GlCall::finish, {}); }

std::string RecordingGl::rendererName() const { return glRenderer; }

GLuint RecordingGl::createBuffer(GLenum target, std::span<const std::byte> data) {
    GLuint name = newName();
    buffers_[name].assign(data.begin(), data.end());
    record(GlCall::createBuffer, {double(target), double(data.size()), double(name)});
    return name;
}

void RecordingGl::deleteBuffer(GLuint buffer) {
    record(GlCall::deleteBuffer, {double(buffer)});
    if (buffers_.erase(buffer) == 0) {
        ADD_FAILURE() << "deleteBuffer of unknown buffer " << buffer;
    }
}

void RecordingGl::bindBuffer(GLenum target, GLuint buffer) {
    record(GlCall::bindBuffer, {double(target), double(buffer)});
    if (buffer != 0 && buffers_.count(buffer) == 0) {
        ADD_FAILURE() << "bindBuffer of unknown buffer " << buffer;
    }
    if (target == GL_ARRAY_BUFFER) {
        arrayBuffer_ = buffer;
    } else if (target == GL_ELEMENT_ARRAY_BUFFER) {
        if (vertexArray_ == 0) {
            ADD_FAILURE() << "element array buffer bound without a vertex array";
        } else {
            vertexArrays_[vertexArray_].elementBuffer = buffer;
        }
    }
}

GLuint RecordingGl::createTexture() {
    GLuint name = newName();
    textures_.insert(name);
    record(GlCall::createTexture, {double(name)});
    return name;
}

void RecordingGl::deleteTexture(GLuint texture) {
    record(GlCall::deleteTexture, {double(texture)});
    if (textures_.erase(texture) == 0) {
        ADD_FAILURE() << "deleteTexture of unknown texture " << texture;
    }
}

void RecordingGl::texImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width, GLsizei height,
                             GLenum format, GLenum type, const void* pixels) {
    record(GlCall::texImage2D, {double(texture), double(level), double(internalFormat), double(width),
                                double(height), double(format), double(type), pixels ? 1.0 : 0.0});
    if (textures_.count(texture) == 0) {
        ADD_FAILURE() << "texImage2D of unknown texture " << texture;
    }
}

void RecordingGl::compressedTexImage2D(GLuint texture, GLint level, GLenum internalFormat, GLsizei width,
                                       GLsizei height, std::span<const std::byte> data) {
    record(GlCall::compressedTexImage2D, {double(texture), double(level), double(internalFormat), double(width),
                                          double(height), double(data.size())});
    if (textures_.count(texture) == 0) {
        ADD_FAILURE() << "compressedTexImage2D of unknown texture " << texture;
    }
}

void RecordingGl::texParameteri(GLuint texture, GLenum name, GLint value) {
    record(GlCall::texParameteri, {double(texture), double(name), double(value)});
    if (textures_.count(texture) == 0) {
        ADD_FAILURE() << "texParameteri of unknown texture " << texture;
    }
}

void RecordingGl::bindTexture(GLuint unit, GLuint texture) {
    record(GlCall::bindTexture, {double(unit), double(texture)});
    if (unit >= 48 || (texture != 0 && textures_.count(texture) == 0)) {
        ADD_FAILURE() << "bindTexture of texture " << texture << " on unit " << unit;
    }
}

GLuint RecordingGl::createSampler() {
    GLuint name = newName();
    samplers_.insert(name);
    record(GlCall::createSampler, {double(name)});
    return name;
}

void RecordingGl::deleteSampler(GLuint sampler) {
    record(GlCall::deleteSampler, {double(sampler)});
    if (samplers_.erase(sampler) == 0) {
        ADD_FAILURE() << "deleteSampler of unknown sampler " << sampler;
    }
}

void RecordingGl::samplerParameteri(GLuint sampler, GLenum name, GLint value) {
    record(GlCall::samplerParameteri, {double(sampler), double(name), double(value)});
    if (samplers_.count(sampler) == 0) {
        ADD_FAILURE() << "samplerParameteri of unknown sampler " << sampler;
    }
}

void RecordingGl::samplerParameterf(GLuint sampler, GLenum name, GLfloat value) {
    record(GlCall::samplerParameterf, {double(sampler), double(name), double(value)});
    if (samplers_.count(sampler) == 0) {
        ADD_FAILURE() << "samplerParameterf of unknown sampler " << sampler;
    }
}

void RecordingGl::bindSampler(GLuint unit, GLuint sampler) {
    record(GlCall::bindSampler, {double(unit), double(sampler)});
    if (unit >= 48 || (sampler != 0 && samplers_.count(sampler) == 0)) {
        ADD_FAILURE() << "bindSampler of sampler " << sampler << " on unit " << unit;
    }
}

GLuint RecordingGl::createProgram(std::string_view vertexSource, std::string_view fragmentSource,
                                  std::string& log) {
    const std::string sources = std::string(vertexSource) + "\n" + std::string(fragmentSource);
    if (vertexSource.empty() || fragmentSource.empty() || sources.find("#error") != std::string::npos) {
        log = "compile error";
        record(GlCall::createProgram, {0.0});
        return 0;
    }
    GLuint name = newName();
    Program program;
    for (const UniformDecl& decl : declarations(sources)) {
        bool known = false;
        for (const auto& other : program.uniforms) {
            known = known || other.name == decl.name;
        }
        if (!known) {
            program.uniforms.push_back(decl);
        }
    }
    programs_[name] = std::move(program);
    record(GlCall::createProgram, {double(name)});
    return name;
}

void RecordingGl::deleteProgram(GLuint program) {
    record(GlCall::deleteProgram, {double(program)});
    if (programs_.erase(program) == 0) {
        ADD_FAILURE() << "deleteProgram of unknown program " << program;
    }
}

GLint RecordingGl::uniformLocation(GLuint program, const char* name) {
    record(GlCall::uniformLocation, {double(program)});
    auto it = programs_.find(program);
    if (it == programs_.end()) {
        ADD_FAILURE() << "uniformLocation in unknown program " << program;
        return -1;
    }
    for (std::size_t i = 0; i < it->second.uniforms.size(); ++i) {
        if (it->second.uniforms[i].name == name) {
            return static_cast<GLint>(i);
        }
    }
    return -1;
}

void RecordingGl::useProgram(GLuint program) {
    record(GlCall::useProgram, {double(program)});
    if (program != 0 && programs_.count(program) == 0) {
        ADD_FAILURE() << "useProgram of unknown program " << program;
    }
    program_ = program;
}

void RecordingGl::checkUniform(const char* call, GLint location, bool isFloat, int components, GLsizei count) {
    if (location < 0) {
        return;
    }
    Program* program = current();
    if (program == nullptr || static_cast<std::size_t>(location) >= program->uniforms.size()) {
        ADD_FAILURE() << call << " with no program in use or at a location it lacks: " << location;
        return;
    }
    const UniformDecl& decl = program->uniforms[static_cast<std::size_t>(location)];
    // Arrays take any count (GL drops what does not fit); a plain uniform takes one.
    if (decl.isFloat != isFloat || decl.components != components || (count > 1 && decl.arraySize == 1) ||
        count < 1) {
        ADD_FAILURE() << call << "(" << components << " x " << count << ") does not fit uniform " << decl.name;
    }
}

void RecordingGl::uniformFloats(GLint location, int components, GLsizei count, const GLfloat* values) {
    std::vector<double> args{double(location), double(components), double(count)};
    args.insert(args.end(), values, values + std::max(components * count, 0));
    record(GlCall::uniformFloats, std::move(args));
    checkUniform("uniformFloats", location, true, components, count);
}

void RecordingGl::uniformInts(GLint location, int components, GLsizei count, const GLint* values) {
    std::vector<double> args{double(location), double(components), double(count)};
    args.insert(args.end(), values, values + std::max(components * count, 0));
    record(GlCall::uniformInts, std::move(args));
    checkUniform("uniformInts", location, false, components, count);
}

GLuint RecordingGl::createVertexArray() {
    GLuint name = newName();
    vertexArrays_[name];
    record(GlCall::createVertexArray, {double(name)});
    return name;
}

void RecordingGl::deleteVertexArray(GLuint vertexArray) {
    record(GlCall::deleteVertexArray, {double(vertexArray)});
    if (vertexArrays_.erase(vertexArray) == 0) {
        ADD_FAILURE() << "deleteVertexArray of unknown vertex array " << vertexArray;
    }
    if (vertexArray_ == vertexArray) {
        vertexArray_ = 0;
    }
}

void RecordingGl::bindVertexArray(GLuint vertexArray) {
    record(GlCall::bindVertexArray, {double(vertexArray)});
    if (vertexArray != 0 && vertexArrays_.count(vertexArray) == 0) {
        ADD_FAILURE() << "bindVertexArray of unknown vertex array " << vertexArray;
    }
    vertexArray_ = vertexArray;
}

void RecordingGl::enableVertexAttribArray(GLuint index) {
    record(GlCall::enableVertexAttribArray, {double(index)});
    if (vertexArray_ == 0) {
        ADD_FAILURE() << "enableVertexAttribArray without a vertex array";
        return;
    }
    vertexArrays_[vertexArray_].enabled.insert(index);
}

void RecordingGl::vertexAttribPointer(GLuint index, GLint size, GLenum type, bool normalized, GLsizei stride,
                                      std::size_t offset) {
    record(GlCall::vertexAttribPointer,
           {double(index), double(size), double(type), normalized ? 1.0 : 0.0, double(stride), double(offset)});
    if (vertexArray_ == 0 || arrayBuffer_ == 0) {
        ADD_FAILURE() << "vertexAttribPointer without a vertex array or array buffer";
        return;
    }
    vertexArrays_[vertexArray_].pointed.insert(index);
}

void RecordingGl::vertexAttribIPointer(GLuint index, GLint size, GLenum type, GLsizei stride, std::size_t offset) {
    record(GlCall::vertexAttribIPointer, {double(index), double(size), double(type), double(stride), double(offset)});
    if (vertexArray_ == 0 || arrayBuffer_ == 0) {
        ADD_FAILURE() << "vertexAttribIPointer without a vertex array or array buffer";
        return;
    }
    vertexArrays_[vertexArray_].pointed.insert(index);
}

GLuint RecordingGl::createFramebuffer() {
    GLuint name = newName();
    framebuffers_.insert(name);
    record(GlCall::createFramebuffer, {double(name)});
    return name;
}

void RecordingGl::deleteFramebuffer(GLuint framebuffer) {
    record(GlCall::deleteFramebuffer, {double(framebuffer)});
    if (framebuffers_.erase(framebuffer) == 0) {
        ADD_FAILURE() << "deleteFramebuffer of unknown framebuffer " << framebuffer;
    }
}

void RecordingGl::bindFramebuffer(GLenum target, GLuint framebuffer) {
    record(GlCall::bindFramebuffer, {double(target), double(framebuffer)});
    if (framebuffer != 0 && framebuffers_.count(framebuffer) == 0) {
        ADD_FAILURE() << "bindFramebuffer of unknown framebuffer " << framebuffer;
    }
    if (target == GL_FRAMEBUFFER || target == GL_DRAW_FRAMEBUFFER) {
        drawFramebuffer_ = framebuffer;
    }
    if (target == GL_FRAMEBUFFER || target == GL_READ_FRAMEBUFFER) {
        readFramebuffer_ = framebuffer;
    }
}

void RecordingGl::framebufferTexture(GLuint framebuffer, GLenum attachment, GLuint texture) {
    record(GlCall::framebufferTexture, {double(framebuffer), double(attachment), double(texture)});
    if (framebuffers_.count(framebuffer) == 0 || (texture != 0 && textures_.count(texture) == 0)) {
        ADD_FAILURE() << "framebufferTexture with unknown objects " << framebuffer << ", " << texture;
        return;
    }
    drawFramebuffer_ = framebuffer;
}

void RecordingGl::framebufferRenderbuffer(GLuint framebuffer, GLenum attachment, GLuint renderbuffer) {
    record(GlCall::framebufferRenderbuffer, {double(framebuffer), double(attachment), double(renderbuffer)});
    if (framebuffers_.count(framebuffer) == 0 || (renderbuffer != 0 && renderbuffers_.count(renderbuffer) == 0)) {
        ADD_FAILURE() << "framebufferRenderbuffer with unknown objects " << framebuffer << ", " << renderbuffer;
        return;
    }
    drawFramebuffer_ = framebuffer;
}

GLenum RecordingGl::checkFramebufferStatus(GLuint framebuffer) {
    record(GlCall::checkFramebufferStatus, {double(framebuffer)});
    drawFramebuffer_ = framebuffer;
    return GL_FRAMEBUFFER_COMPLETE;
}

GLuint RecordingGl::createRenderbuffer(GLsizei samples, GLenum internalFormat, GLsizei width, GLsizei height) {
    GLuint name = newName();
    renderbuffers_.insert(name);
    record(GlCall::createRenderbuffer, {double(samples), double(internalFormat), double(width), double(height),
                                        double(name)});
    return name;
}

void RecordingGl::deleteRenderbuffer(GLuint renderbuffer) {
    record(GlCall::deleteRenderbuffer, {double(renderbuffer)});
    if (renderbuffers_.erase(renderbuffer) == 0) {
        ADD_FAILURE() << "deleteRenderbuffer of unknown renderbuffer " << renderbuffer;
    }
}

void RecordingGl::blitFramebuffer(GLint srcX0, GLint srcY0, GLint srcX1, GLint srcY1, GLint dstX0, GLint dstY0,
                                  GLint dstX1, GLint dstY1, GLbitfield mask, GLenum filter) {
    record(GlCall::blitFramebuffer, {double(srcX0), double(srcY0), double(srcX1), double(srcY1), double(dstX0),
                                     double(dstY0), double(dstX1), double(dstY1), double(mask), double(filter),
                                     double(readFramebuffer_), double(drawFramebuffer_)});
    if (readFramebuffer_ == drawFramebuffer_) {
        ADD_FAILURE() << "blitFramebuffer from a framebuffer onto itself";
    }
}

void RecordingGl::invalidateFramebuffer(GLenum target, std::span<const GLenum> attachments) {
    std::vector<double> args{double(target)};
    for (GLenum attachment : attachments) {
        args.push_back(double(attachment));
    }
    record(GlCall::invalidateFramebuffer, std::move(args));
}

void RecordingGl::readPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type,
                             void* pixels) {
    record(GlCall::readPixels, {double(x), double(y), double(width), double(height), double(format), double(type)});
    (void)pixels;
}

void RecordingGl::viewport(GLint x, GLint y, GLsizei width, GLsizei height) {
    record(GlCall::viewport, {double(x), double(y), double(width), double(height)});
}

void RecordingGl::clearColor(GLfloat red, GLfloat green, GLfloat blue, GLfloat alpha) {
    record(GlCall::clearColor, {red, green, blue, alpha});
}

void RecordingGl::clearDepth(GLdouble depth) { record(GlCall::clearDepth, {depth}); }

void RecordingGl::clear(GLbitfield mask) {
    record(GlCall::clear, {double(mask), double(drawFramebuffer_), depthMask_ ? 1.0 : 0.0});
    if ((mask & GL_DEPTH_BUFFER_BIT) != 0 && !depthMask_) {
        ADD_FAILURE() << "depth cleared while depth writes are off: the clear does nothing";
    }
}

void RecordingGl::enable(GLenum capability) {
    record(GlCall::enable, {double(capability)});
}

void RecordingGl::disable(GLenum capability) {
    record(GlCall::disable, {double(capability)});
}

void RecordingGl::blendEquationSeparate(GLenum modeColor, GLenum modeAlpha) {
    record(GlCall::blendEquationSeparate, {double(modeColor), double(modeAlpha)});
}

void RecordingGl::blendFuncSeparate(GLenum sourceColor, GLenum destinationColor, GLenum sourceAlpha,
                                    GLenum destinationAlpha) {
    record(GlCall::blendFuncSeparate,
           {double(sourceColor), double(destinationColor), double(sourceAlpha), double(destinationAlpha)});
}

void RecordingGl::depthFunc(GLenum function) {
    record(GlCall::depthFunc, {double(function)});
}

void RecordingGl::depthMask(bool write) {
    record(GlCall::depthMask, {write ? 1.0 : 0.0});
    depthMask_ = write;
}

void RecordingGl::cullFace(GLenum mode) {
    record(GlCall::cullFace, {double(mode)});
}

void RecordingGl::frontFace(GLenum mode) {
    record(GlCall::frontFace, {double(mode)});
}

void RecordingGl::snapshotDraw(GlCall kind) {
    if (current() == nullptr) {
        ADD_FAILURE() << toString(kind) << " with no program in use";
    }
    auto vao = vertexArrays_.find(vertexArray_);
    if (vao == vertexArrays_.end()) {
        ADD_FAILURE() << toString(kind) << " with no vertex array bound";
    } else {
        for (GLuint index : vao->second.enabled) {
            if (vao->second.pointed.count(index) == 0) {
                ADD_FAILURE() << toString(kind) << " with attribute " << index << " enabled but not pointed";
            }
        }
    }
    draws.push_back(kind);
}

void RecordingGl::drawElements(GLenum mode, GLsizei count, GLenum type, std::size_t offset) {
    record(GlCall::drawElements, {double(mode), double(count), double(type), double(offset)});
    snapshotDraw(GlCall::drawElements);
    auto vao = vertexArrays_.find(vertexArray_);
    const GLuint elements = vao == vertexArrays_.end() ? 0 : vao->second.elementBuffer;
    if (elements == 0) {
        ADD_FAILURE() << "drawElements with no element array buffer";
        return;
    }
    const std::size_t width = type == GL_UNSIGNED_SHORT ? 2 : type == GL_UNSIGNED_INT ? 4 : 1;
    if (offset + width * static_cast<std::size_t>(count) > bufferData(elements).size()) {
        ADD_FAILURE() << "drawElements reads " << count << " indices past the end of buffer " << elements;
    }
}

void RecordingGl::drawArrays(GLenum mode, GLint first, GLsizei count) {
    record(GlCall::drawArrays, {double(mode), double(first), double(count)});
    snapshotDraw(GlCall::drawArrays);
}

GLuint RecordingGl::createQuery() {
    GLuint name = newName();
    queries_.insert(name);
    record(GlCall::createQuery, {double(name)});
    return name;
}

void RecordingGl::deleteQuery(GLuint query) {
    record(GlCall::deleteQuery, {double(query)});
    if (queries_.erase(query) == 0) {
        ADD_FAILURE() << "deleteQuery of unknown query " << query;
    }
}

void RecordingGl::beginTimeQuery(GLuint query) {
    record(GlCall::beginTimeQuery, {double(query)});
    if (queryRunning_ || queries_.count(query) == 0) {
        ADD_FAILURE() << "beginTimeQuery while one runs, or of an unknown query";
    }
    queryRunning_ = true;
}

void RecordingGl::endTimeQuery() {
    record(GlCall::endTimeQuery, {});
    if (!queryRunning_) {
        ADD_FAILURE() << "endTimeQuery with none running";
    }
    queryRunning_ = false;
}

std::uint64_t RecordingGl::timeQueryResult(GLuint query) {
    record(GlCall::timeQueryResult, {double(query)});
    return 1000;
}

// The fake hands out no program binaries, so that no cache is ever made over it.
void RecordingGl::driverName(std::string& name) const { name = "recording"; }

GLint RecordingGl::programBinaryFormats() const { return 0; }

bool RecordingGl::programBinary(GLuint, GLenum&, std::vector<std::byte>&) { return false; }

GLuint RecordingGl::createProgramFromBinary(GLenum, std::span<const std::byte>) { return 0; }

} // namespace renderer::test
