// Settlement of the soil surface under a unit force spread over a contact area.

#include "hosts/slab/influence.h"

#include <cmath>

namespace slab {

using torlib::Single;

Influence::Influence(const Soil& soil)
    : layers_(soil.Kind == SoilKind::Layered ? soil.Layers : std::vector<SoilLayer>{}),
      modulus_(soil.Modulus),
      poisson_(soil.Poisson) {}

double Influence::Settlement(const ContactArea& area, const Point& p) const {
    return std::hypot(p.x, p.y) < FarRadii * area.Radius ? FromTriangles(area, p)
                                                         : FromPoints(area, p);
}

double Influence::Triangle(const Point& p, const Point& j, const Point& k, Single area) const {
    Single Dt;
    Single ET;
    Single FT;
    geometry_.TriangularGeometry(0, 0, j.x - p.x, j.y - p.y, k.x - p.x, k.y - p.y, Dt, ET, FT);
    if (layers_.empty()) {
        return soil_.Co_q_HS(FT, Dt, ET, area, poisson_).Value() / modulus_;
    }
    double sum = 0;
    double depth = 0;
    for (const SoilLayer& layer : layers_) {
        sum += soil_.Co_q_LM(FT, Dt, ET, depth, layer.Thickness, area, layer.Poisson).Value() /
               layer.Modulus;
        depth += layer.Thickness;
    }
    return sum;
}

double Influence::FromTriangles(const ContactArea& area, const Point& p) const {
    double sum = 0;
    for (const Quadrilateral& piece : area.Pieces) {
        for (std::size_t i = 0; i < 4; ++i) {
            const Point& j = piece.Corner[i];
            const Point& k = piece.Corner[(i + 1) % 4];
            const double turn = (j.x - p.x) * (k.y - p.y) - (k.x - p.x) * (j.y - p.y);
            if (turn != 0) {
                const double value = Triangle(p, j, k, area.Area);
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

double Influence::FromPoints(const ContactArea& area, const Point& p) const {
    const double gauss = 1 / std::sqrt(3.0);
    double sum = 0;
    for (const Quadrilateral& piece : area.Pieces) {
        const auto& c = piece.Corner;
        for (const auto& [s, t] : {Point{-gauss, -gauss}, Point{gauss, -gauss}, Point{gauss, gauss},
                                   Point{-gauss, gauss}}) {
            const double n[] = {(1 - s) * (1 - t) / 4, (1 + s) * (1 - t) / 4, (1 + s) * (1 + t) / 4,
                                (1 - s) * (1 + t) / 4};
            const auto slope = [&c](double u, auto coordinate, int a, int b, int d, int e) {
                return ((1 - u) * (coordinate(c[b]) - coordinate(c[a])) +
                        (1 + u) * (coordinate(c[d]) - coordinate(c[e]))) /
                       4;
            };
            const auto x = [](const Point& q) { return q.x; };
            const auto y = [](const Point& q) { return q.y; };
            const double jacobian = slope(t, x, 0, 1, 2, 3) * slope(s, y, 0, 3, 2, 1) -
                                    slope(t, y, 0, 1, 2, 3) * slope(s, x, 0, 3, 2, 1);
            Point q;
            for (std::size_t i = 0; i < 4; ++i) {
                q.x += n[i] * c[i].x;
                q.y += n[i] * c[i].y;
            }
            sum += jacobian * PointLoad(p.x - q.x, p.y - q.y);
        }
    }
    return sum / area.Area;
}

} // namespace slab
