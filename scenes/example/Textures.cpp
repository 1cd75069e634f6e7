#include "scenes/example/Textures.h"

namespace scenes::example {

Textures::Textures() {
    texFp16 = std::make_shared<engine::Texture>();
    texFp16->name = "testfp16";
    texFp16->fileName = "Alpaca/Eating/animal.rgba.fp16";
    texFp16->format = engine::TextureFormat::RGBA16F;
    texFp16->minFilter = engine::TextureFiltering::NEAREST;
    texFp16->magFilter = engine::TextureFiltering::NEAREST;
    texFp16->width = 362;
    texFp16->height = 19;

    texStatic = std::make_shared<engine::Texture>();
    texStatic->name = "static";
    texStatic->fileName = "static";

    textures = {texFp16, texStatic};
}

const Textures& Textures::shared() {
    static const Textures instance;
    return instance;
}

} // namespace scenes::example
