#include "renderer/assets/AssetTable.h"

#include <optional>
#include <stdexcept>

#include "renderer/Fatal.h"
#include "renderer/loaders/ModelLayoutCheck.h"
#include "renderer/SceneUtils.h"
#include "renderer/ShaderLibrary.h"
#include "renderer/passes/VignetteUtils.h"
#include "renderer/textures/TextureFiles.h"

namespace renderer::assets {

AssetTable::~AssetTable() {
    releaseModels();
    if (fmVignette) {
        fmVignette->release(gl_);
    }
    releaseTextures();
}

void AssetTable::releaseModels() {
    for (auto& model : models) {
        model.release(gl_);
    }
    models.clear();
}

void AssetTable::releaseTextures() {
    for (GLuint texture : textures) {
        gl_.deleteTexture(texture);
    }
    for (GLuint sampler : samplers) {
        gl_.deleteSampler(sampler);
    }
    textures.clear();
    samplers.clear();
}

template <typename List, typename NameOf>
bool AssetTable::renumber(const List& list, const Numbering& numbering, NameOf nameOf, const char* kind) const {
    if (!numbering.loaded) {
        return false;
    }
    std::size_t position = 0;
    for (const auto& asset : list) {
        if (!asset) {
            continue;
        }
        if (position >= numbering.names.size() || numbering.names[position] != nameOf(*asset)) {
            Fatal::stop(std::string("Shared ") + kind + " belong to another scene");
        }
        asset->id = numbering.ids[position++];
    }
    if (position != numbering.names.size()) {
        Fatal::stop(std::string("Shared ") + kind + " belong to another scene");
    }
    return true;
}

template <typename List, typename NameOf, typename Load>
void AssetTable::number(const List& list, Numbering& numbering, NameOf nameOf, Load load) {
    for (const auto& asset : list) {
        if (!asset) {
            continue;
        }
        asset->id = load(*asset);
        numbering.names.push_back(nameOf(*asset));
        numbering.ids.push_back(asset->id);
    }
    numbering.loaded = true;
}

void AssetTable::loadShaders(engine::Scene& scene, const std::filesystem::path& resources) {
    auto nameOf = [](const engine::Shader& s) { return s.name; };
    if (renumber(scene.getShaders(), shaderNumbering_, nameOf, "shaders")) {
        return;
    }
    shaders.clear();
    std::optional<ShaderLibrary> library; // opened with the first shader
    number(scene.getShaders(), shaderNumbering_, nameOf, [&](const engine::Shader& shader) {
        if (!library) {
            library.emplace(ShaderLibrary::openOrStop(resources));
        }
        const auto id = static_cast<std::int32_t>(shaders.size());
        try {
            shaders.push_back(std::make_shared<ShaderFunctions>(shader.name, *library));
        } catch (const std::runtime_error&) {
            shaders.push_back(nullptr);
        }
        return id;
    });
}

void AssetTable::loadModels(engine::Scene& scene, const std::string& resourcesRoot,
                            const std::filesystem::path& resources) {
    auto nameOf = [](const engine::Mesh& m) { return m.fileName; };
    if (!renumber(scene.getMeshes(), meshNumbering_, nameOf, "meshes")) {
        releaseModels();
        number(scene.getMeshes(), meshNumbering_, nameOf, [&](const engine::Mesh& mesh) {
            const auto id = static_cast<std::int32_t>(models.size());
            loaders::FullModel model(mesh.fileName, resourcesRoot);
            model.load(gl_, resources);
            models.push_back(std::move(model));
            return id;
        });
    }
    loaders::ModelLayoutCheck::run(scene.getCommands(), models);
}

void AssetTable::loadTextures(engine::Scene& scene, const std::filesystem::path& directory,
                              loaders::AstcTexture::Decoding decoding) {
    auto nameOf = [](const engine::Texture& t) { return t.name; };
    if (renumber(scene.getTextures(), textureNumbering_, nameOf, "textures")) {
        return;
    }
    releaseTextures();
    number(scene.getTextures(), textureNumbering_, nameOf, [&](const engine::Texture& texture) {
        const auto id = static_cast<std::int32_t>(textures.size());
        if (auto loaded = textures::TextureFiles::load(gl_, texture, directory, decoding)) {
            textures.push_back(loaded->texture);
        }
        samplers.push_back(SceneUtils::makeSampler(gl_, texture));
        return id;
    });
}

void AssetTable::loadVignette(const std::filesystem::path& resources) {
    if (fmVignette) {
        return;
    }
    fmVignette.emplace(passes::VignetteUtils::MODEL_NAME, "");
    fmVignette->load(gl_, resources);
    loaders::ModelLayoutCheck::check(*fmVignette,
                                     static_cast<std::size_t>(passes::VignetteUtils::attributes()->stride()));
    const ShaderLibrary library = ShaderLibrary::openOrStop(resources);
    try {
        vignetteFunctions = std::make_shared<ShaderFunctions>("Vignette", library);
    } catch (const std::runtime_error&) {
        vignetteFunctions.reset();
    }
}

} // namespace renderer::assets
