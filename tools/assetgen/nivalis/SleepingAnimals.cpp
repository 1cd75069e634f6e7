#include "tools/assetgen/nivalis/SleepingAnimals.h"

#include "scenes/nivalis/Penguins.h"
#include "scenes/nivalis/Seals.h"
#include "tools/assetgen/nivalis/PenguinModel.h"
#include "tools/assetgen/nivalis/SealModel.h"

namespace tools::assetgen::nivalis {

namespace {

/// Places `model` as the scene's draws do: scale, then turn about Z, then move.
void place(mesh::MeshData& out, mesh::MeshData model, const core::Vec3d& at, double turnDegrees, double scale) {
    for (auto& v : model.vertices) {
        v.position = (v.position * scale).rotatedZ(turnDegrees) + at;
    }
    out.append(model);
}

} // namespace

mesh::MeshData SleepingAnimals::mesh() {
    mesh::MeshData out;
    const auto& penguins = scenes::nivalis::Penguins::shared();
    for (const auto& p : penguins.IDLE) {
        place(out, PenguinModel::build(PenguinModel::Detail::FINE, PenguinModel::sleeping()),
              {p.position.x, p.position.y, p.position.z}, p.rotation.z, p.scale);
    }
    for (const auto& p : penguins.IDLE2) {
        place(out, PenguinModel::build(PenguinModel::Detail::COARSE, PenguinModel::sleeping()),
              {p.position.x, p.position.y, p.position.z}, p.rotation.z, p.scale);
    }
    const auto& seals = scenes::nivalis::Seals::shared();
    for (const auto& s : seals.IDLE) {
        place(out, SealModel::build(SealModel::sleeping()), {s.position.x, s.position.y, s.position.z}, s.rotation.z,
              s.scale);
    }
    for (const auto& s : seals.WALKING) {
        if (!s.spline) {
            continue;
        }
        const auto start = s.spline->getCurrentPoint(0.0);
        const auto heading = s.spline->getRotationLegacy(0.0);
        place(out, SealModel::build(SealModel::sleeping()), {start.x, start.y, start.z}, heading.z - 90.0, s.scale);
    }
    return out;
}

} // namespace tools::assetgen::nivalis
