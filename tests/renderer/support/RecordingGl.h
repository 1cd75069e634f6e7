#pragma once

#include "renderer/gl/Gl.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace renderer::test {

/// Kinds of call that `RecordingGl` records, one per function of `gl::Gl`, named after it.
enum class GlCall {
#define GL_METHOD(Result, name, parameters, arguments, qualifier) name,
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD
};

/// The function name of a call kind, e.g. "useProgram".
std::string toString(GlCall call);

/// One recorded call: its kind, its numeric arguments in order (enums, names, sizes and floats
/// all as doubles, which hold each of them exactly) and, for calls that return a name, the name.
struct RecordedCall {
    GlCall kind;
    std::vector<double> args;
    /// "useProgram(3)", "drawElements(GL 0x4, 36, GL 0x1403, 0)" and the like.
    std::string toString() const;
};

/// A `gl::Gl` that draws nothing: it records every call, keeps the state that GL would keep
/// (bindings, programs with their uniforms, capabilities), counts live objects of each kind,
/// and reports misuse that a real driver would reject or answer with garbage (an unknown name,
/// a uniform of the wrong type, a draw without a program or index buffer, reading past the end
/// of an index buffer) as a test failure.
///
/// A program "compiles" unless a source is empty or holds "#error"; its uniforms are the
/// `uniform <type> <name>[<n>];` declarations found in its two sources.
class RecordingGl : public gl::Gl {
public:
    RecordingGl();

    /// Every call so far, in order.
    std::vector<RecordedCall> calls;
    /// The kind of each draw call, in order.
    std::vector<GlCall> draws;
    /// Extensions that hasExtension answers true for.
    std::set<std::string> extensions;
    /// What rendererName answers (the context's GL_RENDERER).
    std::string glRenderer = "Recording GL";

    /// Number of recorded calls of `kind`.
    std::size_t count(GlCall kind) const;
    /// Recorded calls of the given kinds, as text.
    std::vector<std::string> log(std::initializer_list<GlCall> kinds) const;
    /// Forgets the calls and draws recorded so far; the GL state stays.
    void clearCalls();

    /// Objects created and not yet deleted.
    std::size_t liveBuffers() const { return buffers_.size(); }
    std::size_t liveTextures() const { return textures_.size(); }
    std::size_t liveSamplers() const { return samplers_.size(); }
    std::size_t livePrograms() const { return programs_.size(); }
    std::size_t liveVertexArrays() const { return vertexArrays_.size(); }
    std::size_t liveFramebuffers() const { return framebuffers_.size(); }
    std::size_t liveRenderbuffers() const { return renderbuffers_.size(); }

    /// The bytes a live buffer was created with.
    const std::vector<std::byte>& bufferData(GLuint buffer) const;

#define GL_METHOD(Result, name, parameters, arguments, qualifier) Result name parameters qualifier override;
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD

    /// A uniform declared in a program's sources.
    struct UniformDecl {
        std::string name;
        bool isFloat = true;
        int components = 1;
        int arraySize = 1;
    };

private:
    struct Program {
        std::vector<UniformDecl> uniforms; // location == position
    };
    struct VertexArray {
        GLuint elementBuffer = 0;
        std::set<GLuint> pointed;
        std::set<GLuint> enabled;
    };

    void record(GlCall kind, std::vector<double> args);
    GLuint newName();
    void snapshotDraw(GlCall kind);
    void checkUniform(const char* call, GLint location, bool isFloat, int components, GLsizei count);
    Program* current();

    GLuint nextName_ = 1;
    std::map<GLuint, std::vector<std::byte>> buffers_;
    std::set<GLuint> textures_;
    std::set<GLuint> samplers_;
    std::map<GLuint, Program> programs_;
    std::map<GLuint, VertexArray> vertexArrays_;
    std::set<GLuint> framebuffers_;
    std::set<GLuint> renderbuffers_;
    std::set<GLuint> queries_;

    GLuint program_ = 0;
    GLuint vertexArray_ = 0;
    GLuint arrayBuffer_ = 0;
    GLuint drawFramebuffer_ = 0;
    GLuint readFramebuffer_ = 0;
    bool depthMask_ = true;
    bool queryRunning_ = false;
};

} // namespace renderer::test
