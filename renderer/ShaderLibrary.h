#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace renderer {

/// The renderer's shader library: the GLSL sources shipped with the resources, one vertex and
/// one fragment stage per shader name N, in `<resources>/shaders/N.vert` and `N.frag`. The blur
/// kernels GaussianBlur4, GaussianBlur3 and GaussianBlur2 share the GaussianBlur sources and are
/// built from them with their radius defined, where the library has no files of their own. A
/// name whose files are missing is a shader that the library lacks.
class ShaderLibrary {
public:
    /// The library below `resources`; nothing when `<resources>/shaders` is no directory.
    static std::optional<ShaderLibrary> open(const std::filesystem::path& resources);
    /// The library below `resources`; without one the renderer cannot work, and the process
    /// stops with "Cannot load the default shader library".
    static ShaderLibrary openOrStop(const std::filesystem::path& resources);

    /// The directory of the sources.
    const std::filesystem::path& directory() const { return directory_; }
    /// The vertex stage of shader `name`; nothing when the library lacks it.
    std::optional<std::string> vertexFunction(const std::string& name) const;
    /// The fragment stage of shader `name`; nothing when the library lacks it.
    std::optional<std::string> fragmentFunction(const std::string& name) const;

private:
    explicit ShaderLibrary(std::filesystem::path directory) : directory_(std::move(directory)) {}
    std::optional<std::string> read(const std::string& fileName) const;
    /// The stage `extension` of shader `name`: its own file, or the shared source of a variant.
    std::optional<std::string> stage(const std::string& name, const std::string& extension) const;

    std::filesystem::path directory_;
};

} // namespace renderer
