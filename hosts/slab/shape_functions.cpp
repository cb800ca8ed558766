#include "hosts/slab/shape_functions.h"

namespace slab {

namespace {

/// A function's value with its slopes along x and y.
struct Jet {
    double Value = 0;
    double X = 0;
    double Y = 0;
};

Jet operator+(const Jet& a, const Jet& b) {
    return {a.Value + b.Value, a.X + b.X, a.Y + b.Y};
}
Jet operator-(const Jet& a, const Jet& b) {
    return {a.Value - b.Value, a.X - b.X, a.Y - b.Y};
}
Jet operator*(const Jet& a, const Jet& b) {
    return {a.Value * b.Value, a.X * b.Value + a.Value * b.X, a.Y * b.Value + a.Value * b.Y};
}
Jet operator*(double f, const Jet& a) {
    return {f * a.Value, f * a.X, f * a.Y};
}
Jet Constant(double value) {
    return {value, 0, 0};
}

void Put(ShapeValues& shape, std::size_t place, const Jet& jet) {
    shape.W[place] = jet.Value;
    shape.Wx[place] = jet.X;
    shape.Wy[place] = jet.Y;
}

ShapeValues OfRectangle(const Element& element, const std::vector<Point>& nodes, const Point& at) {
    const Point& low = nodes[element.Node[0] - 1];
    const Point& high = nodes[element.Node[2] - 1];
    const double a = (high.x - low.x) / 2;
    const double b = (high.y - low.y) / 2;
    const Jet xi{(at.x - low.x) / a - 1, 1 / a, 0};
    const Jet eta{(at.y - low.y) / b - 1, 0, 1 / b};
    constexpr int corners[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    const Jet one = Constant(1);
    ShapeValues shape;
    for (std::size_t i = 0; i < 4; ++i) {
        const Jet s = corners[i][0] * xi;
        const Jet t = corners[i][1] * eta;
        const Jet both = (one + s) * (one + t);
        Put(shape, 3 * i, 0.125 * (both * (Constant(2) + s + t - xi * xi - eta * eta)));
        Put(shape, 3 * i + 1, a / 8 * corners[i][0] * (both * (one + s) * (s - one)));
        Put(shape, 3 * i + 2, b / 8 * corners[i][1] * (both * (one + t) * (t - one)));
    }
    return shape;
}

ShapeValues OfTriangle(const Element& element, const std::vector<Point>& nodes, const Point& at) {
    std::array<Point, 3> p;
    for (std::size_t i = 0; i < 3; ++i) {
        p[i] = nodes[element.Node[i] - 1];
    }
    const double area2 =
        (p[1].x - p[0].x) * (p[2].y - p[0].y) - (p[2].x - p[0].x) * (p[1].y - p[0].y);
    std::array<Jet, 3> L;
    for (std::size_t i = 0; i < 3; ++i) {
        const Point& j = p[(i + 1) % 3];
        const Point& k = p[(i + 2) % 3];
        L[i].X = (j.y - k.y) / area2;
        L[i].Y = (k.x - j.x) / area2;
        L[i].Value = (at.x - j.x) * L[i].X + (at.y - j.y) * L[i].Y;
    }
    const Jet bubble = 0.5 * (L[0] * L[1] * L[2]);
    ShapeValues shape;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3;
        const std::size_t k = (i + 2) % 3;
        // Slopes at corner i along the sides to j and k.
        const Jet toJ = L[i] * L[i] * L[j] + bubble;
        const Jet toK = L[i] * L[i] * L[k] + bubble;
        Put(shape, 3 * i, L[i] + L[i] * L[i] * (L[j] + L[k]) - L[i] * (L[j] * L[j] + L[k] * L[k]));
        Put(shape, 3 * i + 1, (p[j].x - p[i].x) * toJ + (p[k].x - p[i].x) * toK);
        Put(shape, 3 * i + 2, (p[j].y - p[i].y) * toJ + (p[k].y - p[i].y) * toK);
    }
    return shape;
}

} // namespace

ShapeValues ShapeFunctions(const Element& element, const std::vector<Point>& nodes,
                           const Point& at) {
    return element.Corners == 4 ? OfRectangle(element, nodes, at) : OfTriangle(element, nodes, at);
}

} // namespace slab
