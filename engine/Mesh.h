#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/MeshAttributes.h"

namespace engine {

/// A model that a scene names: the renderer loads it from `<resourcesRoot>/models/<fileName>`
/// files and records where it put it in `id` and `loaded`. Held through shared pointers by the
/// scene's list and by the draws that use it.
class Mesh {
public:
    /// The scene's label.
    std::string name;
    /// Stem of the model files.
    std::string fileName;
    /// Layout of the file's vertex data; null until a scene sets it.
    std::shared_ptr<MeshAttributes> attributes;
    /// Position in the renderer's arrays, written at load.
    std::int32_t id = 0;
    /// Set by the renderer once the buffers exist.
    bool loaded = false;

    /// An empty description, filled in field by field.
    Mesh() = default;
    /// A mesh whose label and file stem are both `name`, with the layout `attrs`.
    Mesh(std::string name, std::shared_ptr<MeshAttributes> attrs);

    /// "Mesh(name=sky, fileName=sky, attributes=MeshAttributes(...), id=0, loaded=false)";
    /// a missing layout reads "null".
    std::string toString() const;
};

} // namespace engine
