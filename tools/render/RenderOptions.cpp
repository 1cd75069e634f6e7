#include "tools/render/RenderOptions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace tools::render {

namespace {

using Decoding = renderer::loaders::AstcTexture::Decoding;
using Platform = renderer::headless::HeadlessContext::Platform;

constexpr int MAX_SIZE = 16384;

[[noreturn]] void bad(const std::string& option, const std::string& value, const std::string& expected) {
    throw std::invalid_argument("Invalid value '" + value + "' for " + option + ": expected " + expected);
}

long long parseInteger(const std::string& option, const std::string& text, long long low, long long high,
                       const std::string& expected) {
    long long value = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || ptr != end || value < low || value > high) {
        bad(option, text, expected);
    }
    return value;
}

double parseNumber(const std::string& option, const std::string& text, const std::string& expected) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [ptr, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || ptr != end || !std::isfinite(value)) {
        bad(option, text, expected);
    }
    return value;
}

void parseSize(const std::string& text, int& width, int& height) {
    const std::string expected = "WIDTHxHEIGHT, each 1 to " + std::to_string(MAX_SIZE);
    const auto x = text.find('x');
    if (x == std::string::npos) {
        bad("--size", text, expected);
    }
    width = static_cast<int>(parseInteger("--size", text.substr(0, x), 1, MAX_SIZE, expected));
    height = static_cast<int>(parseInteger("--size", text.substr(x + 1), 1, MAX_SIZE, expected));
}

// Position and length of the one "%d"-like conversion in `pattern`, or npos; checks the rest.
std::pair<std::size_t, std::size_t> frameConversion(const std::string& pattern) {
    std::size_t found = std::string::npos;
    std::size_t length = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%') {
            continue;
        }
        if (i + 1 < pattern.size() && pattern[i + 1] == '%') {
            ++i;
            continue;
        }
        std::size_t j = i + 1;
        while (j < pattern.size() && pattern[j] >= '0' && pattern[j] <= '9' && j - i <= 2) {
            ++j;
        }
        if (j >= pattern.size() || pattern[j] != 'd' || found != std::string::npos) {
            throw std::invalid_argument("Invalid --out '" + pattern +
                                        "': only one %d (or %04d and the like) may number the frames");
        }
        found = i;
        length = j + 1 - i;
        i = j;
    }
    return {found, length};
}

} // namespace

RenderOptions RenderOptions::parse(std::span<const std::string> arguments) {
    RenderOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string option = arguments[i];
        std::optional<std::string> inlineValue;
        if (const auto equals = option.find('='); option.starts_with("--") && equals != std::string::npos) {
            inlineValue = option.substr(equals + 1);
            option.resize(equals);
        }
        auto value = [&]() -> std::string {
            if (inlineValue) {
                return *inlineValue;
            }
            if (i + 1 >= arguments.size()) {
                throw std::invalid_argument("Option " + option + " needs a value");
            }
            return arguments[++i];
        };

        if (option == "--help" || option == "-h") {
            options.help = true;
        } else if (option == "--scene") {
            const std::string scene = value();
            if (scene != "nivalis" && scene != "spirelight" && scene != "betonia" && scene != "example") {
                bad(option, scene, "nivalis, spirelight, betonia or example");
            }
            options.scene = scene;
        } else if (option == "--size") {
            parseSize(value(), options.width, options.height);
        } else if (option == "--time-of-day") {
            const std::string time = value();
            if (time.empty()) {
                bad(option, time, "a time of day of the scene");
            }
            options.timeOfDay = time;
        } else if (option == "--camera") {
            options.camera = static_cast<int>(
                parseInteger(option, value(), 0, std::numeric_limits<int>::max(), "a path number from 0"));
        } else if (option == "--path-at") {
            const std::string text = value();
            const double progress = parseNumber(option, text, "a progress from 0 to 1");
            if (progress < 0.0 || progress > 1.0) {
                bad(option, text, "a progress from 0 to 1");
            }
            options.pathAt = static_cast<float>(progress);
        } else if (option == "--at") {
            const std::string text = value();
            options.at = parseNumber(option, text, "milliseconds above 0");
            if (options.at <= 0.0) {
                bad(option, text, "milliseconds above 0");
            }
        } else if (option == "--frames") {
            options.frames = static_cast<int>(parseInteger(option, value(), 1, 1000000, "a count from 1"));
        } else if (option == "--step") {
            const std::string text = value();
            options.step = parseNumber(option, text, "milliseconds, 0 or more");
            if (options.step < 0.0) {
                bad(option, text, "milliseconds, 0 or more");
            }
        } else if (option == "--seed") {
            options.seed = static_cast<std::uint64_t>(
                parseInteger(option, value(), 0, std::numeric_limits<long long>::max(), "a whole number, 0 or more"));
        } else if (option == "--set") {
            const std::string assignment = value();
            const auto equals = assignment.find('=');
            if (equals == std::string::npos || equals == 0) {
                bad(option, assignment, "FIELD=VALUE");
            }
            options.settings.emplace_back(assignment.substr(0, equals), assignment.substr(equals + 1));
        } else if (option == "--hide") {
            const std::string part = value();
            if (std::find(PARTS.begin(), PARTS.end(), part) == PARTS.end()) {
                std::string names;
                for (std::size_t k = 0; k < PARTS.size(); ++k) {
                    names += (k == 0 ? "" : k + 1 == PARTS.size() ? " or " : ", ") + std::string(PARTS[k]);
                }
                bad(option, part, names);
            }
            options.hide.push_back(part);
        } else if (option == "--out") {
            options.out = value();
            if (options.out.empty()) {
                bad(option, options.out, "a file name");
            }
            frameConversion(options.out);
        } else if (option == "--resources") {
            const std::string directory = value();
            if (directory.empty()) {
                bad(option, directory, "a directory");
            }
            options.resources = directory;
        } else if (option == "--astc") {
            const std::string mode = value();
            if (mode == "auto") {
                options.astc = Decoding::AUTO;
            } else if (mode == "gpu") {
                options.astc = Decoding::GPU;
            } else if (mode == "cpu") {
                options.astc = Decoding::CPU;
            } else {
                bad(option, mode, "auto, gpu or cpu");
            }
        } else if (option == "--quality") {
            const std::string quality = value();
            const auto chosen = renderer::renderQualityFromString(quality);
            if (!chosen) {
                bad(option, quality, "auto, high or low");
            }
            options.quality = *chosen;
        } else if (option == "--egl") {
            const std::string platform = value();
            if (platform == "auto") {
                options.platform = Platform::AUTO;
            } else if (platform == "device") {
                options.platform = Platform::DEVICE;
            } else if (platform == "surfaceless") {
                options.platform = Platform::SURFACELESS;
            } else if (platform == "default") {
                options.platform = Platform::DEFAULT_DISPLAY;
            } else {
                bad(option, platform, "auto, device, surfaceless or default");
            }
        } else if (option.starts_with("-")) {
            throw std::invalid_argument("Unknown option " + option);
        } else {
            throw std::invalid_argument("Unexpected argument '" + option + "'");
        }
        if (inlineValue && (option == "--help" || option == "-h")) {
            throw std::invalid_argument("Option " + option + " takes no value");
        }
    }
    if (options.frames > 1 && frameConversion(options.out).first == std::string::npos) {
        throw std::invalid_argument("--out '" + options.out + "' needs a %d to number " +
                                    std::to_string(options.frames) + " frames");
    }
    return options;
}

std::string RenderOptions::outputPath(int frame) const {
    const auto [position, length] = frameConversion(out);
    std::string path;
    auto appendLiteral = [&path](const std::string& text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            path += text[i];
            if (text[i] == '%' && i + 1 < text.size() && text[i + 1] == '%') {
                ++i;
            }
        }
    };
    if (position == std::string::npos) {
        appendLiteral(out);
        return path;
    }
    appendLiteral(out.substr(0, position));
    const std::string widthText = out.substr(position + 1, length - 2);
    const std::size_t width = widthText.empty() ? 0 : static_cast<std::size_t>(std::stoi(widthText));
    std::string number = std::to_string(frame);
    if (number.size() < width) {
        number.insert(0, width - number.size(), '0');
    }
    path += number;
    appendLiteral(out.substr(position + length));
    return path;
}

std::string RenderOptions::usage() {
    return R"(Usage: nivalis-render [OPTIONS]
Renders frames of a scene without a display and writes them as PNG files.

  --scene NAME          nivalis, spirelight, betonia or example (default nivalis)
  --size WxH            picture size in pixels (default 1280x720)
  --time-of-day TIME    the scene's time of day: day, night, sunrise or sunset
                        (nivalis only; default day)
  --camera N            put the camera on path N, counted from 0 (betonia: of the room
                        shown); turns the automatic camera cuts off
  --path-at P           progress along that path, 0 to 1 (default 0); turns the
                        automatic camera cuts off
  --at MS               the scene's clock at the first frame, in milliseconds, above 0
                        (default 1000)
  --frames N            number of frames (default 1)
  --step MS             clock step between frames in milliseconds (default 33.333)
  --seed N              seed of the random source (default 1)
  --set FIELD=VALUE     write a field of the scene's settings, e.g. vignette=false,
                        cameraPeriod=2, blurred=true; may be given several times
  --hide PART           leave a part of the picture out (nivalis only): ships, animals,
                        birds, mountains, water, sky, clouds, stars or sun; may be given
                        several times
  --out FILE            output PNG; %d (or %04d) is replaced by the frame number from 0,
                        and is required for more than one frame (default frame.png)
  --resources DIR       the resources directory (default: resources/ beside the program,
                        or ../share/nivalis when installed)
  --astc MODE           where ASTC textures are decoded: auto, gpu or cpu (default auto)
  --quality Q           the main pass: high (full size, 4 samples), low (a smaller
                        size, one sample, scaled up) or auto (low on a software
                        rasteriser; default high)
  --egl PLATFORM        EGL platform: auto, device, surfaceless or default (default auto)
  --help                show this text
)";
}

} // namespace tools::render
