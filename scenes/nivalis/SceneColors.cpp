#include "scenes/nivalis/SceneColors.h"

#include "engine/common/Hash.h"

namespace scenes::nivalis {

SceneColors::SceneColors(bool isDay, bool isLowSun, bool drawBirds, const engine::math::Vec4& birds,
                         const engine::math::Vec4& clouds, const engine::math::Vec4& stars,
                         const engine::math::Vec4& waterColorNear, const engine::math::Vec4& waterColorFar,
                         const engine::math::Vec4& distantZFogColor)
    : isDay(isDay), isLowSun(isLowSun), drawBirds(drawBirds), birds(birds), clouds(clouds), stars(stars),
      waterColorNear(waterColorNear), waterColorFar(waterColorFar), distantZFogColor(distantZFogColor) {}

std::size_t SceneColors::hash() const {
    std::size_t seed = 0;
    engine::common::hashCombine(seed, isDay);
    engine::common::hashCombine(seed, isLowSun);
    engine::common::hashCombine(seed, drawBirds);
    engine::common::hashCombine(seed, birds);
    engine::common::hashCombine(seed, clouds);
    engine::common::hashCombine(seed, stars);
    engine::common::hashCombine(seed, waterColorNear);
    engine::common::hashCombine(seed, waterColorFar);
    engine::common::hashCombine(seed, distantZFogColor);
    return seed;
}

std::string SceneColors::toString() const {
    const auto flag = [](bool value) { return value ? std::string("true") : std::string("false"); };
    return "SceneColors(isDay=" + flag(isDay) + ", isLowSun=" + flag(isLowSun) + ", drawBirds=" + flag(drawBirds) +
           ", birds=" + birds.toString() + ", clouds=" + clouds.toString() + ", stars=" + stars.toString() +
           ", waterColorNear=" + waterColorNear.toString() + ", waterColorFar=" + waterColorFar.toString() +
           ", distantZFogColor=" + distantZFogColor.toString() + ")";
}

} // namespace scenes::nivalis
