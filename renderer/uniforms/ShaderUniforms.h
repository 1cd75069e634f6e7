#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "renderer/uniforms/Uniform.h"

namespace renderer::uniforms {

/// A renderer's uniform table: for each shader name, where each value of a draw goes. Row i
/// describes element i of `DrawMeshCommand::uniforms`, so the order of a draw's values and the
/// order of its row are one contract between a scene and its renderer. A shader without
/// uniforms still has a (possibly empty) row.
using ShaderUniforms = std::unordered_map<std::string, std::vector<Uniform>>;

} // namespace renderer::uniforms
