#include "scenes/nivalis/Penguins.h"

namespace scenes::nivalis {

namespace {

AnimatedObjectInfo standing(float x, float y, float z, float rotationZ, float scale, float animTimerOffset) {
    return AnimatedObjectInfo(scale, animTimerOffset, {x, y, z}, {0.0f, 0.0f, rotationZ});
}

} // namespace

Penguins::Penguins() {
    IDLE = {
        standing(-10793.156f, 7192.894f, 37.26f, -160.0f, 0.88f, 0.5f),
        standing(-10851.307f, 7243.238f, 37.26f, 70.0f, 0.75f, 0.25f),
        standing(-10762.938f, 7258.693f, 37.26f, 0.0f, 0.65f, 0.77f),
        standing(-10280.157f, 8529.577f, 69.556f, -20.0f, 0.65f, 0.2f),
        standing(-10359.45f, 8782.093f, 69.556f, 70.0f, 0.77f, 0.35f),
        standing(-10081.696f, 8657.917f, 69.556f, -160.0f, 0.85f, 0.75f),
        standing(-10150.821f, 9009.801f, 69.556f, 130.0f, 0.7f, 0.66f),
        standing(-10006.514f, 8820.707f, 69.556f, -90.0f, 0.8f, 0.8f),
        standing(-9890.24f, 8932.688f, 69.556f, 140.0f, 0.85f, 0.5f),
    };
    IDLE2 = {
        standing(-12338.941f, 6764.751f, 33.536f, 180.0f, 0.9f, 0.2f),
        standing(-12192.411f, 6887.637f, 33.536f, -135.0f, 0.8f, 0.33f),
        standing(-12480.681f, 6825.791f, 33.536f, 160.0f, 0.75f, 0.5f),
        standing(-10744.105f, 7007.923f, 33.536f, -160.0f, 0.75f, 0.5f),
        standing(-11312.577f, 8120.395f, 33.536f, 50.0f, 0.75f, 0.75f),
        standing(-10070.444f, 7941.108f, 65.833f, 155.0f, 0.75f, 0.8f),
    };
}

const Penguins& Penguins::shared() {
    static const Penguins instance;
    return instance;
}

} // namespace scenes::nivalis
