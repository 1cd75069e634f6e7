#include "engine/Texture.h"

namespace engine {

std::string Texture::toString() const {
    std::string text = "Texture(type=";
    text += engine::toString(type);
    text += ", name=" + name;
    text += ", fileName=" + fileName;
    text += ", minFilter=";
    text += engine::toString(minFilter);
    text += ", magFilter=";
    text += engine::toString(magFilter);
    text += ", wrapping=";
    text += engine::toString(wrapping);
    text += ", format=";
    text += engine::toString(format);
    text += ", id=" + std::to_string(id);
    text += ", width=" + std::to_string(width);
    text += ", height=" + std::to_string(height);
    text += ", mipmaps=" + std::to_string(mipmaps);
    text += ", anisotropy=" + std::to_string(anisotropy);
    text += ", loaded=";
    text += loaded ? "true" : "false";
    text += ")";
    return text;
}

} // namespace engine
