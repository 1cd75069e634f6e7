#include "scenes/nivalis/Animations.h"

namespace scenes::nivalis {

// A single chunk each: the vertex count equals the row width.
Animations::Animations()
    : animationBird(133, 133, 3), animationPenguinIdle(341, 341, 15), animationPenguinIdle2(238, 238, 10),
      animationSealIdle(263, 263, 9), animationSealWalk(263, 263, 12) {}

const Animations& Animations::shared() {
    static const Animations instance;
    return instance;
}

} // namespace scenes::nivalis
