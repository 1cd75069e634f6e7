#include "scenes/betonia/Textures.h"

#include <string>

namespace scenes::betonia {

using engine::TextureFiltering;
using engine::TextureWrapping;

namespace {

std::shared_ptr<engine::Texture> astc(const std::string& name, int mipmaps, TextureFiltering filter,
                                      TextureWrapping wrapping, int anisotropy) {
    auto result = std::make_shared<engine::Texture>();
    result->name = name;
    result->fileName = name;
    result->format = engine::TextureFormat::ASTC;
    result->mipmaps = mipmaps;
    result->minFilter = filter;
    result->magFilter = filter;
    result->wrapping = wrapping;
    result->anisotropy = anisotropy;
    return result;
}

} // namespace

Textures::Textures() {
    texRoom1 = astc("room1", 11, TextureFiltering::LINEAR_MIPMAP_LINEAR, TextureWrapping::REPEAT, 3);
    texRoom20 = astc("room20", 12, TextureFiltering::LINEAR_MIPMAP_LINEAR, TextureWrapping::CLAMP_TO_EDGE, 3);
    texRoom21 = astc("room21", 0, TextureFiltering::LINEAR, TextureWrapping::REPEAT, 0);
    texRoom22 = astc("room22", 0, TextureFiltering::LINEAR, TextureWrapping::REPEAT, 0);
    textures = {texRoom1, texRoom20, texRoom21, texRoom22};
}

const Textures& Textures::shared() {
    static const Textures instance;
    return instance;
}

} // namespace scenes::betonia
