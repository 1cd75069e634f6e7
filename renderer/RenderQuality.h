#pragma once

#include <optional>
#include <string_view>

namespace renderer {

/// How the main pass trades picture for cost. HIGH draws the scene at the output's size with 4
/// samples; LOW draws it at a fraction of that size with one sample and scales the result up
/// with a filtered blit, which is what a software rasteriser can keep up with; AUTO is LOW on a
/// software rasteriser and HIGH on anything else.
enum class RenderQuality { AUTO, HIGH, LOW };

/// "AUTO", "HIGH", "LOW".
constexpr std::string_view toString(RenderQuality quality) {
    constexpr std::string_view names[] = {"AUTO", "HIGH", "LOW"};
    return names[static_cast<int>(quality)];
}

/// The quality named `text`, in any case ("auto", "High", "LOW"); nothing for another text.
std::optional<RenderQuality> renderQualityFromString(std::string_view text);

/// Whether `glRenderer`, a context's GL_RENDERER string, names a software rasteriser
/// (llvmpipe, softpipe, swrast or Mesa's "Software Rasterizer"), in any case.
bool isSoftwareRasteriser(std::string_view glRenderer);

/// The quality that `quality` means on a context that is a software rasteriser or not: AUTO
/// becomes LOW or HIGH, the others stand.
constexpr RenderQuality resolveQuality(RenderQuality quality, bool softwareRasteriser) {
    if (quality != RenderQuality::AUTO) {
        return quality;
    }
    return softwareRasteriser ? RenderQuality::LOW : RenderQuality::HIGH;
}

} // namespace renderer
