#include "renderer/RenderQuality.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace renderer {

namespace {

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

} // namespace

std::optional<RenderQuality> renderQualityFromString(std::string_view text) {
    const std::string wanted = lowered(text);
    for (RenderQuality quality : {RenderQuality::AUTO, RenderQuality::HIGH, RenderQuality::LOW}) {
        if (wanted == lowered(toString(quality))) {
            return quality;
        }
    }
    return std::nullopt;
}

bool isSoftwareRasteriser(std::string_view glRenderer) {
    const std::string name = lowered(glRenderer);
    for (std::string_view software : {"llvmpipe", "softpipe", "swrast", "software rasterizer"}) {
        if (name.find(software) != std::string::npos) {
            return true;
        }
    }
    return false;
}

} // namespace renderer
