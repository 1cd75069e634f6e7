#include "renderer/textures/FatalError.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace renderer::textures {

void fatalError(std::string_view message) {
    const std::string line = "Fatal error: " + std::string(message) + "\n";
    std::fflush(stdout);
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
    std::_Exit(1);
}

} // namespace renderer::textures
