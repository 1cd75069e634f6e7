#pragma once

#include "engine/animation/TextureAnimationChunked.h"

namespace scenes::nivalis {

/// The five vertex animations, one per animation texture, built once on first use. Each holds a
/// single chunk (every vertex fits one texture row), so the texture is one row taller than the
/// number of key poses.
class Animations {
public:
    /// Wing beat: 133 vertices, 3 poses, texture 133 x 4.
    engine::animation::TextureAnimationChunked animationBird;
    /// Penguin idle: 341 x 16, 15 poses.
    engine::animation::TextureAnimationChunked animationPenguinIdle;
    /// Second penguin idle: 238 x 11, 10 poses.
    engine::animation::TextureAnimationChunked animationPenguinIdle2;
    /// Seal idle: 263 x 10, 9 poses.
    engine::animation::TextureAnimationChunked animationSealIdle;
    /// Seal walk: 263 x 13, 12 poses.
    engine::animation::TextureAnimationChunked animationSealWalk;

    /// The one instance.
    static const Animations& shared();

private:
    Animations();
};

} // namespace scenes::nivalis
