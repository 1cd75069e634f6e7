#include "renderer/ShaderLibrary.h"

#include <array>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "renderer/Fatal.h"

namespace renderer {

namespace {

/// Shader names built from the source of another with a define: the blur kernels differ only in
/// their radius. A name's own files, where a library has them, come first.
struct Variant {
    std::string_view name;
    std::string_view source;
    std::string_view define;
};
constexpr std::array<Variant, 3> VARIANTS = {{
    {"GaussianBlur4", "GaussianBlur", "#define RADIUS 4\n"},
    {"GaussianBlur3", "GaussianBlur", "#define RADIUS 3\n"},
    {"GaussianBlur2", "GaussianBlur", "#define RADIUS 2\n"},
}};

} // namespace

std::optional<ShaderLibrary> ShaderLibrary::open(const std::filesystem::path& resources) {
    std::filesystem::path directory = resources / "shaders";
    std::error_code error;
    if (!std::filesystem::is_directory(directory, error)) {
        return std::nullopt;
    }
    return ShaderLibrary(std::move(directory));
}

ShaderLibrary ShaderLibrary::openOrStop(const std::filesystem::path& resources) {
    auto library = open(resources);
    if (!library) {
        Fatal::stop("Cannot load the default shader library");
    }
    return std::move(*library);
}

std::optional<std::string> ShaderLibrary::vertexFunction(const std::string& name) const {
    return stage(name, ".vert");
}

std::optional<std::string> ShaderLibrary::fragmentFunction(const std::string& name) const {
    return stage(name, ".frag");
}

std::optional<std::string> ShaderLibrary::stage(const std::string& name, const std::string& extension) const {
    if (auto own = read(name + extension)) {
        return own;
    }
    for (const Variant& variant : VARIANTS) {
        if (variant.name != name) {
            continue;
        }
        auto source = read(std::string(variant.source) + extension);
        if (!source) {
            return std::nullopt;
        }
        // The define goes right after the #version line, which must come first.
        const std::size_t lineEnd = source->find('\n');
        source->insert(lineEnd == std::string::npos ? source->size() : lineEnd + 1, variant.define);
        return source;
    }
    return std::nullopt;
}

std::optional<std::string> ShaderLibrary::read(const std::string& fileName) const {
    // An empty name or one with folders names no stage of this library.
    if (fileName.find('/') != std::string::npos || fileName.front() == '.') {
        return std::nullopt;
    }
    const std::filesystem::path path = directory_ / fileName;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace renderer
