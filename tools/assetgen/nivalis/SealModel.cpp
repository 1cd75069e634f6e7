#include "tools/assetgen/nivalis/SealModel.h"

#include <cmath>

#include "tools/assetgen/mesh/Facets.h"
#include "tools/assetgen/nivalis/Palette.h"

namespace tools::assetgen::nivalis {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;

/// One cross-section of the body along Y.
struct Section {
    double y;
    double halfWidth;
    double halfHeight;
};

const std::vector<Section>& sections() {
    static const std::vector<Section> list = {
        {-4.7, 0.95, 0.85}, {-3.7, 1.25, 1.05}, {-2.0, 1.8, 1.3}, {0.4, 1.75, 1.2}, {2.5, 1.25, 0.85}, {3.9, 0.7, 0.48},
    };
    return list;
}

class Builder {
public:
    explicit Builder(const SealModel::Pose& pose) : pose_(pose) {}

    /// The centre line of the body at `y`: lifted at the head, waved, curled.
    Vec3d spine(double y, double halfHeight) const {
        const double head = std::fmax(0.0, (-1.8 - y) / 3.6); // 0 behind the chest, 1 at the nose
        const double tail = std::fmax(0.0, (y - 2.4) / 3.0);
        const double wave = pose_.waveHeight * std::sin(pose_.wave - (y + 5.5) * 0.75) * (0.55 + 0.45 * (y + 5.5) / 11.0);
        double z = halfHeight + pose_.headLift * head * head * 1.6 + pose_.tailLift * tail * tail + std::fmax(0.0, wave);
        double x = pose_.curl * std::pow((y + 1.0) / 5.0, 2.0) + pose_.headTurn / 45.0 * head * head * 1.4;
        return {x, y, z};
    }

    mesh::MeshData build() {
        mesh::MeshData out;
        mesh::Facets facets(out, [](const Vec3d&, const Vec3d&) { return 0.0; });
        constexpr int n = 6;
        auto angle = [](int k) { return -kPi / 2.0 + 2.0 * kPi * k / n; }; // a corner at the belly
        const auto& list = sections();
        std::vector<std::vector<Vec3d>> rings;
        for (const Section& s : list) {
            const Vec3d c = spine(s.y, s.halfHeight);
            std::vector<Vec3d> ring;
            for (int k = 0; k < n; ++k) {
                const double a = angle(k);
                // Flattened underneath: the lower half lies on the ground.
                const double z = std::sin(a) < 0 ? std::sin(a) * s.halfHeight * 0.9 : std::sin(a) * s.halfHeight;
                ring.push_back(c + Vec3d{std::cos(a) * s.halfWidth, 0.0, z});
            }
            rings.push_back(ring);
        }
        for (std::size_t r = 0; r + 1 < rings.size(); ++r) {
            for (int k = 0; k < n; ++k) {
                const int k1 = (k + 1) % n;
                // Ring r is nearer the head (-Y); wind counter-clockwise from outside.
                const Vec3d& a = rings[r][k];
                const Vec3d& b = rings[r][k1];
                const Vec3d& c = rings[r + 1][k1];
                const Vec3d& d = rings[r + 1][k];
                facets.quad(a, d, c, b, paint(a, d, c));
            }
        }
        // Nose and tail cones.
        const Vec3d nose = spine(-5.6, 0.7) + Vec3d{0, 0, 0.05};
        for (int k = 0; k < n; ++k) {
            const int k1 = (k + 1) % n;
            const bool snout = std::sin(angle(k) + kPi / n) > 0.3;
            facets.triangle(rings[0][k], rings[0][k1], nose,
                            snout ? Palette::u(Palette::SEAL_DARK) : paint(rings[0][k], rings[0][k1], nose));
        }
        const Vec3d tail = spine(4.7, 0.35);
        for (int k = 0; k < n; ++k) {
            const int k1 = (k + 1) % n;
            facets.triangle(rings.back()[k1], rings.back()[k], tail, paint(rings.back()[k1], rings.back()[k], tail));
        }
        // Hind flippers: two blades splayed behind the tail.
        for (double side : {-1.0, 1.0}) {
            const Vec3d root = tail;
            const Vec3d outer = spine(5.5, 0.25) + Vec3d{side * 1.2, 0.3, 0.15 + pose_.tailLift * 0.4};
            const Vec3d inner = spine(5.6, 0.25) + Vec3d{side * 0.25, 0.4, 0.1 + pose_.tailLift * 0.4};
            facets.twoSided(root, outer, inner, Palette::u(Palette::SEAL, 1));
        }
        // Fore flippers at the chest, swinging forward and back.
        for (double side : {-1.0, 1.0}) {
            const Vec3d shoulder = spine(-2.2, 0.5) + Vec3d{side * 1.55, 0.0, -0.1};
            const double swing = pose_.foreFlippers * kPi / 180.0;
            const Vec3d tip = shoulder + Vec3d{side * 1.1, 0.9 * std::cos(swing) - 0.9, 0.0} +
                              Vec3d{0.0, -std::sin(swing) * 1.1, -0.35};
            const Vec3d back = shoulder + Vec3d{0.0, 0.9, 0.0};
            facets.twoSided(shoulder, tip, back, Palette::u(Palette::SEAL, 1));
        }
        return out;
    }

private:
    static double paint(const Vec3d& a, const Vec3d& b, const Vec3d& c) {
        const Vec3d n = mesh::Facets::normal(a, b, c);
        if (n.z < -0.35) {
            return Palette::u(Palette::SEAL_BELLY);
        }
        const Vec3d light = Vec3d{-0.3, -0.4, 0.86}.normalized();
        return Palette::u(Palette::SEAL, n.dot(light) > 0.35 ? 0 : 1);
    }

    SealModel::Pose pose_;
};

double smooth(double a, double b, double x) {
    const double t = std::fmin(1.0, std::fmax(0.0, (x - a) / (b - a)));
    return t * t * (3.0 - 2.0 * t);
}

} // namespace

mesh::MeshData SealModel::build(const Pose& pose) {
    mesh::MeshData rest = Builder(Pose{}).build();
    mesh::MeshData posed = Builder(pose).build();
    for (std::size_t i = 0; i < rest.vertices.size(); ++i) {
        rest.vertices[i].position = posed.vertices[i].position;
        rest.vertices[i].normal = posed.vertices[i].normal;
    }
    return rest;
}

std::vector<SealModel::Pose> SealModel::idleLoop(int frames) {
    // A loop: the last frame equals the first, since the player wraps from it to frame 0.
    std::vector<Pose> poses;
    for (int f = 0; f < frames; ++f) {
        const double s = frames > 1 ? static_cast<double>(f) / (frames - 1) : 0.0;
        Pose p;
        const double rise = std::sin(kPi * s);
        p.headLift = 1.1 * rise * rise;
        p.headTurn = 30.0 * std::sin(2.0 * kPi * s) * smooth(0.1, 0.4, s) * (1.0 - smooth(0.7, 0.95, s));
        p.tailLift = 0.5 * std::pow(std::sin(2.0 * kPi * s), 2.0);
        p.foreFlippers = 12.0 * std::sin(2.0 * kPi * s);
        poses.push_back(p);
    }
    return poses;
}

std::vector<SealModel::Pose> SealModel::walkLoop(int frames) {
    std::vector<Pose> poses;
    for (int f = 0; f < frames; ++f) {
        const double s = frames > 1 ? static_cast<double>(f) / (frames - 1) : 0.0;
        Pose p;
        p.wave = 2.0 * kPi * s;
        p.waveHeight = 0.85;
        p.headLift = 0.35 + 0.2 * std::sin(2.0 * kPi * s + 1.0);
        p.foreFlippers = 35.0 * std::sin(2.0 * kPi * s);
        p.tailLift = 0.2 + 0.2 * std::sin(2.0 * kPi * s + kPi);
        poses.push_back(p);
    }
    return poses;
}

SealModel::Pose SealModel::sleeping() {
    Pose p;
    p.headLift = -0.25;
    p.curl = 1.4;
    p.tailLift = 0.1;
    return p;
}

} // namespace tools::assetgen::nivalis
