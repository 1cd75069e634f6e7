#include "scenes/spirelight/Textures.h"

#include <string>

namespace scenes::spirelight {

using engine::Texture;
using engine::TextureFiltering;
using engine::TextureType;
using engine::TextureWrapping;

namespace {

std::shared_ptr<Texture> astc(const std::string& name, TextureType type, TextureFiltering filter,
                              TextureWrapping wrapping, int mipmaps) {
    auto result = std::make_shared<Texture>();
    result->type = type;
    result->name = name;
    result->fileName = name;
    result->minFilter = filter;
    result->magFilter = filter;
    result->wrapping = wrapping;
    result->format = engine::TextureFormat::ASTC;
    result->mipmaps = mipmaps;
    return result;
}

} // namespace

Textures::Textures() {
    using enum TextureFiltering;
    texSky = astc("sky-night", TextureType::TEX_2D, LINEAR, TextureWrapping::CLAMP_TO_EDGE, 0);
    texNoise = astc("blue-noise-16", TextureType::TEX_2D, NEAREST, TextureWrapping::REPEAT, 0);
    texBuildingsDiffuse = astc("diffuse2", TextureType::TEX_2D, LINEAR_MIPMAP_LINEAR, TextureWrapping::REPEAT, 11);
    texBuildingsEmission = astc("emission2", TextureType::TEX_2D, LINEAR_MIPMAP_LINEAR, TextureWrapping::REPEAT, 11);
    texBuildingsCubemap = astc("cubemaps/1/sky", TextureType::CUBEMAP, LINEAR, TextureWrapping::REPEAT, 0);
    texBuildingsDistant = astc("distant", TextureType::TEX_2D, LINEAR, TextureWrapping::REPEAT, 8);
    texNeon = astc("neon", TextureType::TEX_2D, LINEAR_MIPMAP_LINEAR, TextureWrapping::REPEAT, 9);
    texFlare = astc("flare", TextureType::TEX_2D, LINEAR_MIPMAP_LINEAR, TextureWrapping::REPEAT, 3);
    texDust = astc("dust", TextureType::TEX_2D, NEAREST, TextureWrapping::REPEAT, 0);
    texNeon2 = astc("neon2", TextureType::TEX_2D, LINEAR_MIPMAP_LINEAR, TextureWrapping::REPEAT, 5);

    textures = {texSky,              texNoise, texBuildingsDiffuse, texBuildingsEmission, texBuildingsCubemap,
                texBuildingsDistant, texNeon,  texFlare,            texDust,              texNeon2};
}

const Textures& Textures::shared() {
    static const Textures instance;
    return instance;
}

} // namespace scenes::spirelight
