#include "tools/assetgen/nivalis/PenguinModel.h"

#include <cmath>

#include "tools/assetgen/mesh/Facets.h"
#include "tools/assetgen/nivalis/Palette.h"

namespace tools::assetgen::nivalis {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;

struct Ring {
    double z;
    double radius;
};

double smooth(double a, double b, double x) {
    const double t = std::fmin(1.0, std::fmax(0.0, (x - a) / (b - a)));
    return t * t * (3.0 - 2.0 * t);
}

/// Rotates `p` about the horizontal axis X through `pivot` by `degrees` (positive tips +Y up).
Vec3d pitchAbout(const Vec3d& p, const Vec3d& pivot, double degrees) {
    return (p - pivot).rotatedX(degrees) + pivot;
}

class Builder {
public:
    Builder(PenguinModel::Detail detail, const PenguinModel::Pose& pose)
        : sides_(detail == PenguinModel::Detail::FINE ? 6 : 5), pose_(pose) {}

    /// Body point: ring angle `a`, at height z with radius r, then lean and squash.
    Vec3d body(double a, double z, double r) const {
        const Vec3d p{r * std::cos(a), 0.88 * r * std::sin(a), z * pose_.squash};
        return pitchAbout(p, {0, 0, 0}, -pose_.bodyLean);
    }
    /// Head point, in head coordinates around the neck pivot, then turned and nodded.
    Vec3d head(const Vec3d& local) const {
        const Vec3d neck{0, 0, 29.0 * pose_.squash};
        Vec3d p = local.rotatedX(pose_.headPitch).rotatedZ(pose_.headYaw);
        return pitchAbout(p + neck, {0, 0, 0}, -pose_.bodyLean);
    }

    mesh::MeshData build() {
        mesh::MeshData out;
        mesh::Facets facets(out, [](const Vec3d&, const Vec3d&) { return 0.0; });
        const int n = sides_;
        // Faces centred front (-Y) and back; a face's angle range is [a0, a1].
        auto angle = [&](int k) { return -kPi / 2.0 - kPi / n + 2.0 * kPi * k / n; };
        const bool fine = n == 6;
        const std::vector<Ring> rings = fine ? std::vector<Ring>{{0.6, 5.0}, {5.5, 8.6}, {12.0, 9.7}, {18.5, 9.4},
                                                                 {24.5, 7.6}, {29.0, 5.4}}
                                             : std::vector<Ring>{{0.6, 5.2}, {8.0, 9.2}, {17.0, 9.4}, {24.5, 7.4},
                                                                 {29.0, 5.4}};
        for (std::size_t r = 0; r + 1 < rings.size(); ++r) {
            for (int k = 0; k < n; ++k) {
                const Vec3d a = body(angle(k), rings[r].z, rings[r].radius);
                const Vec3d b = body(angle(k + 1), rings[r].z, rings[r].radius);
                const Vec3d c = body(angle(k + 1), rings[r + 1].z, rings[r + 1].radius);
                const Vec3d d = body(angle(k), rings[r + 1].z, rings[r + 1].radius);
                const bool front = std::sin((angle(k) + angle(k + 1)) / 2.0) < -0.45;
                facets.quad(a, b, c, d, paint(front ? Palette::PENGUIN_BELLY : Palette::PENGUIN_BACK, a, b, c));
            }
        }
        // Head: from the neck ring (on the body) to two head rings and a crown.
        const double neckRadius = rings.back().radius;
        const std::vector<Ring> headRings = {{4.0, 5.4}, {8.6, 4.1}};
        std::vector<Vec3d> lower(n), upper(n);
        for (int k = 0; k < n; ++k) {
            lower[k] = body(angle(k), rings.back().z, neckRadius);
        }
        for (std::size_t h = 0; h < headRings.size(); ++h) {
            for (int k = 0; k < n; ++k) {
                const double a = angle(k);
                upper[k] = head({headRings[h].radius * std::cos(a), 0.92 * headRings[h].radius * std::sin(a), headRings[h].z});
            }
            for (int k = 0; k < n; ++k) {
                const int k1 = (k + 1) % n;
                const double mid = (angle(k) + angle(k + 1)) / 2.0;
                const bool side = std::fabs(std::cos(mid)) > 0.6 && h == 0;
                facets.quad(lower[k], lower[k1], upper[k1], upper[k],
                            paint(side ? Palette::PENGUIN_NECK : Palette::PENGUIN_BACK, lower[k], lower[k1], upper[k1]));
            }
            lower = upper;
        }
        const Vec3d crown = head({0, 0.3, 11.0});
        for (int k = 0; k < n; ++k) {
            const int k1 = (k + 1) % n;
            facets.triangle(lower[k], lower[k1], crown, paint(Palette::PENGUIN_BACK, lower[k], lower[k1], crown));
        }
        // Beak: a pyramid out of the front of the head.
        const Vec3d tip = head({0, -9.6, 5.2});
        const Vec3d bl = head({-1.5, -3.6, 6.6});
        const Vec3d br = head({1.5, -3.6, 6.6});
        const Vec3d bb = head({0, -3.6, 4.4});
        facets.triangle(br, bl, tip, Palette::u(Palette::PENGUIN_BEAK));
        facets.triangle(bb, br, tip, Palette::u(Palette::PENGUIN_BEAK));
        facets.triangle(bl, bb, tip, Palette::u(Palette::PENGUIN_BEAK));
        // Flippers: flat blades hinged at the shoulders, seen from both sides.
        for (double side : {-1.0, 1.0}) {
            const double lift = side < 0 ? pose_.rightFlipper : pose_.leftFlipper;
            const Vec3d shoulder{side * 8.2, 0.5, 24.5 * pose_.squash};
            auto blade = [&](const Vec3d& local) {
                // Lift turns the blade about the Y axis, away from the body.
                const Vec3d rel = local - shoulder;
                const Vec3d turned = rel.rotatedY(side * lift);
                return pitchAbout(turned + shoulder, {0, 0, 0}, -pose_.bodyLean);
            };
            const Vec3d top0 = blade({side * 8.4, -1.8, 25.5 * pose_.squash});
            const Vec3d top1 = blade({side * 8.4, 2.6, 24.0 * pose_.squash});
            const Vec3d end = blade({side * 9.0, 1.2, 10.5 * pose_.squash});
            facets.twoSided(top0, top1, end, Palette::u(Palette::PENGUIN_BACK, 1));
        }
        // Feet: flat orange wedges on the ground.
        for (double side : {-1.0, 1.0}) {
            const Vec3d a{side * 2.8 - 2.0, -1.5, 0.3};
            const Vec3d b{side * 2.8 + 2.0, -1.5, 0.3};
            const Vec3d c{side * 3.2, -7.0, 0.3};
            facets.triangle(a, c, b, Palette::u(Palette::PENGUIN_BEAK));
        }
        // Tail: a short wedge at the back, near the ground.
        const Vec3d t0 = body(kPi / 2.0 - 0.35, 3.0, 6.0);
        const Vec3d t1 = body(kPi / 2.0 + 0.35, 3.0, 6.0);
        const Vec3d t2{0, 9.5, 0.4};
        facets.twoSided(t0, t1, t2, Palette::u(Palette::PENGUIN_BACK, 1));
        return out;
    }

private:
    /// Palette coordinate of a face of `swatch`, lit or shaded by a light from the front left.
    static double paint(Palette::Swatch swatch, const Vec3d& a, const Vec3d& b, const Vec3d& c) {
        const Vec3d n = mesh::Facets::normal(a, b, c);
        const Vec3d light = Vec3d{-0.35, -0.45, 0.82}.normalized();
        return Palette::u(swatch, n.dot(light) > 0.25 ? 0 : 1);
    }

    int sides_;
    PenguinModel::Pose pose_;
};

} // namespace

mesh::MeshData PenguinModel::build(Detail detail, const Pose& pose) {
    // Faces take the colour of the rest pose; only positions follow `pose`.
    mesh::MeshData rest = Builder(detail, Pose{}).build();
    mesh::MeshData posed = Builder(detail, pose).build();
    // The body is drawn 40 units tall; the model is that times 1.5.
    constexpr double size = PenguinModel::HEIGHT / 40.0;
    for (std::size_t i = 0; i < rest.vertices.size(); ++i) {
        rest.vertices[i].position = posed.vertices[i].position * size;
        rest.vertices[i].normal = posed.vertices[i].normal;
    }
    return rest;
}

std::vector<PenguinModel::Pose> PenguinModel::idleLoop(int frames) {
    std::vector<Pose> poses;
    for (int f = 0; f < frames; ++f) {
        const double s = frames > 1 ? static_cast<double>(f) / (frames - 1) : 0.0;
        Pose p;
        // Look left, then right (played back, the penguin looks back again).
        p.headYaw = 42.0 * smooth(0.0, 0.35, s) - 84.0 * smooth(0.45, 0.8, s);
        p.headPitch = 10.0 * std::sin(kPi * s);
        // A flap of both flippers in the middle of the loop.
        const double flap = std::sin(std::fmax(0.0, s - 0.3) / 0.5 * 2.0 * kPi);
        const double window = smooth(0.3, 0.42, s) * (1.0 - smooth(0.7, 0.8, s));
        p.leftFlipper = 8.0 + 34.0 * std::fabs(flap) * window;
        p.rightFlipper = 8.0 + 34.0 * std::fabs(flap) * window;
        p.bodyLean = 3.0 * std::sin(kPi * s);
        poses.push_back(p);
    }
    return poses;
}

std::vector<PenguinModel::Pose> PenguinModel::preenLoop(int frames) {
    std::vector<Pose> poses;
    for (int f = 0; f < frames; ++f) {
        const double s = frames > 1 ? static_cast<double>(f) / (frames - 1) : 0.0;
        Pose p;
        // Bow forward to preen the chest, then come up and stretch the flippers.
        const double bow = smooth(0.0, 0.45, s) * (1.0 - smooth(0.55, 0.85, s));
        p.bodyLean = 22.0 * bow;
        p.headPitch = -48.0 * bow + 14.0 * smooth(0.75, 1.0, s);
        p.headYaw = 18.0 * std::sin(2.0 * kPi * s) * bow;
        p.leftFlipper = 8.0 + 26.0 * smooth(0.7, 1.0, s);
        p.rightFlipper = 8.0 + 26.0 * smooth(0.7, 1.0, s);
        poses.push_back(p);
    }
    return poses;
}

PenguinModel::Pose PenguinModel::sleeping() {
    Pose p;
    p.headPitch = -35.0;
    p.headYaw = 55.0;
    p.bodyLean = 6.0;
    p.leftFlipper = 2.0;
    p.rightFlipper = 2.0;
    p.squash = 0.86;
    return p;
}

} // namespace tools::assetgen::nivalis
