#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tools::assetgen::io {

/// The resources directory being written, and the bookkeeping of what went into it. File names
/// follow the loaders: a model "name" of a scene lies in `<root>/models/name-strides.bin`, a model
/// "dir/name" in `<root>/dir/name-strides.bin`; textures lie below `<root>/textures/`.
class OutputTree {
public:
    /// A tree rooted at `resources` (created when missing).
    explicit OutputTree(std::filesystem::path resources);

    const std::filesystem::path& resources() const { return resources_; }
    /// The stem of a model's files (without "-strides.bin"), for a scene's `resourcesRoot`
    /// ("" for the shared models at the top) and a mesh's `fileName`.
    std::filesystem::path modelStem(const std::string& resourcesRoot, const std::string& fileName) const;
    /// The path of a texture file `fileName` (with its extension) of a scene.
    std::filesystem::path texturePath(const std::string& resourcesRoot, const std::string& fileName) const;

    /// Writes `bytes` to `path` (creating folders) and records it. Writes only when the content
    /// differs, so that an unchanged file keeps its time stamp.
    void write(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes);
    /// Every path written so far, in order.
    const std::vector<std::filesystem::path>& written() const { return written_; }
    /// Total bytes written so far.
    std::uint64_t totalBytes() const { return totalBytes_; }

private:
    std::filesystem::path resources_;
    std::vector<std::filesystem::path> written_;
    std::uint64_t totalBytes_ = 0;
};

} // namespace tools::assetgen::io
