#include "tools/render/SceneSetup.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>

#include "engine/IllegalStateError.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "renderer/scenes/SceneFactory.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/Meshes.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/spirelight/SpirelightScene.h"

namespace tools::render {

namespace {

using Setter = std::function<void(const std::string&)>;

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

[[noreturn]] void badValue(const std::string& field, const std::string& value, const std::string& expected) {
    throw std::invalid_argument("Invalid value '" + value + "' for setting " + field + ": expected " + expected);
}

Setter boolField(const std::string& field, bool& target) {
    return [field, &target](const std::string& value) {
        const std::string text = lower(value);
        if (text == "true" || text == "1" || text == "yes" || text == "on") {
            target = true;
        } else if (text == "false" || text == "0" || text == "no" || text == "off") {
            target = false;
        } else {
            badValue(field, value, "true or false");
        }
    };
}

Setter floatField(const std::string& field, float& target) {
    return [field, &target](const std::string& value) {
        float number = 0.0f;
        const char* end = value.data() + value.size();
        const auto [ptr, error] = std::from_chars(value.data(), end, number);
        if (value.empty() || error != std::errc() || ptr != end || !std::isfinite(number)) {
            badValue(field, value, "a number");
        }
        target = number;
    };
}

// An enumeration field, its constants matched without regard to case.
template <typename E, std::size_t N>
Setter enumField(const std::string& field, E& target, const std::array<E, N>& constants) {
    return [field, &target, constants](const std::string& value) {
        std::string names;
        for (E constant : constants) {
            const std::string name(toString(constant));
            if (lower(name) == lower(value)) {
                target = constant;
                return;
            }
            names += (names.empty() ? "" : ", ") + name;
        }
        badValue(field, value, "one of " + names);
    };
}

void writeSettings(const std::map<std::string, Setter>& fields, const std::string& scene,
                   const RenderOptions& options) {
    for (const auto& [field, value] : options.settings) {
        const auto it = fields.find(field);
        if (it == fields.end()) {
            std::string known;
            for (const auto& entry : fields) {
                known += (known.empty() ? "" : ", ") + entry.first;
            }
            throw std::invalid_argument("Scene " + scene + " has no setting " + field +
                                        (known.empty() ? std::string(" (it has no settings)")
                                                       : " (settings: " + known + ")"));
        }
        it->second(value);
    }
}

// Puts the camera on the path and progress asked for; true when either was asked for.
bool placeCamera(engine::camera::CameraPathAnimator& animator, const std::string& scene,
                 const RenderOptions& options) {
    if (!options.camera && !options.pathAt) {
        return false;
    }
    if (options.camera) {
        if (static_cast<std::size_t>(*options.camera) >= animator.cameras.size()) {
            throw std::invalid_argument("Scene " + scene + " has no camera path " + std::to_string(*options.camera) +
                                        " (paths 0 to " + std::to_string(animator.cameras.size() - 1) + ")");
        }
        animator.currentCamera = *options.camera;
        animator.updateCurrentCamera();
    }
    if (options.pathAt) {
        animator.positionInterpolator.setTimer(*options.pathAt);
    }
    return true;
}

void syncCoefficient(engine::camera::CameraPathAnimator& animator, float cameraPeriod) {
    if (animator.minDurationCoefficient != cameraPeriod) {
        animator.setMinDurationCoefficient(cameraPeriod);
    }
}

void setUpNivalis(scenes::nivalis::NivalisScene& scene, const RenderOptions& options) {
    auto& s = scene.settings;
    writeSettings({{"timeOfDay", enumField("timeOfDay", s.timeOfDay, scenes::nivalis::TIME_OF_DAY_ENTRIES)},
                   {"cameraPeriod", floatField("cameraPeriod", s.cameraPeriod)},
                   {"vignette", boolField("vignette", s.vignette)},
                   {"blurred", boolField("blurred", s.blurred)},
                   {"autoSwitchCameras", boolField("autoSwitchCameras", s.autoSwitchCameras)},
                   {"clock", boolField("clock", s.clock)},
                   {"lowQuality", boolField("lowQuality", s.lowQuality)}},
                  "nivalis", options);
    if (options.timeOfDay) {
        const std::map<std::string, scenes::nivalis::TimeOfDay> times = {
            {"day", scenes::nivalis::TimeOfDay::Day},
            {"night", scenes::nivalis::TimeOfDay::Night},
            {"sunrise", scenes::nivalis::TimeOfDay::Sunrise},
            {"sunset", scenes::nivalis::TimeOfDay::Sunset}};
        const auto it = times.find(*options.timeOfDay);
        if (it == times.end()) {
            throw std::invalid_argument("Scene nivalis has no time of day '" + *options.timeOfDay +
                                        "' (day, night, sunrise, sunset)");
        }
        s.timeOfDay = it->second;
    }
    syncCoefficient(scene.cameraAnimator, s.cameraPeriod);
    if (placeCamera(scene.cameraAnimator, "nivalis", options)) {
        s.autoSwitchCameras = false;
    }
}

void setUpBetonia(scenes::betonia::BetoniaScene& scene, const RenderOptions& options) {
    using engine::common::ColorMode;
    static constexpr std::array<ColorMode, 9> colorModes = {
        ColorMode::Normal,        ColorMode::Grayscale,     ColorMode::Sepia,
        ColorMode::HighContrast,  ColorMode::LowContrast,   ColorMode::BlackAndWhite,
        ColorMode::IsolatedColor, ColorMode::Crosshatch,    ColorMode::LimitedColors};
    auto& s = scene.settings;
    writeSettings({{"colorMode", enumField("colorMode", s.colorMode, colorModes)},
                   {"cameraPeriod", floatField("cameraPeriod", s.cameraPeriod)},
                   {"lowQuality", boolField("lowQuality", s.lowQuality)},
                   {"vignette", boolField("vignette", s.vignette)},
                   {"clock", boolField("clock", s.clock)},
                   {"blurred", boolField("blurred", s.blurred)},
                   {"autoSwitchCameras", boolField("autoSwitchCameras", s.autoSwitchCameras)}},
                  "betonia", options);
    if (options.timeOfDay) {
        throw std::invalid_argument("Scene betonia has no time of day");
    }
    syncCoefficient(scene.cameraAnimator, s.cameraPeriod);
    if (placeCamera(scene.cameraAnimator, "betonia", options)) {
        s.autoSwitchCameras = false;
    }
}

void setUpSpirelight(scenes::spirelight::SpirelightScene& scene, const RenderOptions& options) {
    auto& s = scene.settings;
    writeSettings({{"cameraPeriod", floatField("cameraPeriod", s.cameraPeriod)},
                   {"lights", floatField("lights", s.lights)},
                   {"vignette", boolField("vignette", s.vignette)},
                   {"blurred", boolField("blurred", s.blurred)},
                   {"autoSwitchCameras", boolField("autoSwitchCameras", s.autoSwitchCameras)},
                   {"lowQuality", boolField("lowQuality", s.lowQuality)},
                   {"clock", boolField("clock", s.clock)}},
                  "spirelight", options);
    if (options.timeOfDay) {
        throw std::invalid_argument("Scene spirelight has no time of day");
    }
    syncCoefficient(scene.cameraAnimator, s.cameraPeriod);
    if (placeCamera(scene.cameraAnimator, "spirelight", options)) {
        s.autoSwitchCameras = false;
    }
}

void setUpExample(scenes::example::ExampleScene& scene, const RenderOptions& options) {
    writeSettings({}, "example", options);
    if (options.timeOfDay) {
        throw std::invalid_argument("Scene example has no time of day");
    }
    // The sample never cuts by itself; its paths only turn back at their ends.
    placeCamera(scene.cameraAnimator, "example", options);
}

using engine::commands::Command;
using engine::commands::GroupCommand;
using CommandSet = std::set<const Command*>;

// Every node of the tree under `commands`, each once, groups before their children.
void collect(const engine::Scene::CommandList& commands, std::vector<std::shared_ptr<Command>>& nodes,
             CommandSet& seen) {
    for (const auto& node : commands) {
        if (!node || !seen.insert(node.get()).second) {
            continue;
        }
        nodes.push_back(node);
        if (const auto* group = dynamic_cast<const GroupCommand*>(node.get())) {
            collect(group->commands, nodes, seen);
        }
    }
}

// The nodes of one part of the Nivalis scene. The scene keeps the moving parts in fields of its
// own; the terrain, the water and the sky are told by the group's name and by their meshes.
std::vector<const Command*> nivalisPart(const scenes::nivalis::NivalisScene& scene, const std::string& part,
                                        const std::vector<std::shared_ptr<Command>>& nodes) {
    const auto& meshes = scenes::nivalis::Meshes::shared();
    const auto drawing = [&nodes](const std::shared_ptr<engine::Mesh>& mesh) {
        std::vector<const Command*> found;
        for (const auto& node : nodes) {
            const auto* draw = dynamic_cast<const engine::commands::DrawMeshCommand*>(node.get());
            if (draw && mesh && draw->mesh == mesh) {
                found.push_back(node.get());
            }
        }
        return found;
    };
    if (part == "ships") {
        return {scene.groupShips.get()};
    }
    if (part == "animals") {
        return {scene.groupAnimalsAnimated.get(), scene.groupAnimalsSleeping.get()};
    }
    if (part == "birds") {
        return {scene.groupBirds.get()};
    }
    if (part == "clouds") {
        return {scene.commandClouds.get()};
    }
    if (part == "stars") {
        return {scene.commandStars.get()};
    }
    if (part == "sun") {
        return {scene.commandSun.get(), scene.commandSunLow.get()};
    }
    if (part == "water") {
        return drawing(meshes.meshWater);
    }
    if (part == "sky") {
        return drawing(meshes.meshSky);
    }
    std::vector<const Command*> found;
    for (const auto& node : nodes) {
        if (part == "mountains" && node->name == "mountains" && dynamic_cast<const GroupCommand*>(node.get())) {
            found.push_back(node.get());
        }
    }
    return found;
}

// Takes the nodes out of `commands` and out of every group below, each group once.
void erase(engine::Scene::CommandList& commands, const CommandSet& hidden, CommandSet& visited) {
    std::erase_if(commands, [&hidden](const std::shared_ptr<Command>& node) { return hidden.contains(node.get()); });
    for (const auto& node : commands) {
        auto* group = dynamic_cast<GroupCommand*>(node.get());
        if (group && visited.insert(group).second) {
            erase(group->commands, hidden, visited);
        }
    }
}

} // namespace

std::shared_ptr<engine::Scene> SceneSetup::create(const std::string& name) {
    if (renderer::scenes::SceneFactory::known(name) != name) {
        throw std::invalid_argument("Unknown scene '" + name + "' (nivalis, spirelight, betonia, example)");
    }
    return renderer::scenes::SceneFactory::makeScene(name);
}

std::string SceneSetup::resourcesRoot(const std::string& name) { return name; }

void SceneSetup::apply(engine::Scene& scene, const RenderOptions& options) {
    if (auto* nivalis = dynamic_cast<scenes::nivalis::NivalisScene*>(&scene)) {
        setUpNivalis(*nivalis, options);
    } else if (auto* spirelight = dynamic_cast<scenes::spirelight::SpirelightScene*>(&scene)) {
        setUpSpirelight(*spirelight, options);
    } else if (auto* betonia = dynamic_cast<scenes::betonia::BetoniaScene*>(&scene)) {
        setUpBetonia(*betonia, options);
    } else if (auto* example = dynamic_cast<scenes::example::ExampleScene*>(&scene)) {
        setUpExample(*example, options);
    } else {
        throw std::invalid_argument("Scene of an unknown kind");
    }
}

void SceneSetup::hide(engine::Scene& scene, const RenderOptions& options) {
    if (options.hide.empty()) {
        return;
    }
    auto* nivalis = dynamic_cast<scenes::nivalis::NivalisScene*>(&scene);
    if (!nivalis) {
        throw std::invalid_argument("Scene " + options.scene + " has no parts to hide (only nivalis has)");
    }
    std::vector<std::shared_ptr<Command>> nodes;
    CommandSet seen;
    collect(scene.commands, nodes, seen);
    CommandSet hidden;
    for (const std::string& part : options.hide) {
        if (std::ranges::find(RenderOptions::PARTS, part) == RenderOptions::PARTS.end()) {
            throw std::invalid_argument("Scene nivalis has no part '" + part + "'");
        }
        for (const Command* node : nivalisPart(*nivalis, part, nodes)) {
            if (!node) {
                throw engine::IllegalStateError("Part " + part + " of scene nivalis is missing from its tree");
            }
            hidden.insert(node);
        }
    }
    CommandSet visited;
    erase(scene.commands, hidden, visited);
}

} // namespace tools::render
