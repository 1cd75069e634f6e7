#pragma once

#include <memory>
#include <string>
#include <vector>

#include "renderer/ShaderLibrary.h"
#include "renderer/uniforms/Uniform.h"
#include "renderer/gl/Gl.h"
#include "renderer/gpu/ShaderProgram.h"

namespace renderer {

/// The two stages of one shader, taken from the library by name: for "Diffuse" the sources
/// `Diffuse.vert` and `Diffuse.frag`. They are linked into one GL program on first use by a
/// pipeline, and every pipeline of the shader shares that program.
class ShaderFunctions {
public:
    /// Takes the stages of `name` from `library`. Throws std::runtime_error with
    /// "Shader " + name + " is not found in library" when either is missing.
    ShaderFunctions(const std::string& name, const ShaderLibrary& library);

    /// The shader's name.
    std::string name;
    /// Source of the vertex stage.
    std::string vertexFunction;
    /// Source of the fragment stage.
    std::string fragmentFunction;
    /// Always empty: the uniform tables of the renderers say where values go.
    std::vector<uniforms::Uniform> uniformTypes;

    /// The linked program, linking it on the first call. Null, with the compiler's or linker's
    /// words in `log`, when the sources do not build.
    std::shared_ptr<gpu::ShaderProgram> program(gl::Gl& gl, std::string& log);

private:
    std::shared_ptr<gpu::ShaderProgram> program_;
};

} // namespace renderer
