#include "tools/assetgen/io/OutputTree.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tools::assetgen::io {

OutputTree::OutputTree(std::filesystem::path resources) : resources_(std::move(resources)) {
    std::filesystem::create_directories(resources_);
}

std::filesystem::path OutputTree::modelStem(const std::string& resourcesRoot, const std::string& fileName) const {
    const std::filesystem::path name(fileName);
    std::filesystem::path dir = name.parent_path();
    if (dir.empty()) {
        dir = "models";
    }
    return resources_ / resourcesRoot / dir / name.filename();
}

std::filesystem::path OutputTree::texturePath(const std::string& resourcesRoot, const std::string& fileName) const {
    return resources_ / resourcesRoot / "textures" / fileName;
}

void OutputTree::write(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    std::filesystem::create_directories(path.parent_path());
    bool same = false;
    {
        std::ifstream in(path, std::ios::binary);
        if (in) {
            std::vector<char> old((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
            same = old.size() == bytes.size() && std::equal(old.begin(), old.end(), bytes.begin(),
                                                            [](char a, std::uint8_t b) {
                                                                return static_cast<std::uint8_t>(a) == b;
                                                            });
        }
    }
    if (!same) {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!out) {
            throw std::runtime_error("Cannot write " + path.string());
        }
    }
    written_.push_back(path);
    totalBytes_ += bytes.size();
}

} // namespace tools::assetgen::io
