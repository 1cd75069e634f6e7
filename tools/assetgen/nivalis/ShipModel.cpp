#include "tools/assetgen/nivalis/ShipModel.h"

#include <cmath>
#include <vector>

#include "tools/assetgen/mesh/Facets.h"
#include "tools/assetgen/nivalis/Palette.h"

namespace tools::assetgen::nivalis {

using core::Vec3d;

namespace {

/// Lit or shaded by a light from above and to the side; the ship turns, so the light is its own.
int shadeOf(const Vec3d& n) {
    const Vec3d light = Vec3d{0.25, -0.55, 0.8}.normalized();
    return n.dot(light) > 0.3 ? 0 : 1;
}

/// A box from `lo` to `hi`, all faces but the bottom, in one swatch.
void box(mesh::Facets& f, const Vec3d& lo, const Vec3d& hi, Palette::Swatch swatch) {
    const Vec3d p000{lo.x, lo.y, lo.z}, p100{hi.x, lo.y, lo.z}, p110{hi.x, hi.y, lo.z}, p010{lo.x, hi.y, lo.z};
    const Vec3d p001{lo.x, lo.y, hi.z}, p101{hi.x, lo.y, hi.z}, p111{hi.x, hi.y, hi.z}, p011{lo.x, hi.y, hi.z};
    auto side = [&](const Vec3d& a, const Vec3d& b, const Vec3d& c, const Vec3d& d) {
        f.quad(a, b, c, d, Palette::u(swatch, shadeOf(mesh::Facets::normal(a, b, c))));
    };
    side(p000, p100, p101, p001); // -Y
    side(p100, p110, p111, p101); // +X
    side(p110, p010, p011, p111); // +Y
    side(p010, p000, p001, p011); // -X
    side(p001, p101, p111, p011); // top
}

} // namespace

mesh::MeshData ShipModel::build() {
    mesh::MeshData out;
    mesh::Facets f(out, [](const Vec3d& n, const Vec3d&) { return Palette::u(Palette::HULL, shadeOf(n)); });

    // Hull stations from stern to bow: x, half beam at the deck, deck height, half beam at the
    // keel.
    struct Station {
        double x, halfBeam, deck, keelBeam;
    };
    const std::vector<Station> hull = {{-150, 19, 22, 12},  {-120, 23.5, 21, 17}, {-60, 24, 20, 18},
                                       {40, 24, 20, 18},    {95, 21, 22, 12},     {130, 13, 26, 4},
                                       {152, 0.5, 31, 0.1}};
    const double keel = -9.0;
    const double bootTop = 3.0;
    for (std::size_t i = 0; i + 1 < hull.size(); ++i) {
        const Station& a = hull[i];
        const Station& b = hull[i + 1];
        for (double side : {-1.0, 1.0}) {
            // Boot top (red, at the water line) and topsides (dark), each a quad per side.
            auto at = [&](const Station& s, double z) {
                const double t = (z - keel) / (s.deck - keel);
                return Vec3d{s.x, side * (s.keelBeam + (s.halfBeam - s.keelBeam) * std::sqrt(t)), z};
            };
            const Vec3d a0 = at(a, keel), a1 = at(a, bootTop), a2 = at(a, a.deck);
            const Vec3d b0 = at(b, keel), b1 = at(b, bootTop), b2 = at(b, b.deck);
            if (side > 0) {
                f.quad(a0, a1, b1, b0, Palette::u(Palette::HULL_RED));
                f.quad(a1, a2, b2, b1);
            } else {
                f.quad(a0, b0, b1, a1, Palette::u(Palette::HULL_RED));
                f.quad(a1, b1, b2, a2);
            }
        }
        // Deck.
        f.quad(Vec3d{a.x, -a.halfBeam, a.deck}, Vec3d{b.x, -b.halfBeam, b.deck}, Vec3d{b.x, b.halfBeam, b.deck},
               Vec3d{a.x, a.halfBeam, a.deck}, Palette::u(Palette::DECK));
    }
    // Transom.
    const Station& s = hull.front();
    f.quad(Vec3d{s.x, -s.keelBeam, keel}, Vec3d{s.x, -s.halfBeam, s.deck}, Vec3d{s.x, s.halfBeam, s.deck},
           Vec3d{s.x, s.keelBeam, keel}, Palette::u(Palette::HULL, 1));
    // Bulwark at the bow.
    f.quad(Vec3d{95, -21, 22}, Vec3d{152, -0.5, 31}, Vec3d{152, -0.5, 35}, Vec3d{95, -21, 27},
           Palette::u(Palette::HULL, 1));
    f.quad(Vec3d{152, 0.5, 31}, Vec3d{95, 21, 22}, Vec3d{95, 21, 27}, Vec3d{152, 0.5, 35}, Palette::u(Palette::HULL, 0));

    // Deckhouse in two tiers, with the bridge forward and a band of windows.
    box(f, {-95, -19, 20}, {-25, 19, 40}, Palette::CABIN);
    box(f, {-62, -16, 40}, {-28, 16, 56}, Palette::CABIN);
    box(f, {-34, -21, 56}, {-24, 21, 62}, Palette::CABIN); // bridge wings
    // Windows: dark strips standing just proud of the walls.
    f.quad(Vec3d{-27.9, -14, 47}, Vec3d{-27.9, 14, 47}, Vec3d{-27.9, 14, 52}, Vec3d{-27.9, -14, 52},
           Palette::u(Palette::WINDOW));
    for (double side : {-1.0, 1.0}) {
        const double y = side * 19.1;
        if (side > 0) {
            f.quad(Vec3d{-30, y, 31}, Vec3d{-90, y, 31}, Vec3d{-90, y, 35}, Vec3d{-30, y, 35}, Palette::u(Palette::WINDOW));
        } else {
            f.quad(Vec3d{-90, y, 31}, Vec3d{-30, y, 31}, Vec3d{-30, y, 35}, Vec3d{-90, y, 35}, Palette::u(Palette::WINDOW));
        }
    }
    // Funnel: an eight-sided stack with a black top band.
    const Vec3d base{-72, 0, 40};
    constexpr int sides = 8;
    for (int k = 0; k < sides; ++k) {
        const double a0 = 2.0 * 3.14159265358979 * k / sides;
        const double a1 = 2.0 * 3.14159265358979 * (k + 1) / sides;
        auto ring = [&](double a, double z, double r) { return base + Vec3d{r * 1.3 * std::cos(a) - 2.0 * (z - 40.0) / 30.0 * 2.0, r * std::sin(a), z - 40.0}; };
        const Vec3d l0 = ring(a0, 40, 8), l1 = ring(a1, 40, 8);
        const Vec3d m0 = ring(a0, 70, 7.5), m1 = ring(a1, 70, 7.5);
        const Vec3d t0 = ring(a0, 77, 7.3), t1 = ring(a1, 77, 7.3);
        f.quad(l0, l1, m1, m0, Palette::u(Palette::FUNNEL));
        f.quad(m0, m1, t1, t0, Palette::u(Palette::FUNNEL_BAND));
        f.triangle(t0, t1, base + Vec3d{-4.0, 0, 37.0}, Palette::u(Palette::FUNNEL_BAND));
    }
    // Masts: a foremast with a yard and a short mast aft.
    box(f, {58, -1.6, 20}, {61, 1.6, 92}, Palette::MAST);
    box(f, {57, -16, 78}, {62, 16, 80.5}, Palette::MAST);
    box(f, {-118, -1.4, 21}, {-115, 1.4, 60}, Palette::MAST);
    // A crane and cargo hatches on the foredeck.
    box(f, {10, -14, 20}, {40, 14, 25}, Palette::HULL);
    box(f, {-15, -12, 20}, {5, 12, 24}, Palette::HULL);
    box(f, {68, -3, 20}, {74, 3, 48}, Palette::FUNNEL);
    return out;
}

} // namespace tools::assetgen::nivalis
