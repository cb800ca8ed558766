#include "hosts/slab/plane/wall_elements.h"

#include "hosts/slab/library_types.h"
#include "hosts/slab/plate_elements.h"

#include <algorithm>
#include <cmath>

namespace slab {
namespace {

/// Sides of rectangles are at least ten times as long.
constexpr double same_place = 0.001; // m

const Point& Corner(const Model& model, const Element& element, std::size_t i) {
    return model.Nodes[static_cast<std::size_t>(element.Node[i] - 1)];
}

/// Places of the lower left corners along one axis, each once.
std::vector<double> Lines(const Model& model, double Point::*axis) {
    std::vector<double> lines;
    for (const Element& element : model.Elements) {
        lines.push_back(Corner(model, element, 0).*axis);
    }
    std::sort(lines.begin(), lines.end());
    const auto close = [](double a, double b) { return b - a < same_place; };
    lines.erase(std::unique(lines.begin(), lines.end(), close), lines.end());
    return lines;
}

std::ptrdiff_t LineNumber(const std::vector<double>& lines, double place) {
    return std::lower_bound(lines.begin(), lines.end(), place - same_place) - lines.begin();
}

/// A 6 x 6 matrix of (u, v) corner by corner among the (u, v, theta) of three corners.
std::size_t Spread(std::size_t i) {
    return i / 2 * 3 + i % 2;
}

/// The stiffness without what rounding leaves against the rigid motions (1, 0), (0, 1), (y, -x).
Vector ExactStiffness(const std::array<Point, 3>& at, const Array<Single>& SK) {
    std::array<Vector, 3> modes;
    modes.fill(Vector(6));
    const Point centre{(at[0].x + at[1].x + at[2].x) / 3, (at[0].y + at[1].y + at[2].y) / 3};
    for (std::size_t i = 0; i < 3; ++i) {
        modes[0][2 * i] = 1;
        modes[1][2 * i + 1] = 1;
        modes[2][2 * i] = at[i].y - centre.y;
        modes[2][2 * i + 1] = centre.x - at[i].x;
    }
    Vector K(36);
    for (int i = 0; i < 36; ++i) {
        K[i] = double{SK(i / 6 + 1, i % 6 + 1).Value()};
    }
    // About the centre the motions are orthogonal, so they can be taken out one by one: K becomes
    // (I - m m^T) K (I - m m^T).
    for (Vector& m : modes) {
        Scale(m, 1 / Norm(m));
        Vector product(6);
        for (std::size_t i = 0; i < 6; ++i) {
            for (std::size_t j = 0; j < 6; ++j) {
                product[i] += (K[6 * i + j] + K[6 * j + i]) / 2 * m[j];
            }
        }
        const double energy = Dot(m, product);
        for (std::size_t i = 0; i < 6; ++i) {
            for (std::size_t j = 0; j < 6; ++j) {
                K[6 * i + j] += m[i] * energy * m[j] - m[i] * product[j] - product[i] * m[j];
            }
        }
    }
    Vector spread(81);
    for (std::size_t i = 0; i < 6; ++i) {
        for (std::size_t j = 0; j < 6; ++j) {
            spread[9 * Spread(i) + Spread(j)] = (K[6 * i + j] + K[6 * j + i]) / 2;
        }
    }
    return spread;
}

} // namespace

void HalveRectangles(Model& model) {
    const std::vector<double> xLines = Lines(model, &Point::x);
    const std::vector<double> yLines = Lines(model, &Point::y);
    std::vector<Element> triangles;
    for (const Element& element : model.Elements) {
        if (element.Corners == 3) {
            triangles.push_back(element);
            continue;
        }
        const Point& low = Corner(model, element, 0);
        const auto [a, b, c, d] = element.Node;
        const bool rising = (LineNumber(xLines, low.x) + LineNumber(yLines, low.y)) % 2 == 0;
        triangles.push_back({3, {a, b, rising ? c : d, 0}, element.Group});
        triangles.push_back({3, {rising ? a : b, c, d, 0}, element.Group});
    }
    model.Elements = triangles;
}

PlaneElement WallElement(const Model& model, std::size_t element, torlib::FEM_Class& fem) {
    const Element& triangle = model.Elements[element];
    const Group& group = model.Groups[static_cast<std::size_t>(triangle.Group)];
    const Point& o = Corner(model, triangle, 0);
    std::array<Point, 3> at;
    Array<Single> x(Bounds{0, 3});
    Array<Single> Y(Bounds{0, 3});
    for (std::size_t i = 0; i < 3; ++i) {
        const Point& p = Corner(model, triangle, i);
        // From the first corner: far from the origin 32 bits would cut the sides' digits.
        at[i] = {p.x - o.x, p.y - o.y};
        x(static_cast<int>(i) + 1) = at[i].x;
        Y(static_cast<int>(i) + 1) = at[i].y;
    }
    Array<Single> SK;
    fem.SetStressElementStiffness(SK, x, Y, group.Modulus, group.Thickness, group.Poisson,
                                  ElementArea(model, triangle));
    PlaneElement result;
    result.Stiffness = Array<Single>(Bounds{0, 9}, Bounds{0, 9});
    for (std::size_t i = 0; i < 6; ++i) {
        for (std::size_t j = 0; j < 6; ++j) {
            result.Stiffness(static_cast<int>(Spread(i)) + 1, static_cast<int>(Spread(j)) + 1) =
                SK(static_cast<int>(i) + 1, static_cast<int>(j) + 1);
        }
    }
    result.Loads = Array<Single>(Bounds{0, 9});
    result.Exact = ExactStiffness(at, SK);
    return result;
}

Stress StressOf(const Model& model, const Element& triangle, const Vector& u) {
    const Group& group = model.Groups[static_cast<std::size_t>(triangle.Group)];
    const double area2 = 2 * ElementArea(model, triangle);
    double ex = 0;
    double ey = 0;
    double gamma = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const Point& next = Corner(model, triangle, (i + 1) % 3);
        const Point& last = Corner(model, triangle, (i + 2) % 3);
        const double dx = (next.y - last.y) / area2;
        const double dy = (last.x - next.x) / area2;
        const auto node = static_cast<std::size_t>(triangle.Node[i] - 1);
        ex += dx * u[3 * node];
        ey += dy * u[3 * node + 1];
        gamma += dy * u[3 * node] + dx * u[3 * node + 1];
    }
    const double nu = group.Poisson;
    const double plane = group.Modulus / (1 - nu * nu);
    return {plane * (ex + nu * ey), plane * (ey + nu * ex), group.Modulus / 2 / (1 + nu) * gamma};
}

} // namespace slab
