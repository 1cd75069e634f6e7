#include "renderer/ShaderLibrary.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "renderer/Fatal.h"

namespace renderer {

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
    return read(name + ".vert");
}

std::optional<std::string> ShaderLibrary::fragmentFunction(const std::string& name) const {
    return read(name + ".frag");
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
