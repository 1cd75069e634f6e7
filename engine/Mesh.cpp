#include "engine/Mesh.h"

#include <utility>

namespace engine {

Mesh::Mesh(std::string name, std::shared_ptr<MeshAttributes> attrs)
    : name(name), fileName(std::move(name)), attributes(std::move(attrs)) {}

std::string Mesh::toString() const {
    return "Mesh(name=" + name + ", fileName=" + fileName +
           ", attributes=" + (attributes ? attributes->toString() : std::string("null")) +
           ", id=" + std::to_string(id) + ", loaded=" + (loaded ? "true" : "false") + ")";
}

} // namespace engine
