#include "renderer/gpu/ShaderProgram.h"

#include "renderer/gl/ForwardingGl.h"

namespace renderer::gpu {

std::shared_ptr<ShaderProgram> ShaderProgram::link(gl::Gl& gl, std::string_view vertexSource,
                                                   std::string_view fragmentSource, std::string& log) {
    const GLuint program = gl.createProgram(vertexSource, fragmentSource, log);
    if (program == 0) {
        return nullptr;
    }
    // A program may outlive the renderer whose (forwarding) Gl linked it; it is released through
    // the Gl underneath.
    std::shared_ptr<ShaderProgram> result(new ShaderProgram(gl::ForwardingGl::innermost(gl), program));
    for (int slot = 0; slot < BUFFER_SLOTS; ++slot) {
        result->vertexUniforms_[slot] = gl.uniformLocation(program, ("uVertex" + std::to_string(slot)).c_str());
        result->fragmentUniforms_[slot] = gl.uniformLocation(program, ("uFragment" + std::to_string(slot)).c_str());
    }
    gl.useProgram(program);
    for (int slot = 0; slot < TEXTURE_SLOTS; ++slot) {
        const GLint fragmentUnit = slot;
        gl.uniformInts(gl.uniformLocation(program, ("uFragmentTexture" + std::to_string(slot)).c_str()), 1, 1,
                       &fragmentUnit);
        const GLint vertexUnit = static_cast<GLint>(VERTEX_TEXTURE_UNIT_BASE) + slot;
        gl.uniformInts(gl.uniformLocation(program, ("uVertexTexture" + std::to_string(slot)).c_str()), 1, 1,
                       &vertexUnit);
    }
    return result;
}

ShaderProgram::ShaderProgram(gl::Gl& gl, GLuint program) : gl_(gl), program_(program) {
    vertexUniforms_.fill(-1);
    fragmentUniforms_.fill(-1);
}

ShaderProgram::~ShaderProgram() { gl_.deleteProgram(program_); }

GLint ShaderProgram::vertexUniform(int slot) const {
    return slot >= 0 && slot < BUFFER_SLOTS ? vertexUniforms_[static_cast<std::size_t>(slot)] : -1;
}

GLint ShaderProgram::fragmentUniform(int slot) const {
    return slot >= 0 && slot < BUFFER_SLOTS ? fragmentUniforms_[static_cast<std::size_t>(slot)] : -1;
}

} // namespace renderer::gpu
