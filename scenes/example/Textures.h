#pragma once

#include <memory>
#include <vector>

#include "engine/Texture.h"

namespace scenes::example {

/// The sample scene's two textures, built once on first use.
class Textures {
public:
    /// "testfp16", file "Alpaca/Eating/animal.rgba.fp16": the animal's vertex animation,
    /// RGBA16F 362 x 19, nearest.
    std::shared_ptr<engine::Texture> texFp16;
    /// "static": the test model's texture.
    std::shared_ptr<engine::Texture> texStatic;

    /// Both, in the order above.
    std::vector<std::shared_ptr<engine::Texture>> textures;

    /// The one instance.
    static const Textures& shared();

private:
    Textures();
};

} // namespace scenes::example
