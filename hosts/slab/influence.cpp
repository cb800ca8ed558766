// Settlement of the soil surface under a unit force spread over a contact area.

#include "hosts/slab/influence.h"

#include "hosts/slab/library_types.h"

#include <cmath>

namespace slab {
namespace {

struct GaussPoint {
    Point At;
    double Jacobian = 0;
};

/// The bilinear map of the square -1..1 onto a quadrilateral.
GaussPoint Map(const Quadrilateral& piece, double s, double t) {
    const Point& a = piece.Corner[0];
    const Point& b = piece.Corner[1];
    const Point& c = piece.Corner[2];
    const Point& d = piece.Corner[3];
    const auto value = [s, t](double u, double v, double w, double z) {
        return ((1 - s) * (1 - t) * u + (1 + s) * (1 - t) * v + (1 + s) * (1 + t) * w +
                (1 - s) * (1 + t) * z) /
               4;
    };
    const double xs = ((1 - t) * (b.x - a.x) + (1 + t) * (c.x - d.x)) / 4;
    const double ys = ((1 - t) * (b.y - a.y) + (1 + t) * (c.y - d.y)) / 4;
    const double xt = ((1 - s) * (d.x - a.x) + (1 + s) * (c.x - b.x)) / 4;
    const double yt = ((1 - s) * (d.y - a.y) + (1 + s) * (c.y - b.y)) / 4;
    return {{value(a.x, b.x, c.x, d.x), value(a.y, b.y, c.y, d.y)}, xs * yt - ys * xt};
}

} // namespace

Influence::Influence(const Soil& soil)
    : layers_(soil.Kind == SoilKind::Layered ? soil.Layers : std::vector<SoilLayer>{}),
      modulus_(soil.Modulus),
      poisson_(soil.Poisson) {}

double Influence::Settlement(const ContactArea& area, const Point& p) const {
    const double distance = std::hypot(p.x, p.y);
    if (distance < 2 * area.Radius) {
        return FromTriangles(area, p);
    }
    if (distance < 6 * area.Radius) {
        return FromPoints(area, p, 3);
    }
    return FromPoints(area, p, distance < 30 * area.Widest ? 2 : 1);
}

/// Sides from the evaluation point, in a unit of length of which `scale` make a metre.
double Influence::Triangle(const Point& j, const Point& k, double scale, double area) const {
    Single Dt;
    Single ET;
    Single FT;
    geometry_.TriangularGeometry(0, 0, j.x * scale, j.y * scale, k.x * scale, k.y * scale, Dt, ET,
                                 FT);
    const Single scaled = area * scale * scale;
    if (layers_.empty()) {
        return scale * soil_.Co_q_HS(FT, Dt, ET, scaled, poisson_).Value() / modulus_;
    }
    double sum = 0;
    double depth = 0;
    for (const SoilLayer& layer : layers_) {
        const Single Ho = layer.Thickness * scale;
        sum += scale * soil_.Co_q_LM(FT, Dt, ET, depth * scale, Ho, scaled, layer.Poisson).Value() /
               layer.Modulus;
        depth += layer.Thickness;
    }
    return sum;
}

double Influence::FromTriangles(const ContactArea& area, const Point& p) const {
    // The library takes distances below 0.001 for 0: small beside an area of radius 4.
    const double scale = 4 / area.Radius;
    double sum = 0;
    for (const Quadrilateral& piece : area.Pieces) {
        for (std::size_t i = 0; i < 4; ++i) {
            const Point j{piece.Corner[i].x - p.x, piece.Corner[i].y - p.y};
            const Point k{piece.Corner[(i + 1) % 4].x - p.x, piece.Corner[(i + 1) % 4].y - p.y};
            const double turn = j.x * k.y - k.x * j.y;
            if (std::fabs(turn) > 1e-9 * area.Area) {
                const double value = Triangle(j, k, scale, area.Area);
                sum += turn > 0 ? value : -value;
            }
        }
    }
    return sum;
}

double Influence::PointLoad(double dx, double dy) const {
    if (layers_.empty()) {
        return soil_.Co_P_HS(dx, 0, dy, 0, poisson_).Value() / modulus_;
    }
    double sum = 0;
    double depth = 0;
    for (const SoilLayer& layer : layers_) {
        Single ZG = depth;
        sum +=
            soil_.Co_P_LM(dx, 0, dy, 0, ZG, layer.Thickness, layer.Poisson).Value() / layer.Modulus;
        depth += layer.Thickness;
    }
    return sum;
}

double Influence::FromPoints(const ContactArea& area, const Point& p, int order) const {
    static const double places[3][3] = {{0, 0, 0},
                                        {-std::sqrt(1.0 / 3), std::sqrt(1.0 / 3), 0},
                                        {-std::sqrt(0.6), 0, std::sqrt(0.6)}};
    static const double weights[3][3] = {{2, 0, 0}, {1, 1, 0}, {5.0 / 9, 8.0 / 9, 5.0 / 9}};
    double sum = 0;
    for (const Quadrilateral& piece : area.Pieces) {
        for (int i = 0; i < order * order; ++i) {
            const int a = i % order;
            const int b = i / order;
            const GaussPoint at = Map(piece, places[order - 1][a], places[order - 1][b]);
            sum += weights[order - 1][a] * weights[order - 1][b] * at.Jacobian *
                   PointLoad(p.x - at.At.x, p.y - at.At.y);
        }
    }
    return sum / area.Area;
}

} // namespace slab
