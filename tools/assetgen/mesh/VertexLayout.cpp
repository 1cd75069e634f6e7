#include "tools/assetgen/mesh/VertexLayout.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "tools/assetgen/core/Half.h"

namespace tools::assetgen::mesh {

using engine::AttributeType;
using engine::VertexFormat;

VertexLayout::VertexLayout(std::vector<Attribute> attributes, std::int32_t stride)
    : attributes_(std::move(attributes)), stride_(stride) {}

VertexLayout VertexLayout::of(const engine::VertexAttributesDescriptor& descriptor) {
    std::vector<Attribute> attributes;
    for (const auto& a : descriptor.attributes()) {
        attributes.push_back({a.type(), a.format(), a.offset()});
    }
    return {attributes, descriptor.stride()};
}

VertexLayout VertexLayout::of(const engine::MeshAttributes& meshAttributes) {
    std::vector<Attribute> attributes;
    for (const auto& a : meshAttributes.attributes()) {
        attributes.push_back({a.type(), a.format(), a.offset()});
    }
    return {attributes, meshAttributes.stride()};
}

bool VertexLayout::has(AttributeType type) const {
    return std::any_of(attributes_.begin(), attributes_.end(), [&](const Attribute& a) { return a.type == type; });
}

std::string VertexLayout::describe() const {
    std::string text;
    for (const auto& a : attributes_) {
        if (!text.empty()) {
            text += ", ";
        }
        text += std::string(toString(a.type)) + " " + std::string(toString(a.format)) + " @" +
                std::to_string(a.offset);
    }
    return text + "; stride " + std::to_string(stride_);
}

namespace {

/// The values an attribute of `type` takes from a vertex, up to four.
std::vector<double> valuesOf(const Vertex& v, AttributeType type) {
    switch (type) {
    case AttributeType::VERTEX:
        return {v.position.x, v.position.y, v.position.z};
    case AttributeType::NORMAL:
        return {v.normal.x, v.normal.y, v.normal.z};
    case AttributeType::UV0:
        return {v.u, v.v};
    case AttributeType::U0:
        return {v.u0};
    case AttributeType::V0:
        return {v.v};
    case AttributeType::AO:
        return {v.ao};
    default:
        throw std::invalid_argument("The generator has no data for attribute " + std::string(toString(type)));
    }
}

template <typename T> void put(std::uint8_t* at, T value) { std::memcpy(at, &value, sizeof(T)); }

void writeComponent(std::uint8_t* at, engine::VertexComponentType, VertexFormat format, double value) {
    const std::string_view name = toString(format);
    const bool normalized = engine::isNormalized(format);
    if (name.starts_with("HALF")) {
        put(at, core::Half::fromFloat(static_cast<float>(value)));
    } else if (name.starts_with("FLOAT")) {
        put(at, static_cast<float>(value));
    } else if (name.starts_with("UBYTE")) {
        const double scaled = normalized ? std::clamp(value, 0.0, 1.0) * 255.0 : std::clamp(value, 0.0, 255.0);
        put(at, static_cast<std::uint8_t>(std::lround(scaled)));
    } else if (name.starts_with("BYTE")) {
        const double scaled = normalized ? std::clamp(value, -1.0, 1.0) * 127.0 : std::clamp(value, -128.0, 127.0);
        put(at, static_cast<std::int8_t>(std::lround(scaled)));
    } else if (name.starts_with("USHORT")) {
        const double scaled =
            normalized ? std::clamp(value, 0.0, 1.0) * 65535.0 : std::clamp(value, 0.0, 65535.0);
        put(at, static_cast<std::uint16_t>(std::lround(scaled)));
    } else if (name.starts_with("SHORT")) {
        const double scaled =
            normalized ? std::clamp(value, -1.0, 1.0) * 32767.0 : std::clamp(value, -32768.0, 32767.0);
        put(at, static_cast<std::int16_t>(std::lround(scaled)));
    } else {
        throw std::invalid_argument("The generator cannot write vertex format " + std::string(name));
    }
}

} // namespace

std::vector<std::uint8_t> VertexLayout::pack(const MeshData& mesh) const {
    std::vector<std::uint8_t> bytes(mesh.vertices.size() * static_cast<std::size_t>(stride_), 0);
    for (const auto& a : attributes_) {
        const int size = engine::byteSize(a.format);
        if (a.offset < 0 || a.offset + size > stride_) {
            throw std::invalid_argument("Attribute " + std::string(toString(a.type)) + " does not fit in stride " +
                                        std::to_string(stride_));
        }
    }
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
        std::uint8_t* base = bytes.data() + i * static_cast<std::size_t>(stride_);
        for (const auto& a : attributes_) {
            const std::vector<double> values = valuesOf(mesh.vertices[i], a.type);
            const int count = engine::componentCount(a.format);
            const int width = engine::byteSize(a.format) / count;
            for (int c = 0; c < count; ++c) {
                const double value = c < static_cast<int>(values.size()) ? values[c] : 0.0;
                writeComponent(base + a.offset + c * width, engine::componentType(a.format), a.format, value);
            }
        }
    }
    return bytes;
}

} // namespace tools::assetgen::mesh
