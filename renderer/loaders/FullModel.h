#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "renderer/gl/Gl.h"

namespace renderer::loaders {

/// One model of a scene as two GPU buffers: the vertices, interleaved as the draw state's layout
/// says, and unsigned 16-bit indices. On disk a model is a pair of headerless little-endian files
/// `<resourcesRoot>/<path>/<filename>-strides.bin` and `-indices.bin`; their bytes go to the GPU
/// as they stand. Neither file holds a count: the index count follows from the index file's
/// length, and the vertex count from the vertex file's length and the stride of the draws,
/// against which `checkLayout` holds the indices once, at load.
class FullModel {
public:
    /// The bytes of both files, as read from disk; an empty file gives an empty vector.
    struct Data {
        std::vector<std::byte> vertices;
        std::vector<std::byte> indices;
    };

    /// Takes a model name such as a mesh's `fileName` ("sky") or "models/vignette-round-vntao",
    /// and the scene's directory inside the resources ("nivalis", or empty for shared models).
    /// A bare name lives in "models"; a name with folders keeps them ("a/b" is `b` in `a`). A
    /// name that is no valid relative URL becomes an empty file name in "models". No file is
    /// touched here.
    FullModel(const std::string& name, std::string resourcesRoot);

    /// Last component of the name.
    const std::string& filename() const { return filename_; }
    /// Folder of the files relative to `resourcesRoot`.
    const std::string& path() const { return path_; }
    const std::string& resourcesRoot() const { return resourcesRoot_; }
    /// Names of the two files relative to `resourcesRoot`, as used in messages:
    /// `path` + "/" + `filename` + "-strides.bin" and "-indices.bin".
    std::string verticesFileName() const;
    std::string indicesFileName() const;

    /// The same names as paths inside the resources, as messages show them:
    /// "nivalis/models/sky-strides.bin" (no scene folder for the shared models).
    std::string verticesResourceName() const;
    std::string indicesResourceName() const;

    /// Reads both files below `resources`/`resourcesRoot`. Throws textures::LoadError with
    /// "File not found in bundle: " or "Cannot read resource " and the file's path inside the
    /// resources.
    Data read(const std::filesystem::path& resources) const;

    /// Reads both files and uploads each into a new buffer, replacing (and deleting) the
    /// buffers of an earlier load. An empty file leaves its buffer at 0. A file that is missing
    /// or unreadable stops the process with "Cannot create model buffers: " and the reason.
    void load(gl::Gl& gl, const std::filesystem::path& resources);
    /// Uploads data that was read already, with the same rules as `load`.
    void upload(gl::Gl& gl, const Data& data);
    /// Deletes both buffers, if any.
    void release(gl::Gl& gl);

    /// Checks the loaded files against a vertex layout of `stride` bytes, as a draw state
    /// declares it: the vertex file holds whole vertices, and every index names one of them.
    /// Throws textures::LoadError naming the file ("index 65535 past 57046 vertices"). A model
    /// without vertices (its draws read no vertex buffer) or without indices passes.
    void checkLayout(std::size_t stride) const;
    /// The same check on lengths alone, for data not loaded into a model.
    static void checkLayout(std::size_t vertexLength, std::size_t indexLength, unsigned highestIndex,
                            std::size_t stride, const std::string& verticesName, const std::string& indicesName);
    /// The highest of the little-endian 16-bit indices in `indices` (a last odd byte ignored),
    /// 0 when there are none.
    static unsigned highestIndex(const std::vector<std::byte>& indices);

    /// GL name of the vertex buffer, 0 when the vertex file was empty or nothing is loaded.
    GLuint vertexBuffer() const { return vertexBuffer_; }
    /// GL name of the index buffer, 0 when the index file was empty or nothing is loaded.
    GLuint indexBuffer() const { return indexBuffer_; }
    /// Length of the vertex file in bytes.
    std::size_t vertexBufferLength() const { return vertexLength_; }
    /// Length of the index file in bytes.
    std::size_t indexBufferLength() const { return indexLength_; }
    /// The number of indices a draw covers: the index file's length / 2, rounded down, so that
    /// a stray last byte is ignored.
    GLsizei indexCount() const { return static_cast<GLsizei>(indexLength_ / 2); }

private:
    std::string filename_;
    std::string path_;
    std::string resourcesRoot_;
    GLuint vertexBuffer_ = 0;
    GLuint indexBuffer_ = 0;
    std::size_t vertexLength_ = 0;
    std::size_t indexLength_ = 0;
    unsigned highestIndex_ = 0;
};

} // namespace renderer::loaders
