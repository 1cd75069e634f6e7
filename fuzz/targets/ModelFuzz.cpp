// A model: its name as a scene gives it, and its file pair checked against a draw's stride.
// The input is [stride: 1 byte][name length: 1 byte][name][vertex file length: 2 bytes LE]
// [vertex file][index file].
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "renderer/loaders/FullModel.h"
#include "renderer/textures/LoadError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using renderer::loaders::FullModel;
    if (size < 4) {
        return 0;
    }
    const std::size_t stride = data[0];
    std::size_t at = 2;
    const std::size_t nameLength = data[1] < size - at ? data[1] : size - at;
    const std::string name(reinterpret_cast<const char*>(data + at), nameLength);
    at += nameLength;
    const FullModel model(name, "fuzz");
    if (model.verticesFileName().empty() || model.path().empty()) {
        __builtin_trap();
    }
    if (size - at < 2) {
        return 0;
    }
    std::size_t vertexLength = data[at] | data[at + 1] << 8;
    at += 2;
    vertexLength = vertexLength < size - at ? vertexLength : size - at;
    const std::vector<std::byte> indices(reinterpret_cast<const std::byte*>(data + at + vertexLength),
                                         reinterpret_cast<const std::byte*>(data + size));
    const unsigned highest = FullModel::highestIndex(indices);
    try {
        FullModel::checkLayout(vertexLength, indices.size(), highest, stride, "v", "i");
    } catch (const renderer::textures::LoadError&) {
        return 0;
    }
    // Passed: every index names a whole vertex inside the vertex file.
    if (stride != 0 && vertexLength != 0 && indices.size() >= 2 && (highest + 1) * stride > vertexLength) {
        __builtin_trap();
    }
    return 0;
}
