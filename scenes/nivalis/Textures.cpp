#include "scenes/nivalis/Textures.h"

#include <string>

namespace scenes::nivalis {

using engine::Texture;
using engine::TextureFiltering;
using engine::TextureFormat;
using engine::TextureWrapping;

namespace {

std::shared_ptr<Texture> texture(const std::string& name, const std::string& fileName, TextureFiltering minFilter,
                                 TextureFiltering magFilter, TextureWrapping wrapping, TextureFormat format,
                                 int width = 0, int height = 0, int mipmaps = 0) {
    auto result = std::make_shared<Texture>();
    result->type = engine::TextureType::TEX_2D;
    result->name = name;
    result->fileName = fileName;
    result->minFilter = minFilter;
    result->magFilter = magFilter;
    result->wrapping = wrapping;
    result->format = format;
    result->width = width;
    result->height = height;
    result->mipmaps = mipmaps;
    return result;
}

std::shared_ptr<Texture> palette(const std::string& name) {
    return texture(name, name, TextureFiltering::NEAREST, TextureFiltering::NEAREST, TextureWrapping::CLAMP_TO_EDGE,
                   TextureFormat::RGBA8);
}

std::shared_ptr<Texture> sky(const std::string& name) {
    return texture(name, name, TextureFiltering::LINEAR, TextureFiltering::LINEAR, TextureWrapping::CLAMP_TO_EDGE,
                   TextureFormat::RGBA8);
}

std::shared_ptr<Texture> animation(const std::string& name, const std::string& fileName, int width, int height) {
    return texture(name, fileName, TextureFiltering::NEAREST, TextureFiltering::NEAREST, TextureWrapping::REPEAT,
                   TextureFormat::RGBA16F, width, height);
}

} // namespace

Textures::Textures() {
    texPaletteDay = palette("palette-day");
    texPaletteNight = palette("palette-night");
    texPaletteSunrise = palette("palette-sunrise");
    texPaletteSunset = palette("palette-sunset");
    texSkyDay = sky("sky-day");
    texSkyNight = sky("sky-night");
    texSkySunrise = sky("sky-sunrise");
    texSkySunset = sky("sky-sunset");
    texNoise = texture("blue-noise-16", "blue-noise-16", TextureFiltering::NEAREST, TextureFiltering::NEAREST,
                       TextureWrapping::REPEAT, TextureFormat::ASTC);
    texWater = texture("caustics1", "caustics1", TextureFiltering::LINEAR, TextureFiltering::LINEAR_MIPMAP_LINEAR,
                       TextureWrapping::REPEAT, TextureFormat::ASTC, 0, 0, 6);
    texBird = animation("bird", "bird.rgba.fp16", 133, 4);
    texPenguinIdle = animation("penguin-idle", "penguin/idle/animal.rgba.fp16", 341, 16);
    texPenguinIdle2 = animation("penguin-idle", "penguin/idle2/animal.rgba.fp16", 238, 11);
    texSealIdle = animation("seal-idle", "seal/idle/animal.rgba.fp16", 263, 10);
    texSealWalk = animation("seal-walk", "seal/walk/animal.rgba.fp16", 263, 13);

    textures = {texPaletteDay, texPaletteNight, texPaletteSunrise, texPaletteSunset, texSkyDay,
                texSkyNight,   texSkySunrise,   texSkySunset,      texNoise,         texWater,
                texBird,       texPenguinIdle,  texPenguinIdle2,   texSealIdle,      texSealWalk};
    palettes = {texPaletteDay, texPaletteNight, texPaletteSunrise, texPaletteSunset};
    skies = {texSkyDay, texSkyNight, texSkySunrise, texSkySunset};
}

const Textures& Textures::shared() {
    static const Textures instance;
    return instance;
}

} // namespace scenes::nivalis
