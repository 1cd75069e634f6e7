#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "engine/Texture.h"
#include "renderer/loaders/AstcTexture.h"
#include "renderer/gl/Gl.h"
#include "renderer/textures/LoadedTexture.h"

namespace renderer::textures {

/// Chooses the loader of a scene's texture description by its format and runs it:
///
/// | format          | file read                                   | loader                      |
/// |-----------------|---------------------------------------------|-----------------------------|
/// | RGBA8, RGB8     | `fileName` + ".webp"                        | WebpTexture                 |
/// | RGBA16F         | `fileName` as it stands ("bird.rgba.fp16")  | Fp16Texture, scene's size   |
/// | ASTC, mipmaps 0 | `fileName` + ".astc"                        | AstcTexture::load           |
/// | ASTC, mipmaps M | `fileName` + "_0.astc" ... "_M.astc"        | AstcTexture::loadMipmapped  |
/// | any other       | none                                        | no texture                  |
class TextureFiles {
public:
    TextureFiles() = delete;

    /// Loads the texture that `texture` describes from `directory` (the scene's
    /// `<resources>/<resourcesRoot>/textures`). Returns nothing for a format without a loader.
    /// Any loader error stops the process with "Cannot load texture ", the file's path inside
    /// the resources and the reason: "Cannot load texture nivalis/textures/snow.astc: magic
    /// 0x00000000 is not the ASTC magic".
    static std::optional<LoadedTexture>
    load(gl::Gl& gl, const engine::Texture& texture, const std::filesystem::path& directory,
         loaders::AstcTexture::Decoding decoding = loaders::AstcTexture::Decoding::AUTO);

    /// The same, throwing the loader's own error instead of stopping.
    static std::optional<LoadedTexture>
    tryLoad(gl::Gl& gl, const engine::Texture& texture, const std::filesystem::path& directory,
            loaders::AstcTexture::Decoding decoding = loaders::AstcTexture::Decoding::AUTO);

    /// The path inside the resources of `file` in `directory`, a scene's texture folder:
    /// "<resourcesRoot>/textures/<file>".
    static std::string resourceName(const std::filesystem::path& directory, const std::string& file);
};

} // namespace renderer::textures
