#pragma once

#include <epoxy/gl.h>

#include <cstddef>
#include <vector>

namespace renderer::gpu {

/// How one interleaved vertex buffer feeds a pipeline's attributes: attribute i of the layout is
/// shader location i, read from byte `offset` of each vertex, vertices `stride` bytes apart.
class VertexLayout {
public:
    /// One attribute in GL terms.
    struct Attribute {
        GLuint location = 0;
        /// Components, 1 to 4.
        GLint size = 4;
        /// GL_FLOAT, GL_HALF_FLOAT, GL_UNSIGNED_BYTE, ..., GL_INT_2_10_10_10_REV.
        GLenum type = GL_FLOAT;
        /// Integers read as 0..1 or -1..1.
        bool normalized = false;
        /// Integers read as integers by the shader (glVertexAttribIPointer).
        bool integer = false;
        std::size_t offset = 0;

        bool operator==(const Attribute&) const = default;
    };

    std::vector<Attribute> attributes;
    GLsizei stride = 0;

    bool operator==(const VertexLayout&) const = default;
};

} // namespace renderer::gpu
