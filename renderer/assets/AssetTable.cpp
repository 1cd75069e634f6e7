#include "renderer/assets/AssetTable.h"

#include <stdexcept>

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

void AssetTable::loadShaders(engine::Scene& scene, const std::filesystem::path& resources) {
    shaders.clear();
    for (const auto& shader : scene.getShaders()) {
        if (!shader) {
            continue;
        }
        shader->id = static_cast<std::int32_t>(shaders.size());
        const ShaderLibrary library = ShaderLibrary::openOrStop(resources);
        try {
            shaders.push_back(std::make_shared<ShaderFunctions>(shader->name, library));
        } catch (const std::runtime_error&) {
            shaders.push_back(nullptr);
        }
    }
}

void AssetTable::loadModels(engine::Scene& scene, const std::string& resourcesRoot,
                            const std::filesystem::path& resources) {
    releaseModels();
    for (const auto& mesh : scene.getMeshes()) {
        if (!mesh) {
            continue;
        }
        mesh->id = static_cast<std::int32_t>(models.size());
        loaders::FullModel model(mesh->fileName, resourcesRoot);
        model.load(gl_, resources);
        models.push_back(std::move(model));
    }
    loaders::ModelLayoutCheck::run(scene.getCommands(), models);
}

void AssetTable::loadTextures(engine::Scene& scene, const std::filesystem::path& directory,
                              loaders::AstcTexture::Decoding decoding) {
    releaseTextures();
    for (const auto& texture : scene.getTextures()) {
        if (!texture) {
            continue;
        }
        texture->id = static_cast<std::int32_t>(textures.size());
        auto loaded = textures::TextureFiles::load(gl_, *texture, directory, decoding);
        if (loaded) {
            textures.push_back(loaded->texture);
        }
        samplers.push_back(SceneUtils::makeSampler(gl_, *texture));
    }
}

void AssetTable::loadVignette(const std::filesystem::path& resources) {
    fmVignette.emplace(passes::VignetteUtils::MODEL_NAME, "");
    fmVignette->load(gl_, resources);
    loaders::ModelLayoutCheck::check(*fmVignette,
                                     static_cast<std::size_t>(passes::VignetteUtils::attributes()->stride()));
    const ShaderLibrary library = ShaderLibrary::openOrStop(resources);
    std::optional<ShaderFunctions> functions;
    try {
        functions.emplace("Vignette", library);
    } catch (const std::runtime_error&) {
        return;
    }
    vignettePipelineStateWithDepth = passes::VignetteUtils::makePipeline(gl_, *functions);
}

} // namespace renderer::assets
