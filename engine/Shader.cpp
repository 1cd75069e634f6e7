#include "engine/Shader.h"

#include <utility>

namespace engine {

Shader::Shader(std::string name) : name(std::move(name)) {}

std::string Shader::toString() const {
    return "Shader(name=" + name + ", id=" + std::to_string(id) + ")";
}

} // namespace engine
