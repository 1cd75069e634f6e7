#include "renderer/loaders/FullModel.h"

#include <optional>
#include <stdexcept>
#include <utility>

#include "renderer/Fatal.h"
#include "renderer/textures/LoadError.h"
#include "renderer/textures/ResourceFile.h"

namespace renderer::loaders {

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

// Characters that a URL may hold as they stand (RFC 3986: unreserved, general and sub-delimiters).
bool isUrlCharacter(char c) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
        return true;
    }
    static constexpr std::string_view allowed = "-._~:/?#[]@!$&'()*+,;=";
    return allowed.find(c) != std::string_view::npos;
}

// The path of `name` read as a relative URL with its percent escapes decoded, or nothing when
// `name` is no valid URL (empty, a character outside the URL alphabet, a broken escape).
std::optional<std::string> urlPath(const std::string& name) {
    if (name.empty()) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == '%') {
            if (i + 2 >= name.size() || hexValue(name[i + 1]) < 0 || hexValue(name[i + 2]) < 0) {
                return std::nullopt;
            }
            i += 2;
        } else if (!isUrlCharacter(name[i])) {
            return std::nullopt;
        }
    }
    std::string_view path = name;
    path = path.substr(0, path.find_first_of("?#"));
    // A scheme ("file:") comes before the first "/" and is not part of the path.
    const std::size_t colon = path.find(':');
    if (colon != std::string_view::npos && colon < path.find('/')) {
        path.remove_prefix(colon + 1);
        if (path.starts_with("//")) {
            const std::size_t hostEnd = path.find('/', 2);
            path = hostEnd == std::string_view::npos ? std::string_view() : path.substr(hostEnd);
        }
    }
    std::string decoded;
    decoded.reserve(path.size());
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] == '%') {
            decoded += static_cast<char>(hexValue(path[i + 1]) * 16 + hexValue(path[i + 2]));
            i += 2;
        } else {
            decoded += path[i];
        }
    }
    return decoded;
}

} // namespace

FullModel::FullModel(const std::string& name, std::string resourcesRoot) : resourcesRoot_(std::move(resourcesRoot)) {
    if (const auto parsed = urlPath(name)) {
        std::string_view path = *parsed;
        while (path.size() > 1 && path.ends_with('/')) {
            path.remove_suffix(1);
        }
        const std::size_t slash = path.rfind('/');
        if (slash == std::string_view::npos) {
            filename_ = std::string(path);
            path_ = ".";
        } else {
            filename_ = std::string(path.substr(slash + 1));
            path_ = slash == 0 ? std::string("/") : std::string(path.substr(0, slash));
        }
    } else {
        filename_.clear();
        path_ = "models";
    }
    if (path_ == ".") {
        path_ = "models";
    }
}

std::string FullModel::verticesFileName() const { return path_ + "/" + filename_ + "-strides.bin"; }

std::string FullModel::indicesFileName() const { return path_ + "/" + filename_ + "-indices.bin"; }

std::string FullModel::verticesResourceName() const {
    return resourcesRoot_.empty() ? verticesFileName() : resourcesRoot_ + "/" + verticesFileName();
}

std::string FullModel::indicesResourceName() const {
    return resourcesRoot_.empty() ? indicesFileName() : resourcesRoot_ + "/" + indicesFileName();
}

FullModel::Data FullModel::read(const std::filesystem::path& resources) const {
    Data data;
    data.vertices = textures::ResourceFile::read(resources, verticesResourceName());
    data.indices = textures::ResourceFile::read(resources, indicesResourceName());
    return data;
}

void FullModel::load(gl::Gl& gl, const std::filesystem::path& resources) {
    Data data;
    try {
        data = read(resources);
    } catch (const std::exception& e) {
        Fatal::stop(std::string("Cannot create model buffers: ") + e.what());
    }
    upload(gl, data);
}

void FullModel::upload(gl::Gl& gl, const Data& data) {
    release(gl);
    if (!data.vertices.empty()) {
        vertexBuffer_ = gl.createBuffer(GL_ARRAY_BUFFER, data.vertices);
    }
    if (!data.indices.empty()) {
        indexBuffer_ = gl.createBuffer(GL_ELEMENT_ARRAY_BUFFER, data.indices);
    }
    vertexLength_ = data.vertices.size();
    indexLength_ = data.indices.size();
    highestIndex_ = highestIndex(data.indices);
}

unsigned FullModel::highestIndex(const std::vector<std::byte>& indices) {
    unsigned highest = 0;
    for (std::size_t i = 0; i + 1 < indices.size(); i += 2) {
        const unsigned index = std::to_integer<unsigned>(indices[i]) | std::to_integer<unsigned>(indices[i + 1]) << 8;
        highest = index > highest ? index : highest;
    }
    return highest;
}

void FullModel::checkLayout(std::size_t stride) const {
    checkLayout(vertexLength_, indexLength_, highestIndex_, stride, verticesResourceName(), indicesResourceName());
}

void FullModel::checkLayout(std::size_t vertexLength, std::size_t indexLength, unsigned highestIndex,
                            std::size_t stride, const std::string& verticesName, const std::string& indicesName) {
    if (stride == 0 || vertexLength == 0) {
        return;
    }
    if (vertexLength % stride != 0) {
        throw textures::LoadError(verticesName, std::to_string(vertexLength) + " bytes are no whole number of " +
                                                    std::to_string(stride) + "-byte vertices");
    }
    const std::size_t vertices = vertexLength / stride;
    if (indexLength >= 2 && highestIndex >= vertices) {
        throw textures::LoadError(indicesName, "index " + std::to_string(highestIndex) + " past " +
                                                   std::to_string(vertices) + " vertices");
    }
}

void FullModel::release(gl::Gl& gl) {
    if (vertexBuffer_ != 0) {
        gl.deleteBuffer(vertexBuffer_);
    }
    if (indexBuffer_ != 0) {
        gl.deleteBuffer(indexBuffer_);
    }
    vertexBuffer_ = 0;
    indexBuffer_ = 0;
    vertexLength_ = 0;
    indexLength_ = 0;
    highestIndex_ = 0;
}

} // namespace renderer::loaders
