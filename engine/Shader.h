#pragma once

#include <cstdint>
#include <string>

namespace engine {

/// A shader that a scene names. `name` is the key under which the renderer finds its stages;
/// `id` is the renderer's own slot for it, -1 until it has prepared the shader.
class Shader {
public:
    /// Key of the shader's stages in the shader library.
    std::string name;
    /// The renderer's slot, -1 while unprepared.
    std::int32_t id = -1;

    /// A shader to be looked up under `name`.
    explicit Shader(std::string name);

    /// "Shader(name=Diffuse, id=-1)".
    std::string toString() const;
};

} // namespace engine
