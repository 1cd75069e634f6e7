#include "engine/VertexFormat.h"

#include <stdexcept>

namespace engine {

namespace {

// The formats follow a fixed rule: 16 byte kinds (UBYTE 1-4, BYTE 1-4, then the same two
// normalised), 16 short kinds in the same pattern, then HALF, FLOAT, UINT and INT with 1 to 4
// components each, and last the two packed 1010102 kinds.
constexpr int SHORT_KINDS = 16;
constexpr int HALF_KINDS = 32;
constexpr int FLOAT_KINDS = 36;
constexpr int UINT_KINDS = 40;
constexpr int INT_KINDS = 44;
constexpr int PACKED_SIGNED = 48;
constexpr int PACKED_UNSIGNED = 49;

int ordinalOf(VertexFormat format) {
    const int ordinal = static_cast<int>(format);
    if (ordinal < 0 || ordinal > PACKED_UNSIGNED) {
        throw std::out_of_range("Unknown vertex format");
    }
    return ordinal;
}

} // namespace

int byteSize(VertexComponentType type) {
    switch (type) {
    case VertexComponentType::UBYTE:
    case VertexComponentType::BYTE:
        return 1;
    case VertexComponentType::USHORT:
    case VertexComponentType::SHORT:
    case VertexComponentType::HALF:
        return 2;
    case VertexComponentType::FLOAT:
    case VertexComponentType::UINT:
    case VertexComponentType::INT:
    case VertexComponentType::INT_2_10_10_10:
    case VertexComponentType::UINT_2_10_10_10:
        return 4;
    }
    throw std::out_of_range("Unknown vertex component type");
}

int componentCount(VertexFormat format) {
    const int ordinal = ordinalOf(format);
    return ordinal >= PACKED_SIGNED ? 4 : ordinal % 4 + 1;
}

VertexComponentType componentType(VertexFormat format) {
    const int ordinal = ordinalOf(format);
    if (ordinal < HALF_KINDS) {
        const bool isShort = ordinal >= SHORT_KINDS;
        const bool isSigned = (ordinal % 16) / 4 % 2 == 1;
        if (isShort) {
            return isSigned ? VertexComponentType::SHORT : VertexComponentType::USHORT;
        }
        return isSigned ? VertexComponentType::BYTE : VertexComponentType::UBYTE;
    }
    if (ordinal < FLOAT_KINDS) return VertexComponentType::HALF;
    if (ordinal < UINT_KINDS) return VertexComponentType::FLOAT;
    if (ordinal < INT_KINDS) return VertexComponentType::UINT;
    if (ordinal < PACKED_SIGNED) return VertexComponentType::INT;
    return ordinal == PACKED_SIGNED ? VertexComponentType::INT_2_10_10_10 : VertexComponentType::UINT_2_10_10_10;
}

int byteSize(VertexFormat format) {
    if (ordinalOf(format) >= PACKED_SIGNED) {
        return 4;
    }
    return componentCount(format) * byteSize(componentType(format));
}

bool isNormalized(VertexFormat format) {
    const int ordinal = ordinalOf(format);
    if (ordinal < HALF_KINDS) {
        return ordinal % 16 >= 8;
    }
    return ordinal >= PACKED_SIGNED;
}

bool isInteger(VertexFormat format) {
    const int ordinal = ordinalOf(format);
    if (ordinal < HALF_KINDS) {
        return !isNormalized(format);
    }
    return ordinal >= UINT_KINDS && ordinal < PACKED_SIGNED;
}

} // namespace engine
