#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "renderer/gl/Gl.h"

namespace renderer::gpu {

/// A linked GL program and the locations of the uniforms that stand for the buffer and texture
/// slots of its two stages: `uVertex<k>` and `uFragment<k>` for numbers at slot k,
/// `uFragmentTexture<n>` (texture unit n) and `uVertexTexture<n>` (texture unit 8 + n) for
/// textures at slot n. The samplers are tied to their units once, at link time, so that binding
/// a texture to a unit is all a draw needs.
class ShaderProgram {
public:
    /// Buffer slots per stage (vertex slot 0 is the vertex buffer).
    static constexpr int BUFFER_SLOTS = 31;
    /// Texture slots per stage.
    static constexpr int TEXTURE_SLOTS = 8;
    /// The texture unit of vertex texture slot 0.
    static constexpr GLuint VERTEX_TEXTURE_UNIT_BASE = 8;

    /// Compiles and links the two stages. Returns null, with the compiler's or linker's words
    /// in `log`, when that fails. Leaves the new program in use.
    static std::shared_ptr<ShaderProgram> link(gl::Gl& gl, std::string_view vertexSource,
                                               std::string_view fragmentSource, std::string& log);

    /// Deletes the program.
    ~ShaderProgram();
    ShaderProgram(const ShaderProgram&) = delete;
    ShaderProgram& operator=(const ShaderProgram&) = delete;

    /// The GL program.
    GLuint name() const { return program_; }
    /// Location of `uVertex<slot>`; -1 where the program has none or the slot is out of range.
    GLint vertexUniform(int slot) const;
    /// Location of `uFragment<slot>`; -1 where the program has none or the slot is out of range.
    GLint fragmentUniform(int slot) const;

private:
    ShaderProgram(gl::Gl& gl, GLuint program);

    gl::Gl& gl_;
    GLuint program_;
    std::array<GLint, BUFFER_SLOTS> vertexUniforms_{};
    std::array<GLint, BUFFER_SLOTS> fragmentUniforms_{};
};

} // namespace renderer::gpu
