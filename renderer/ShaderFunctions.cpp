#include "renderer/ShaderFunctions.h"

#include <stdexcept>

namespace renderer {

ShaderFunctions::ShaderFunctions(const std::string& name_, const ShaderLibrary& library) : name(name_) {
    auto vertex = library.vertexFunction(name);
    auto fragment = library.fragmentFunction(name);
    if (!vertex || !fragment) {
        throw std::runtime_error("Shader " + name + " is not found in library");
    }
    vertexFunction = std::move(*vertex);
    fragmentFunction = std::move(*fragment);
}

std::shared_ptr<gpu::ShaderProgram> ShaderFunctions::program(gl::Gl& gl, std::string& log) {
    if (!program_) {
        program_ = gpu::ShaderProgram::link(gl, vertexFunction, fragmentFunction, log);
    }
    return program_;
}

} // namespace renderer
