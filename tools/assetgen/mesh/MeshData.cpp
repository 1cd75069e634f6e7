#include "tools/assetgen/mesh/MeshData.h"

#include <bit>
#include <cstring>
#include <unordered_map>

namespace tools::assetgen::mesh {

std::uint32_t MeshData::add(const Vertex& vertex) {
    vertices.push_back(vertex);
    return static_cast<std::uint32_t>(vertices.size() - 1);
}

void MeshData::triangle(std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    indices.push_back(a);
    indices.push_back(b);
    indices.push_back(c);
}

void MeshData::flatTriangle(const Vertex& a, const Vertex& b, const Vertex& c) {
    const std::uint32_t first = add(a);
    add(b);
    add(c);
    triangle(first, first + 1, first + 2);
}

void MeshData::append(const MeshData& other) {
    const auto offset = static_cast<std::uint32_t>(vertices.size());
    vertices.insert(vertices.end(), other.vertices.begin(), other.vertices.end());
    for (std::uint32_t index : other.indices) {
        indices.push_back(index + offset);
    }
}

void MeshData::addBackFaces() {
    const std::size_t count = indices.size();
    indices.reserve(count * 2);
    for (std::size_t i = 0; i < count; i += 3) {
        triangle(indices[i], indices[i + 2], indices[i + 1]);
    }
}

namespace {

struct VertexKey {
    std::uint64_t words[7];
    bool operator==(const VertexKey& o) const { return std::memcmp(words, o.words, sizeof(words)) == 0; }
};

struct VertexKeyHash {
    std::size_t operator()(const VertexKey& k) const {
        std::uint64_t h = 1469598103934665603ull;
        for (std::uint64_t w : k.words) {
            h ^= w;
            h *= 1099511628211ull;
            h ^= h >> 29;
        }
        return static_cast<std::size_t>(h);
    }
};

VertexKey keyOf(const Vertex& v) {
    const double fields[7] = {v.position.x, v.position.y, v.position.z, v.u, v.v, v.u0, v.ao};
    VertexKey key{};
    for (int i = 0; i < 7; ++i) {
        key.words[i] = std::bit_cast<std::uint64_t>(fields[i] + 0.0); // -0.0 and 0.0 alike
    }
    return key;
}

} // namespace

void MeshData::weld() {
    std::unordered_map<VertexKey, std::uint32_t, VertexKeyHash> seen;
    std::vector<Vertex> kept;
    std::vector<std::uint32_t> remap(vertices.size());
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const auto [it, inserted] = seen.emplace(keyOf(vertices[i]), static_cast<std::uint32_t>(kept.size()));
        if (inserted) {
            kept.push_back(vertices[i]);
        }
        remap[i] = it->second;
    }
    for (std::uint32_t& index : indices) {
        index = remap[index];
    }
    vertices = std::move(kept);
}

} // namespace tools::assetgen::mesh
