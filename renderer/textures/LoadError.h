#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace renderer::textures {

/// A resource file that cannot be used: which file and why, in a few words. The loaders throw it
/// so that the stop that follows ("Cannot load texture ", "Cannot create model buffers: ") can
/// name the file by its path inside the resources and give the reason. `what()` is the text the
/// thrower chose; where none is given it is "<file>: <reason>".
class LoadError : public std::runtime_error {
public:
    /// `file` is the file's name as the loader looked it up (extension included), `reason` a
    /// few words such as "block size 0x255 is not an ASTC block size".
    LoadError(std::string file, std::string reason)
        : std::runtime_error(file + ": " + reason), file_(std::move(file)), reason_(std::move(reason)) {}
    /// The same with a `what()` text of its own, for the long-standing messages such as
    /// "File not found in bundle: sky".
    LoadError(std::string file, std::string reason, const std::string& what)
        : std::runtime_error(what), file_(std::move(file)), reason_(std::move(reason)) {}

    /// The file's name relative to the folder the loader was given.
    const std::string& file() const { return file_; }
    /// Why the file cannot be used.
    const std::string& reason() const { return reason_; }

private:
    std::string file_;
    std::string reason_;
};

} // namespace renderer::textures
