#include "renderer/assets/AssetTable.h"

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

void AssetTable::loadShaders(engine::Scene& scene, const std::filesystem::path& resources) {
    if (renumber(scene.getShaders(), shaderNumbering_, [](const engine::Shader& s) { return s.name; }, "shaders")) {
        return;
    }
    shaders.clear();
    for (const auto& shader : scene.getShaders()) {
        if (!shader) {
            continue;
        }
        shader->id = static_cast<std::int32_t>(shaders.size());
        shaderNumbering_.names.push_back(shader->name);
        shaderNumbering_.ids.push_back(shader->id);
        const ShaderLibrary library = ShaderLibrary::openOrStop(resources);
        try {
            shaders.push_back(std::make_shared<ShaderFunctions>(shader->name, library));
        } catch (const std::runtime_error&) {
            shaders.push_back(nullptr);
        }
    }
    shaderNumbering_.loaded = true;
}

void AssetTable::loadModels(engine::Scene& scene, const std::string& resourcesRoot,
                            const std::filesystem::path& resources) {
    if (!renumber(scene.getMeshes(), meshNumbering_, [](const engine::Mesh& m) { return m.fileName; }, "meshes")) {
        releaseModels();
        for (const auto& mesh : scene.getMeshes()) {
            if (!mesh) {
                continue;
            }
            mesh->id = static_cast<std::int32_t>(models.size());
            meshNumbering_.names.push_back(mesh->fileName);
            meshNumbering_.ids.push_back(mesh->id);
            loaders::FullModel model(mesh->fileName, resourcesRoot);
            model.load(gl_, resources);
            models.push_back(std::move(model));
        }
        meshNumbering_.loaded = true;
    }
    loaders::ModelLayoutCheck::run(scene.getCommands(), models);
}

void AssetTable::loadTextures(engine::Scene& scene, const std::filesystem::path& directory,
                              loaders::AstcTexture::Decoding decoding) {
    if (renumber(scene.getTextures(), textureNumbering_, [](const engine::Texture& t) { return t.name; },
                 "textures")) {
        return;
    }
    releaseTextures();
    for (const auto& texture : scene.getTextures()) {
        if (!texture) {
            continue;
        }
        texture->id = static_cast<std::int32_t>(textures.size());
        textureNumbering_.names.push_back(texture->name);
        textureNumbering_.ids.push_back(texture->id);
        auto loaded = textures::TextureFiles::load(gl_, *texture, directory, decoding);
        if (loaded) {
            textures.push_back(loaded->texture);
        }
        samplers.push_back(SceneUtils::makeSampler(gl_, *texture));
    }
    textureNumbering_.loaded = true;
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
