#pragma once

#include <memory>
#include <vector>

#include "engine/Texture.h"

namespace scenes::betonia {

/// The rooms' baked textures, built once on first use; all ASTC, `name` equal to `fileName`.
class Textures {
public:
    /// "room1": 11 mipmaps, trilinear, repeated, anisotropy 3.
    std::shared_ptr<engine::Texture> texRoom1;
    /// "room20": 12 mipmaps, trilinear, clamped, anisotropy 3.
    std::shared_ptr<engine::Texture> texRoom20;
    /// "room21": no mipmaps, linear, repeated; also the blurred copies' texture.
    std::shared_ptr<engine::Texture> texRoom21;
    /// "room22": no mipmaps, linear, repeated.
    std::shared_ptr<engine::Texture> texRoom22;

    /// All four, in the order above.
    std::vector<std::shared_ptr<engine::Texture>> textures;

    /// The one instance.
    static const Textures& shared();

private:
    Textures();
};

} // namespace scenes::betonia
