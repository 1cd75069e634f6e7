#include "tools/assetgen/nivalis/Palette.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tools::assetgen::nivalis {

namespace {

struct Entry {
    Palette::Swatch swatch;
    std::vector<std::array<int, 3>> shades; // lit to dark, bytes
};

using Table = std::vector<Entry>;

// Day: clear and cool. Blue-grey rock, white snow with blue shadows.
const Table& day() {
    static const Table table = {
        {Palette::SNOW, {{246, 250, 255}, {222, 234, 247}, {188, 208, 232}, {156, 180, 214}}},
        {Palette::ROCK, {{126, 138, 156}, {102, 114, 134}, {80, 90, 112}, {60, 68, 90}}},
        {Palette::ICE, {{228, 243, 251}, {204, 228, 244}, {174, 208, 234}, {146, 186, 222}}},
        {Palette::ICE_CLIFF, {{156, 210, 238}, {122, 184, 224}, {94, 158, 208}, {72, 132, 190}}},
        {Palette::SHORE, {{74, 84, 98}, {52, 58, 72}}},
        {Palette::DISTANT_SNOW, {{238, 245, 252}, {200, 218, 238}}},
        {Palette::DISTANT_ROCK, {{146, 162, 184}, {118, 134, 160}}},
        {Palette::HULL, {{44, 48, 58}, {30, 33, 42}}},
        {Palette::HULL_RED, {{156, 44, 40}}},
        {Palette::DECK, {{150, 128, 104}}},
        {Palette::CABIN, {{242, 242, 238}, {192, 198, 208}}},
        {Palette::FUNNEL, {{226, 150, 42}}},
        {Palette::FUNNEL_BAND, {{34, 34, 38}}},
        {Palette::WINDOW, {{52, 74, 96}}},
        {Palette::MAST, {{96, 96, 102}}},
        {Palette::PENGUIN_BACK, {{34, 38, 48}, {24, 26, 34}}},
        {Palette::PENGUIN_BELLY, {{244, 244, 240}, {200, 206, 216}}},
        {Palette::PENGUIN_BEAK, {{234, 120, 34}}},
        {Palette::PENGUIN_NECK, {{252, 196, 64}}},
        {Palette::SEAL, {{122, 116, 112}, {90, 86, 88}}},
        {Palette::SEAL_BELLY, {{176, 166, 154}}},
        {Palette::SEAL_DARK, {{40, 38, 42}}},
        {Palette::SUN_CORE, {{255, 255, 250}}},
        {Palette::SUN_RIM, {{255, 238, 186}}},
    };
    return table;
}

// Night: deep blue, the snow lit by the moon, the sun's models showing the moon.
const Table& night() {
    static const Table table = {
        {Palette::SNOW, {{150, 178, 216}, {120, 150, 194}, {92, 118, 166}, {68, 90, 138}}},
        {Palette::ROCK, {{58, 68, 96}, {46, 54, 82}, {36, 42, 68}, {27, 32, 54}}},
        {Palette::ICE, {{136, 170, 212}, {112, 148, 194}, {90, 126, 176}, {70, 104, 156}}},
        {Palette::ICE_CLIFF, {{64, 108, 160}, {52, 92, 142}, {42, 78, 126}, {32, 62, 108}}},
        {Palette::SHORE, {{28, 34, 52}, {20, 24, 40}}},
        {Palette::DISTANT_SNOW, {{112, 146, 186}, {86, 116, 160}}},
        {Palette::DISTANT_ROCK, {{56, 74, 106}, {44, 60, 92}}},
        {Palette::HULL, {{22, 24, 32}, {16, 18, 24}}},
        {Palette::HULL_RED, {{70, 28, 34}}},
        {Palette::DECK, {{64, 60, 66}}},
        {Palette::CABIN, {{120, 130, 156}, {90, 100, 128}}},
        {Palette::FUNNEL, {{104, 80, 52}}},
        {Palette::FUNNEL_BAND, {{18, 18, 22}}},
        {Palette::WINDOW, {{255, 214, 128}}},
        {Palette::MAST, {{44, 46, 56}}},
        {Palette::PENGUIN_BACK, {{16, 20, 32}, {12, 14, 24}}},
        {Palette::PENGUIN_BELLY, {{130, 150, 184}, {100, 118, 154}}},
        {Palette::PENGUIN_BEAK, {{120, 74, 52}}},
        {Palette::PENGUIN_NECK, {{130, 112, 80}}},
        {Palette::SEAL, {{54, 60, 80}, {40, 44, 62}}},
        {Palette::SEAL_BELLY, {{82, 90, 114}}},
        {Palette::SEAL_DARK, {{18, 20, 28}}},
        {Palette::SUN_CORE, {{232, 238, 250}}},
        {Palette::SUN_RIM, {{176, 194, 224}}},
    };
    return table;
}

// Sunrise: warm gold on the lit faces, cool lavender in the shade.
const Table& sunrise() {
    static const Table table = {
        {Palette::SNOW, {{255, 234, 192}, {242, 214, 184}, {184, 176, 196}, {146, 142, 172}}},
        {Palette::ROCK, {{158, 126, 104}, {126, 104, 94}, {94, 86, 96}, {68, 64, 80}}},
        {Palette::ICE, {{252, 232, 198}, {232, 214, 196}, {180, 186, 204}, {148, 160, 190}}},
        {Palette::ICE_CLIFF, {{196, 196, 196}, {150, 170, 196}, {116, 146, 184}, {90, 120, 166}}},
        {Palette::SHORE, {{88, 78, 76}, {60, 56, 62}}},
        {Palette::DISTANT_SNOW, {{246, 226, 196}, {206, 196, 200}}},
        {Palette::DISTANT_ROCK, {{168, 148, 140}, {136, 126, 134}}},
        {Palette::HULL, {{52, 46, 50}, {34, 32, 38}}},
        {Palette::HULL_RED, {{170, 60, 40}}},
        {Palette::DECK, {{170, 136, 100}}},
        {Palette::CABIN, {{255, 236, 206}, {196, 186, 190}}},
        {Palette::FUNNEL, {{240, 160, 50}}},
        {Palette::FUNNEL_BAND, {{36, 32, 34}}},
        {Palette::WINDOW, {{255, 206, 120}}},
        {Palette::MAST, {{110, 96, 92}}},
        {Palette::PENGUIN_BACK, {{40, 36, 40}, {28, 26, 32}}},
        {Palette::PENGUIN_BELLY, {{255, 236, 210}, {206, 198, 204}}},
        {Palette::PENGUIN_BEAK, {{246, 128, 34}}},
        {Palette::PENGUIN_NECK, {{255, 200, 70}}},
        {Palette::SEAL, {{138, 116, 100}, {98, 86, 86}}},
        {Palette::SEAL_BELLY, {{196, 170, 146}}},
        {Palette::SEAL_DARK, {{44, 38, 40}}},
        {Palette::SUN_CORE, {{255, 246, 208}}},
        {Palette::SUN_RIM, {{255, 206, 120}}},
    };
    return table;
}

// Sunset: rose on the lit faces, violet shadows.
const Table& sunset() {
    static const Table table = {
        {Palette::SNOW, {{255, 196, 204}, {232, 172, 198}, {156, 134, 184}, {116, 100, 154}}},
        {Palette::ROCK, {{146, 104, 124}, {116, 86, 114}, {86, 68, 102}, {62, 50, 84}}},
        {Palette::ICE, {{250, 200, 214}, {224, 180, 210}, {160, 148, 196}, {126, 120, 176}}},
        {Palette::ICE_CLIFF, {{178, 150, 206}, {140, 126, 192}, {108, 104, 176}, {84, 84, 156}}},
        {Palette::SHORE, {{70, 54, 78}, {48, 40, 62}}},
        {Palette::DISTANT_SNOW, {{240, 196, 220}, {196, 164, 206}}},
        {Palette::DISTANT_ROCK, {{150, 118, 152}, {120, 96, 138}}},
        {Palette::HULL, {{44, 34, 48}, {30, 24, 36}}},
        {Palette::HULL_RED, {{150, 46, 58}}},
        {Palette::DECK, {{146, 108, 104}}},
        {Palette::CABIN, {{255, 214, 218}, {176, 156, 184}}},
        {Palette::FUNNEL, {{232, 132, 70}}},
        {Palette::FUNNEL_BAND, {{30, 24, 32}}},
        {Palette::WINDOW, {{255, 200, 130}}},
        {Palette::MAST, {{100, 80, 96}}},
        {Palette::PENGUIN_BACK, {{36, 28, 42}, {26, 20, 32}}},
        {Palette::PENGUIN_BELLY, {{252, 214, 222}, {186, 168, 196}}},
        {Palette::PENGUIN_BEAK, {{236, 110, 50}}},
        {Palette::PENGUIN_NECK, {{250, 170, 90}}},
        {Palette::SEAL, {{124, 96, 108}, {88, 70, 88}}},
        {Palette::SEAL_BELLY, {{180, 146, 152}}},
        {Palette::SEAL_DARK, {{38, 30, 40}}},
        {Palette::SUN_CORE, {{255, 236, 196}}},
        {Palette::SUN_RIM, {{255, 158, 116}}},
    };
    return table;
}

} // namespace

double Palette::u(Swatch swatch, int shade) {
    const int column = swatch.column + std::clamp(shade, 0, swatch.shades - 1);
    return (column + 0.5) / WIDTH;
}

core::Image Palette::image(scenes::nivalis::TimeOfDay time) {
    const Table& table = time == scenes::nivalis::TimeOfDay::Night     ? night()
                         : time == scenes::nivalis::TimeOfDay::Sunrise ? sunrise()
                         : time == scenes::nivalis::TimeOfDay::Sunset  ? sunset()
                                                                       : day();
    // Unused columns stay a loud green, so that a wrong coordinate shows at once.
    core::Image image(WIDTH, HEIGHT, {0.0f, 1.0f, 0.0f, 1.0f});
    for (const Entry& entry : table) {
        for (int s = 0; s < entry.swatch.shades; ++s) {
            const auto& rgb = entry.shades[std::min<std::size_t>(s, entry.shades.size() - 1)];
            for (int row = 0; row < HEIGHT; ++row) {
                image.at(entry.swatch.column + s, row) = {rgb[0] / 255.0f, rgb[1] / 255.0f, rgb[2] / 255.0f, 1.0f};
            }
        }
    }
    return image;
}

} // namespace tools::assetgen::nivalis
