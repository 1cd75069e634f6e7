#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace renderer::textures {

/// Whole-file reads of the resources that the renderer loads at start (models, textures). The
/// errors carry the texts that end up after a loader's "Cannot ..." stop, so that a missing or
/// unreadable file is named the same way by every loader.
class ResourceFile {
public:
    ResourceFile() = delete;

    /// The bytes of `directory`/`name``type`. `name` is the name relative to `directory` and may
    /// hold folders of its own ("models/sky-strides.bin"); `type` is an extension that messages
    /// leave out (".astc"). Throws LoadError with "File not found in bundle: " + `name` when no
    /// regular file is there (a directory, FIFO or device in its place is never opened for
    /// reading, so never waited on), and with "Cannot read resource " + `name` when it cannot
    /// be read; its reason says which. An empty file gives an empty vector, no error.
    static std::vector<std::byte> read(const std::filesystem::path& directory, const std::string& name,
                                       const std::string& type = "");
};

} // namespace renderer::textures
