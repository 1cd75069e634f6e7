#pragma once

#include <memory>
#include <vector>

#include "tools/assetgen/catalogue/SceneAssets.h"
#include "tools/assetgen/catalogue/SceneManifest.h"
#include "tools/assetgen/io/OutputTree.h"

namespace tools::assetgen::catalogue {

/// Writes every model and texture that the scenes name, plus the shared vignette model, into a
/// resources tree. For each scene it reads the manifest from a fresh scene object and asks the
/// scene's art for each name in it, so that nothing is written that no scene asks for and
/// nothing asked for is left out.
class Generator {
public:
    /// The art of every scene that the generator serves: Nivalis, Betonia, Example.
    static std::vector<std::unique_ptr<SceneAssets>> allScenes();

    /// Writes one scene's files.
    static void writeScene(io::OutputTree& out, const SceneAssets& assets);
    /// Writes `models/vignette-round-vntao-strides.bin` and `-indices.bin` at the top.
    static void writeVignette(io::OutputTree& out);
    /// Writes everything.
    static void writeAll(io::OutputTree& out);
};

} // namespace tools::assetgen::catalogue
