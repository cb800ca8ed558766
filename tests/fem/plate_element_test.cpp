// Laws of the plate elements: bending energy of polynomials, equality with quadrature of the shape
// functions, work of a uniform pressure, orientation, symmetry, failures.

#include "fem_test_tools.h"

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

namespace torlib::test {
namespace {

struct Point {
    double x, y;
};
struct Shape {
    const char* name;
    std::vector<Point> corners;
    double nu;
};
using Field = std::function<double(Point)>;
/// A deflection field: its values, its nodal values and its second derivatives.
struct Mode {
    Field w;
    std::vector<double> q;
    Field wxx, wyy, wxy;
};

Mode Monomial(const Shape& s, int m, int n) {
    const auto power = [](int i, int j, double c) -> Field {
        return [=](Point p) { return c == 0 ? 0 : c * std::pow(p.x, i) * std::pow(p.y, j); };
    };
    Mode mode{power(m, n, 1),
              {},
              power(m - 2, n, m * (m - 1)),
              power(m, n - 2, n * (n - 1)),
              power(m - 1, n - 1, m * n)};
    for (const Point& p : s.corners) {
        mode.q.insert(mode.q.end(), {mode.w(p), power(m - 1, n, m)(p), power(m, n - 1, n)(p)});
    }
    return mode;
}

double SignedArea(const Shape& s) {
    double twice = 0;
    for (std::size_t i = 0; i < s.corners.size(); ++i) {
        const Point& p = s.corners[i];
        const Point& q = s.corners[(i + 1) % s.corners.size()];
        twice += p.x * q.y - q.x * p.y;
    }
    return twice / 2;
}

/// Integral over the element, signed as its area: Gauss 3 x 3 on rectangles; on triangles the same
/// points with the square collapsed, exact to the fourth degree.
double Integral(const Shape& s, const Field& f) {
    const double r = std::sqrt(0.6);
    const double points[3] = {(1 - r) / 2, 0.5, (1 + r) / 2};
    const double weights[3] = {5.0 / 18, 8.0 / 18, 5.0 / 18};
    const bool triangle = s.corners.size() == 3;
    const Point& o = s.corners[0];
    const Point& a = s.corners[1];
    const Point& b = s.corners.back();
    double sum = 0;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            const double u = points[i] * (triangle ? 1 - points[j] : 1);
            const double v = points[j];
            const double jacobian = triangle ? 2 * (1 - points[j]) : 1;
            sum += weights[i] * weights[j] * jacobian *
                   f({o.x + u * (a.x - o.x) + v * (b.x - o.x),
                      o.y + u * (a.y - o.y) + v * (b.y - o.y)});
        }
    }
    return sum * SignedArea(s);
}

/// Virtual work of the bending moments of u on the curvatures of v, with D = 1.
double BendingWork(const Shape& s, const Mode& u, const Mode& v) {
    return Integral(s, [&](Point p) {
        return u.wxx(p) * v.wxx(p) + u.wyy(p) * v.wyy(p) +
               s.nu * (u.wxx(p) * v.wyy(p) + u.wyy(p) * v.wxx(p)) +
               2 * (1 - s.nu) * u.wxy(p) * v.wxy(p);
    });
}

struct Element {
    explicit Element(const Shape& s) : size(3 * static_cast<int>(s.corners.size())) {
        const int n = size / 3;
        Array<Single> XE(Bounds{1, n});
        Array<Single> YE(Bounds{1, n});
        for (int k = 1; k <= n; ++k) {
            XE(k) = s.corners[static_cast<std::size_t>(k - 1)].x;
            YE(k) = s.corners[static_cast<std::size_t>(k - 1)].y;
        }
        // D = 1
        FEM_Class::DefaultInstance().SetElementStiffnessMatrix(SK, 12 * (1 - s.nu * s.nu), 1, s.nu,
                                                               n, XE, YE);
        FEM_Class::DefaultInstance().SetElementLoadVector(BE, 1, n, XE, YE);
    }
    double K(int i, int j) const { return SK(i + 1, j + 1).Value(); }
    double Scale(int i, int j) const { return std::sqrt(std::fabs(K(i, i) * K(j, j))); }

    int size;
    Array<Single> SK, BE;
};

const Shape Rectangles[] = {
    {"unit square", {{0, 0}, {1, 0}, {1, 1}, {0, 1}}, 0.3},
    {"long", {{-1, 2}, {5, 2}, {5, 3.5}, {-1, 3.5}}, 0},
    {"tall", {{0.5, -1}, {1, -1}, {1, 1.5}, {0.5, 1.5}}, 0.45},
};
const Shape Triangles[] = {
    {"right", {{0, 0}, {1, 0}, {0, 1}}, 0.3},
    {"general", {{1, 0.5}, {3, 1.5}, {0.5, 2.75}}, 0.2},
    {"obtuse", {{-2, 1}, {-1, -1}, {2, 0}}, 0},
    {"general from its third node", {{0.5, 2.75}, {1, 0.5}, {3, 1.5}}, 0.2},
    {"clockwise", {{1, 0.5}, {0.5, 2.75}, {3, 1.5}}, 0.45},
};

/// Shape function i (0..8) of the nonconforming triangle in area coordinates (Bazeley et al. 1965).
double TriangleShape(const Shape& s, std::size_t i, Point p) {
    const std::size_t n = i / 3;
    const std::size_t a = (n + 1) % 3;
    const std::size_t b = (n + 2) % 3;
    double L[3];
    for (std::size_t k = 0; k < 3; ++k) {
        Shape part = s;
        part.corners[k] = p;
        L[k] = SignedArea(part) / SignedArea(s);
    }
    if (i % 3 == 0) {
        return L[n] + L[n] * L[n] * (L[a] + L[b]) - L[n] * (L[a] * L[a] + L[b] * L[b]);
    }
    const double bubble = L[0] * L[1] * L[2] / 2;
    const auto along = [&](std::size_t k) {
        return i % 3 == 1 ? s.corners[k].x - s.corners[n].x : s.corners[k].y - s.corners[n].y;
    };
    return along(a) * (L[n] * L[n] * L[a] + bubble) + along(b) * (L[n] * L[n] * L[b] + bubble);
}

/// The mode of a unit nodal value i; central differences are exact for third degree.
Mode TriangleMode(const Shape& s, std::size_t i) {
    Mode mode;
    mode.w = [&s, i](Point p) { return TriangleShape(s, i, p); };
    mode.q.assign(9, 0);
    mode.q[i] = 1;
    const auto at = [&s, i](Point p, double x, double y) {
        return TriangleShape(s, i, {p.x + x, p.y + y});
    };
    mode.wxx = [at](Point p) { return at(p, 1, 0) - 2 * at(p, 0, 0) + at(p, -1, 0); };
    mode.wyy = [at](Point p) { return at(p, 0, 1) - 2 * at(p, 0, 0) + at(p, 0, -1); };
    mode.wxy = [at](Point p) {
        return (at(p, 1, 1) - at(p, 1, -1) - at(p, -1, 1) + at(p, -1, -1)) / 4;
    };
    return mode;
}

std::vector<Mode> ModesOf(const Shape& s) {
    std::vector<Mode> modes;
    for (std::size_t i = 0; s.corners.size() == 3 && i < 9; ++i) {
        modes.push_back(TriangleMode(s, i));
    }
    for (int k = 0; s.corners.size() == 4 && k < 16; ++k) { // x^m y^n without x^2 y^2 and beyond
        const int m = k / 4, n = k % 4;
        if (m + n <= 3 || m * n == 3) {
            modes.push_back(Monomial(s, m, n));
        }
    }
    return modes;
}

// The elements contain these fields, so their energies (zero for rigid bodies) and the work of a
// pressure on them are exact. Twelve polynomials determine the whole matrix of the rectangle, nine
// shape functions that of the triangle.
void ExpectEnergyAndLoad(const Shape& shape) {
    SCOPED_TRACE(shape.name);
    const Element element(shape);
    const std::vector<Mode> modes = ModesOf(shape);
    for (std::size_t k = 0; k < modes.size(); ++k) {
        double work = 0;
        double workSize = std::fabs(SignedArea(shape));
        for (int i = 0; i < element.size; ++i) {
            const double term = element.BE(i + 1).Value() * modes[k].q[static_cast<std::size_t>(i)];
            work += term;
            workSize += std::fabs(term);
        }
        EXPECT_NEAR(work, Integral(shape, modes[k].w), 1e-6 * workSize) << "mode " << k;
        for (std::size_t l = 0; l < modes.size(); ++l) {
            double energy = 0, size = 0;
            for (int i = 0; i < element.size; ++i) {
                for (int j = 0; j < element.size; ++j) {
                    const double qq = modes[k].q[static_cast<std::size_t>(i)] *
                                      modes[l].q[static_cast<std::size_t>(j)];
                    energy += qq * element.K(i, j);
                    size += std::fabs(qq) * element.Scale(i, j);
                }
            }
            EXPECT_NEAR(energy, BendingWork(shape, modes[k], modes[l]), 1.5e-6 * size)
                << "modes " << k << ", " << l;
        }
    }
}

TEST(PlateRectangle, Symmetric) {
    const Element element(Rectangles[1]);
    for (int i = 0; i < 12; ++i) {
        for (int j = 0; j < i; ++j) {
            EXPECT_EQ(element.K(i, j), element.K(j, i));
        }
    }
}

TEST(PlateElement, EnergyAndLoadOfItsFields) {
    for (const Shape& shape : Rectangles) {
        ExpectEnergyAndLoad(shape);
    }
    for (const Shape& shape : Triangles) {
        ExpectEnergyAndLoad(shape);
    }
}

// The same digits on every machine: values of an independent computation that turns columns first.
TEST(PlateTriangle, LastBitsShowTheOrderOfTheTransformation) {
    const Element element(Triangles[1]);
    EXPECT_EQ(element.K(2, 1), 0.0934293419F);
    EXPECT_EQ(element.K(1, 2), 0.093429327F);
    EXPECT_EQ(element.K(8, 7), -0.303444088F);
    EXPECT_EQ(element.K(7, 8), -0.303444028F);
}

TEST(PlateElementDispatch, ZeroMatrices) {
    const auto X = ArrayFromOne<Single>({0, 1, 1, 0, 0}), Y = ArrayFromOne<Single>({0, 0, 1, 1, 0});
    const int cases[][3] = {{4, 1, 0}, {4, 0, 1}, {4, -1, 1}, {3, 1, -1},
                            {3, 0, 1}, {2, 1, 1}, {5, 1, 1}};
    for (const auto& [nodes, e, T] : cases) {
        Array<Single> SK;
        FEM_Class().SetElementStiffnessMatrix(SK, e, T, 0.3, nodes, X, Y);
        EXPECT_EQ(SK.UBound(2), 3 * nodes);
        EXPECT_EQ(SK.Rows(), 3U * nodes + 1);
        EXPECT_TRUE(std::all_of(SK.Data(), SK.Data() + SK.Size(), [](Single v) { return v == 0; }));
    }
}

TEST(PlateElementDispatch, OnlyTheSidesFromNode1Count) {
    Array<Single> regular, skew;
    FEM_Class().SetElementStiffnessMatrix(regular, 2, 1, 0.2, 4, ArrayFromOne<Single>({1, 4, 4, 1}),
                                          ArrayFromOne<Single>({2, 2, 4, 4}));
    FEM_Class().SetElementStiffnessMatrix(skew, 2, 1, 0.2, 4, ArrayFromOne<Single>({1, 4, 9, -5}),
                                          ArrayFromOne<Single>({2, 8, 7, 4}));
    EXPECT_TRUE(std::equal(regular.Data(), regular.Data() + regular.Size(), skew.Data()));
}

TEST(PlateElementDispatch, Failures) {
    const FEM_Class fem;
    const auto line = ArrayFromOne<Single>({0, 1, 2}), point = ArrayFromOne<Single>({1, 1, 1}),
               across = ArrayFromOne<Single>({0, 0, 1});
    Array<Single> SK, BE;
    const auto triangle = [&](const auto& x, const auto& y) {
        return ErrorOf([&] { fem.SetTriElementStiffness(SK, 1, 1, 0, x, y); });
    };
    const auto rectangle = [&](double a, double b, double nu) {
        return ErrorOf([&] { fem.SetRecElementStiffness(SK, 1, 1, nu, a, b); });
    };
    SK.ReDim(12, 12);
    EXPECT_EQ(triangle(line, line), 11);
    EXPECT_EQ(triangle(point, point), 6);
    for (const auto& [a, b, nu] : {std::array{0, 2, 0}, {2, 0, 0}, {2, 1, 1}}) {
        EXPECT_EQ(rectangle(a, b, nu), 11);
    }
    // The coefficients are in the upper triangle before they are multiplied, and all of them are
    // multiplied before the lower triangle follows: 142.5 = (42 - 12 + 240 + 15) / 2.
    EXPECT_EQ(SK(1, 1), 142.5);
    EXPECT_EQ(SK(2, 5), 5);
    EXPECT_EQ(SK(5, 2), 0);
    EXPECT_EQ(ErrorOf([&] { fem.SetRecElementStiffness(SK, 1E38, 2, 0, 2, 1); }), 6);
    EXPECT_EQ(SK(1, 1), 148.5) << "the first product is too large";
    EXPECT_EQ(SK(12, 12), 42);
    EXPECT_EQ(SK(2, 1), 0);
    BE.ReDim(9);
    fem.SetTriElementLoadVector(BE, 5, line, line);
    EXPECT_EQ(BE(4).Value(), 0);
    SK.ReDim(8, 9);
    EXPECT_EQ(triangle(line, across), 9);
    EXPECT_EQ(rectangle(2, 1, 0), 9);
    EXPECT_EQ(ErrorOf([&] { fem.SetRecElementLoadVector(BE, 1, 2, 1); }), 9);
    EXPECT_EQ(ErrorOf([&] { fem.SetElementStiffnessMatrix(SK, 1, 0, 0, 4, line, line); }), 9);
    EXPECT_EQ(SK.UBound(), 12) << "re-dimensioned before the error";
    for (const int nodes : {342, 10000}) {
        EXPECT_EQ(ErrorOf([&] { fem.SetElementStiffnessMatrix(SK, 1, 1, 0, nodes, line, line); }),
                  9);
        EXPECT_EQ(SK.UBound(), 12) << "a count alone takes no memory";
    }
    EXPECT_EQ(ErrorOf([&] { fem.SetElementStiffnessMatrix(SK, 1, 1, 0, 10923, line, line); }), 6);
    const Array<Single> many(Bounds{1, 342});
    fem.SetElementStiffnessMatrix(SK, 1, 1, 0, 342, many, many);
    EXPECT_EQ(SK.UBound(), 1026);
}

} // namespace
} // namespace torlib::test
