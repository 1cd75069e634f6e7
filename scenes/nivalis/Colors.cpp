#include "scenes/nivalis/Colors.h"

namespace scenes::nivalis {

namespace {

/// A colour given as bytes of red, green and blue, with its alpha as stored.
engine::math::Vec4 rgb(int r, int g, int b, float a) {
    return {static_cast<float>(r) / 255.0f, static_cast<float>(g) / 255.0f, static_cast<float>(b) / 255.0f, a};
}

} // namespace

Colors::Colors()
    : COLORS{
          // Day
          SceneColors(true, false, true, rgb(80, 80, 80, 1.0f), rgb(221, 248, 255, 0.3f), rgb(221, 248, 255, 0.3f),
                      rgb(55, 161, 211, 0.0f), rgb(131, 213, 227, 0.0f), rgb(255, 255, 255, 0.75f)),
          // Night
          SceneColors(false, false, false, rgb(255, 0, 0, 1.0f), rgb(15, 67, 98, 0.3f), rgb(255, 255, 255, 1.0f),
                      rgb(9, 44, 82, 0.0f), rgb(11, 31, 56, 0.0f), rgb(67, 123, 156, 0.75f)),
          // Sunrise
          SceneColors(true, true, true, rgb(126, 109, 68, 1.0f), rgb(237, 191, 99, 0.3f), rgb(221, 248, 255, 0.3f),
                      rgb(151, 161, 130, 0.0f), rgb(217, 187, 137, 0.0f), rgb(229, 223, 182, 0.75f)),
          // Sunset
          SceneColors(true, true, false, rgb(94, 45, 53, 1.0f), rgb(116, 71, 128, 0.3f), rgb(255, 255, 255, 1.0f),
                      rgb(20, 53, 116, 0.0f), rgb(66, 62, 130, 0.0f), rgb(225, 172, 214, 0.75f)),
      } {}

const Colors& Colors::shared() {
    static const Colors instance;
    return instance;
}

} // namespace scenes::nivalis
