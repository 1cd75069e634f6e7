#include "renderer/textures/ResourceFile.h"

#include <fstream>
#include <stdexcept>
#include <system_error>

namespace renderer::textures {

std::vector<std::byte> ResourceFile::read(const std::filesystem::path& directory, const std::string& name,
                                          const std::string& type) {
    // Joined as text: a name with a leading "/" stays inside the directory, as a bundle lookup would.
    const std::filesystem::path path = directory.string() + "/" + name + type;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        throw std::runtime_error("File not found in bundle: " + name);
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        throw std::runtime_error("Cannot read resource " + name);
    }
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    if (size < 0) {
        throw std::runtime_error("Cannot read resource " + name);
    }
    in.seekg(0, std::ios::beg);
    std::vector<std::byte> bytes(static_cast<std::size_t>(size));
    if (size > 0 && !in.read(reinterpret_cast<char*>(bytes.data()), size)) {
        throw std::runtime_error("Cannot read resource " + name);
    }
    return bytes;
}

} // namespace renderer::textures
