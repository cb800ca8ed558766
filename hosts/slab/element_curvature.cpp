// Curvatures of the elements' displacement fields.
// Sources: Zienkiewicz and Taylor (2000), The Finite Element Method, vol. 2, section 4.3 (rectangle
// of Adini, Clough and Melosh) and section 4.5 (triangle of Bazeley, Cheung, Irons, Zienkiewicz).

#include "hosts/slab/moments.h"

namespace slab {

namespace {

struct Corners {
    std::array<Point, 4> At;
    std::array<double, 4> W{}, Wx{}, Wy{};
};

Corners CornersOf(const Model& model, const Element& element, const Vector& u) {
    Corners c;
    for (std::size_t i = 0; i < static_cast<std::size_t>(element.Corners); ++i) {
        const auto n = static_cast<std::size_t>(element.Node[i] - 1);
        c.At[i] = model.Nodes[n];
        c.W[i] = u[3 * n];
        c.Wx[i] = u[3 * n + 1];
        c.Wy[i] = u[3 * n + 2];
    }
    return c;
}

/// Second derivative at end 1 of the cubic through values and slopes of a side.
double EndCurvature(double length, double w1, double slope1, double w2, double slope2) {
    return (6 * (w2 - w1) / length - 4 * slope1 - 2 * slope2) / length;
}

/// Second derivatives of the triangle's field by the area
/// coordinates, at the centroid. Its shape functions are L_i + L_i^2 (L_j + L_k) - L_i (L_j^2 +
/// L_k^2) of w_i, and L_i^2 L_j + L_1 L_2 L_3 / 2 of the slope at i along the side towards j.
struct AreaHessian {
    std::array<std::array<double, 3>, 3> F{};
    void Add(std::size_t i, std::size_t j, double value) {
        F[i][j] += value;
        if (i != j) {
            F[j][i] += value;
        }
    }
};

AreaHessian HessianAtCentroid(const Corners& c) {
    AreaHessian h;
    for (std::size_t i = 0; i < 3; ++i) {
        h.Add(i, i, 4 * c.W[i] / 3);
        for (std::size_t m = 1; m < 3; ++m) {
            const std::size_t j = (i + m) % 3;
            const std::size_t k = (i + 3 - m) % 3;
            const double slope =
                c.Wx[i] * (c.At[j].x - c.At[i].x) + c.Wy[i] * (c.At[j].y - c.At[i].y);
            h.Add(j, j, -2 * c.W[i] / 3);
            h.Add(i, i, 2 * slope / 3);
            h.Add(i, j, 5 * slope / 6);
            h.Add(i, k, slope / 6);
            h.Add(j, k, slope / 6);
        }
    }
    return h;
}

} // namespace

/// Along its sides the rectangle's field is cubic; the twist needs all corners.
std::array<Curvature, 4> RectangleCurvatures(const Model& model, const Element& element,
                                             const Vector& displacement) {
    static constexpr int xi[] = {-1, 1, 1, -1};
    static constexpr int eta[] = {-1, -1, 1, 1};
    static constexpr int alongX[] = {1, 0, 3, 2}; // neighbour of each corner on the side along x
    static constexpr int alongY[] = {3, 2, 1, 0};
    const Corners c = CornersOf(model, element, displacement);
    const double a = (c.At[1].x - c.At[0].x) / 2;
    const double b = (c.At[3].y - c.At[0].y) / 2;
    std::array<Curvature, 4> result;
    for (int k = 0; k < 4; ++k) {
        const int ix = alongX[k];
        const int iy = alongY[k];
        result[k][0] = EndCurvature(-2 * a * xi[k], c.W[k], c.Wx[k], c.W[ix], c.Wx[ix]);
        result[k][1] = EndCurvature(-2 * b * eta[k], c.W[k], c.Wy[k], c.W[iy], c.Wy[iy]);
        double twist = 0;
        for (int i = 0; i < 4; ++i) {
            const double s = xi[k] * xi[i];
            const double t = eta[k] * eta[i];
            const double value =
                2 + s + t - s * s - t * t + (1 + s) * (1 - 2 * s) + (1 + t) * (1 - 2 * t);
            twist += xi[i] * eta[i] * value / (8 * a * b) * c.W[i] +
                     eta[i] * (1 + s) * (3 * s - 1) / (8 * b) * c.Wx[i] +
                     xi[i] * (1 + t) * (3 * t - 1) / (8 * a) * c.Wy[i];
        }
        result[k][2] = twist;
    }
    return result;
}

Curvature TriangleCurvature(const Model& model, const Element& element,
                            const Vector& displacement) {
    const Corners c = CornersOf(model, element, displacement);
    std::array<double, 3> b{};
    std::array<double, 3> d{};
    const double twiceArea = (c.At[1].x - c.At[0].x) * (c.At[2].y - c.At[0].y) -
                             (c.At[2].x - c.At[0].x) * (c.At[1].y - c.At[0].y);
    for (std::size_t i = 0; i < 3; ++i) {
        b[i] = (c.At[(i + 1) % 3].y - c.At[(i + 2) % 3].y) / twiceArea;
        d[i] = (c.At[(i + 2) % 3].x - c.At[(i + 1) % 3].x) / twiceArea;
    }
    const AreaHessian h = HessianAtCentroid(c);
    Curvature result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            result[0] += h.F[i][j] * b[i] * b[j];
            result[1] += h.F[i][j] * d[i] * d[j];
            result[2] += h.F[i][j] * b[i] * d[j];
        }
    }
    return result;
}

} // namespace slab
