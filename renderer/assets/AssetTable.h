#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/Scene.h"
#include "renderer/loaders/AstcTexture.h"
#include "renderer/loaders/FullModel.h"
#include "renderer/RenderPipelineStateWithDepth.h"
#include "renderer/ShaderFunctions.h"
#include "renderer/gl/Gl.h"

namespace renderer::assets {

/// The GPU side of a scene's assets: every mesh, texture, sampler and shader that the scene
/// names, loaded once and numbered. Loading writes each asset's position here into its `id` in
/// the scene's description, which is how draws find their GPU objects. A required asset that
/// cannot be loaded stops the process. Everything is released with the table.
class AssetTable {
public:
    explicit AssetTable(gl::Gl& gl) : gl_(gl) {}
    ~AssetTable();
    AssetTable(const AssetTable&) = delete;
    AssetTable& operator=(const AssetTable&) = delete;

    /// The two stages of each shader of `scene` from the library under `resources`; a shader the
    /// library lacks leaves an empty slot, so ids stay positions.
    void loadShaders(engine::Scene& scene, const std::filesystem::path& resources);
    /// One FullModel per mesh of `scene`, in order, from `<resources>/<resourcesRoot>`.
    void loadModels(engine::Scene& scene, const std::string& resourcesRoot, const std::filesystem::path& resources);
    /// One texture (where the format has a loader) and one sampler per texture of `scene`, in
    /// order; `Texture::id` is the count of textures before it. After a texture of a format
    /// without a loader the samplers run one ahead of the textures, and later ids pick the wrong
    /// sampler: scenes must not name such textures.
    void loadTextures(engine::Scene& scene, const std::filesystem::path& directory,
                      loaders::AstcTexture::Decoding decoding);
    /// The vignette mesh and, where the library has the "Vignette" shader, its pipeline.
    void loadVignette(const std::filesystem::path& resources);

    /// Indexed by `Mesh::id`.
    std::vector<loaders::FullModel> models;
    /// GL textures, indexed by `Texture::id`.
    std::vector<GLuint> textures;
    /// GL samplers, indexed by `Texture::id`.
    std::vector<GLuint> samplers;
    /// Indexed by `Shader::id`; null where the library lacks the shader.
    std::vector<std::shared_ptr<ShaderFunctions>> shaders;
    /// The vignette mesh and its pipeline.
    std::optional<loaders::FullModel> fmVignette;
    std::optional<RenderPipelineStateWithDepth> vignettePipelineStateWithDepth;

private:
    void releaseModels();
    void releaseTextures();

    gl::Gl& gl_;
};

} // namespace renderer::assets
