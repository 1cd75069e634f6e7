#pragma once

#include <iterator>
#include <string_view>

#include "engine/VertexComponentType.h"

namespace engine {

/// The data type of one vertex attribute as it lies in a buffer. The digit is the number of
/// components (none means one); the _NORMALIZED kinds map their integers to 0..1 (unsigned) or
/// -1..1 (signed) when the shader reads them, the others reach it as integers or floats as
/// stored. The two 1010102 kinds pack three 10-bit and one 2-bit component into 4 bytes.
enum class VertexFormat : int {
    UBYTE,
    UBYTE2,
    UBYTE3,
    UBYTE4,
    BYTE,
    BYTE2,
    BYTE3,
    BYTE4,
    UBYTE_NORMALIZED,
    UBYTE2_NORMALIZED,
    UBYTE3_NORMALIZED,
    UBYTE4_NORMALIZED,
    BYTE_NORMALIZED,
    BYTE2_NORMALIZED,
    BYTE3_NORMALIZED,
    BYTE4_NORMALIZED,
    USHORT,
    USHORT2,
    USHORT3,
    USHORT4,
    SHORT,
    SHORT2,
    SHORT3,
    SHORT4,
    USHORT_NORMALIZED,
    USHORT2_NORMALIZED,
    USHORT3_NORMALIZED,
    USHORT4_NORMALIZED,
    SHORT_NORMALIZED,
    SHORT2_NORMALIZED,
    SHORT3_NORMALIZED,
    SHORT4_NORMALIZED,
    HALF,
    HALF2,
    HALF3,
    HALF4,
    FLOAT,
    FLOAT2,
    FLOAT3,
    FLOAT4,
    UINT,
    UINT2,
    UINT3,
    UINT4,
    INT,
    INT2,
    INT3,
    INT4,
    INT_1010102_NORMALIZED,
    UINT_1010102_NORMALIZED,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(VertexFormat value) {
    static constexpr std::string_view names[] = {
        "UBYTE",
        "UBYTE2",
        "UBYTE3",
        "UBYTE4",
        "BYTE",
        "BYTE2",
        "BYTE3",
        "BYTE4",
        "UBYTE_NORMALIZED",
        "UBYTE2_NORMALIZED",
        "UBYTE3_NORMALIZED",
        "UBYTE4_NORMALIZED",
        "BYTE_NORMALIZED",
        "BYTE2_NORMALIZED",
        "BYTE3_NORMALIZED",
        "BYTE4_NORMALIZED",
        "USHORT",
        "USHORT2",
        "USHORT3",
        "USHORT4",
        "SHORT",
        "SHORT2",
        "SHORT3",
        "SHORT4",
        "USHORT_NORMALIZED",
        "USHORT2_NORMALIZED",
        "USHORT3_NORMALIZED",
        "USHORT4_NORMALIZED",
        "SHORT_NORMALIZED",
        "SHORT2_NORMALIZED",
        "SHORT3_NORMALIZED",
        "SHORT4_NORMALIZED",
        "HALF",
        "HALF2",
        "HALF3",
        "HALF4",
        "FLOAT",
        "FLOAT2",
        "FLOAT3",
        "FLOAT4",
        "UINT",
        "UINT2",
        "UINT3",
        "UINT4",
        "INT",
        "INT2",
        "INT3",
        "INT4",
        "INT_1010102_NORMALIZED",
        "UINT_1010102_NORMALIZED",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

/// Number of components the shader sees (1 to 4; 4 for the packed kinds).
int componentCount(VertexFormat format);

/// Type of one component as stored, which tells the renderer the buffer's data type.
VertexComponentType componentType(VertexFormat format);

/// Bytes one attribute of this format takes in a vertex: components times component width,
/// 4 in all for the packed kinds.
int byteSize(VertexFormat format);

/// True where integers are read as normalised floats.
bool isNormalized(VertexFormat format);

/// True where the shader reads the attribute as integers (the unnormalised byte, short and int
/// kinds); false for halves, floats and every normalised kind.
bool isInteger(VertexFormat format);

} // namespace engine
