#include "tools/assetgen/mesh/Facets.h"

namespace tools::assetgen::mesh {

core::Vec3d Facets::normal(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c) {
    return (b - a).cross(c - a).normalized();
}

void Facets::triangle(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c) {
    triangle(a, b, c, painter_(normal(a, b, c), (a + b + c) / 3.0));
}

void Facets::triangle(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, double u) {
    const core::Vec3d n = normal(a, b, c);
    auto corner = [&](const core::Vec3d& p) {
        Vertex v;
        v.position = p;
        v.u = u;
        v.v = 0.5;
        v.u0 = u;
        v.normal = n;
        return v;
    };
    out_.flatTriangle(corner(a), corner(b), corner(c));
}

void Facets::quad(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, const core::Vec3d& d) {
    const double u = painter_((normal(a, b, c) + normal(a, c, d)).normalized(), (a + b + c + d) / 4.0);
    quad(a, b, c, d, u);
}

void Facets::quad(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, const core::Vec3d& d, double u) {
    triangle(a, b, c, u);
    triangle(a, c, d, u);
}

void Facets::twoSided(const core::Vec3d& a, const core::Vec3d& b, const core::Vec3d& c, double u) {
    triangle(a, b, c, u);
    triangle(a, c, b, u);
}

} // namespace tools::assetgen::mesh
