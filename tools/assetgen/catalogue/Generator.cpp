#include "tools/assetgen/catalogue/Generator.h"

#include <set>
#include <stdexcept>

#include "tools/assetgen/catalogue/TextureWriter.h"
#include "tools/assetgen/betonia/BetoniaAssets.h"
#include "tools/assetgen/example/ExampleAssets.h"
#include "tools/assetgen/io/ModelFile.h"
#include "tools/assetgen/nivalis/NivalisAssets.h"
#include "tools/assetgen/shared/Vignette.h"
#include "tools/assetgen/spirelight/SpirelightAssets.h"

namespace tools::assetgen::catalogue {

std::vector<std::unique_ptr<SceneAssets>> Generator::allScenes() {
    std::vector<std::unique_ptr<SceneAssets>> scenes;
    scenes.push_back(std::make_unique<nivalis::NivalisAssets>());
    scenes.push_back(std::make_unique<betonia::BetoniaAssets>());
    scenes.push_back(std::make_unique<example::ExampleAssets>());
    scenes.push_back(std::make_unique<spirelight::SpirelightAssets>());
    return scenes;
}

void Generator::writeScene(io::OutputTree& out, const SceneAssets& assets) {
    const std::unique_ptr<engine::Scene> scene = assets.makeScene();
    const SceneManifest manifest = SceneManifest::of(*scene, assets.resourcesRoot());
    std::set<std::string> done;
    for (const auto& entry : manifest.meshes) {
        const std::string& fileName = entry.mesh->fileName;
        if (!done.insert("model:" + fileName).second) {
            continue; // the same file listed twice is loaded twice, but written once
        }
        const mesh::MeshData data = assets.mesh(fileName);
        io::ModelFile::write(out, out.modelStem(manifest.resourcesRoot, fileName), data, entry.layout);
    }
    for (const auto& texture : manifest.textures) {
        if (!done.insert("texture:" + texture->fileName).second) {
            continue;
        }
        TextureWriter::write(out, manifest.resourcesRoot, *texture, assets.texture(*texture));
    }
}

void Generator::writeVignette(io::OutputTree& out) {
    io::ModelFile::write(out, out.modelStem("", "vignette-round-vntao"), shared::Vignette::mesh(),
                         shared::Vignette::layout());
}

void Generator::writeAll(io::OutputTree& out) {
    for (const auto& scene : allScenes()) {
        writeScene(out, *scene);
    }
    writeVignette(out);
}

} // namespace tools::assetgen::catalogue
