// Plates with known deflections: values and convergence. The table that is printed is the one that
// docs/validation.md quotes.

#include "fem_test_tools.h"

#include <cstdio>

namespace torlib::test {
namespace {

enum class Support { Simple, Clamped, Corners };

/// A square of n x n cells, or the rectangle 1 x aspect; triangles halve each cell along the same
/// diagonal. Nodes count from the corner (0, 0) along x.
struct PlateModel : BandSystem<3> {
    PlateModel(int cells, int corners, double a, double b, Single e, Single T, double pressure)
        : n(cells), X(Bounds{1, (n + 1) * (n + 1)}), Y(X) {
        for (int k = 0; k < X.UBound(); ++k) {
            const int i = k % (n + 1), j = k / (n + 1);
            X(k + 1) = a * i / n;
            Y(k + 1) = b * j / n;
        }
        Size(X.UBound(), 3 * (n + 3)); // a cell's corners differ by up to n + 2
        for (int k = 0; k < n * n; ++k) {
            const int n1 = Node(k % n, k / n), n4 = n1 + n + 1;
            if (corners == 4) {
                Add({n1, n1 + 1, n4 + 1, n4}, e, T, pressure);
            } else {
                Add({n1, n1 + 1, n4 + 1}, e, T, pressure);
                Add({n1, n4 + 1, n4}, e, T, pressure);
            }
        }
    }

    int Node(int i, int j) const { return j * (n + 1) + i + 1; }

    void Add(std::initializer_list<Integer> corners, Single e, Single T, double pressure) {
        const auto node = ArrayFromOne(corners);
        const Integer NNode = node.UBound();
        Array<Single> XE(Bounds{1, NNode}), YE(XE), SK, BE;
        for (int k = 1; k <= NNode; ++k) {
            XE(k) = X(node(k));
            YE(k) = Y(node(k));
        }
        fem.SetElementStiffnessMatrix(SK, e, T, 0.3, NNode, XE, YE);
        fem.SetElementLoadVector(BE, pressure, NNode, XE, YE);
        fem.GlobalStiffnessMatrix(A, SK, 3, NNode, node);
        fem.GlobalLoadVector(Q, BE, 3, NNode, node);
    }

    /// Edges hold w and the slope along them; clamped ones the slope across them as well.
    void Hold(Support support) {
        for (int k = 0; k < X.UBound(); ++k) {
            const bool onX = k % (n + 1) % n == 0;
            const bool onY = k / (n + 1) % n == 0;
            const bool clamped = support == Support::Clamped && (onX || onY);
            const bool edges = support != Support::Corners;
            const bool held[] = {edges ? onX || onY : onX && onY, (edges && onY) || clamped,
                                 (edges && onX) || clamped};
            for (int freedom = 1; freedom <= 3; ++freedom) {
                if (held[freedom - 1]) {
                    Restrain(k + 1, freedom);
                }
            }
        }
    }

    /// Bending moment at an inner node from the slopes of its neighbours, D = 1.
    double MomentX(int node) const {
        const auto curvature = [&](int step, int freedom, const Array<Single>& along) {
            return (Value(node + step, freedom) - Value(node - step, freedom)) /
                   (along(node + step) - along(node - step)).Value();
        };
        return -(curvature(1, 2, X) + 0.3 * curvature(n + 1, 3, Y));
    }

    int n;
    Array<Single> X, Y;
};

struct PlateCase {
    const char* name;
    Support support;
    bool pointLoad; // unit force at the centre instead of unit pressure
    double aspect;  // side b over side a = 1
    bool moment;    // at the centre, instead of the deflection
    double reference;
    double tolerance; // relative, on 16 cells a side
    double leastRate; // at which the error falls from 4 to 8 cells a side
};

// a = 1, D = 1, nu = 0.3. Simply supported: Navier's series (Timoshenko and Woinowsky-Krieger 1959,
// Theory of Plates and Shells, articles 28 to 34, tables 8 and 23); clamped: Taylor and Govindjee
// (2004), Comm. Num. Meth. Eng. 20 (tables 35 and 37 of the former, to fewer digits); corner
// supported: the limit of both elements in double precision on ever finer meshes.
// clang-format off
const PlateCase PlateCases[] = {
    {"simply supported, pressure, w", Support::Simple, false, 1.0, false, 0.0040624, 0.005, 1.9},
    {"simply supported, pressure, M", Support::Simple, false, 1.0, true, 0.047886, 0.003, 1.5},
    {"simply supported, point load, w", Support::Simple, true, 1.0, false, 0.0116008, 0.007, 1.6},
    {"simply supported, b/a = 1.5, w", Support::Simple, false, 1.5, false, 0.0077240, 0.005, 1.9},
    {"simply supported, b/a = 2, w", Support::Simple, false, 2.0, false, 0.0101287, 0.006, 1.9},
    {"clamped, pressure, w", Support::Clamped, false, 1.0, false, 0.0012653, 0.012, 1.5},
    {"clamped, point load, w", Support::Clamped, true, 1.0, false, 0.0056120, 0.015, 1.1},
    {"corner supported, pressure, w", Support::Corners, false, 1.0, false, 0.0255, 0.015, 1.7},
};
// clang-format on

double Compute(const PlateCase& c, int n, int corners) {
    PlateModel plate(n, corners, 1, c.aspect, 12 * (1 - 0.09), 1, c.pointLoad ? 0 : 1);
    const int centre = plate.Node(n / 2, n / 2);
    if (c.pointLoad) {
        plate.Q(PlateModel::Equation(centre, 1)) = 1;
    }
    plate.Hold(c.support);
    plate.Solve();
    return c.moment ? plate.MomentX(centre) : plate.Value(centre);
}

TEST(PlateValidation, KnownPlates) {
    std::printf("%-34s %-10s %9s %9s %9s %9s %7s %5s\n", "plate", "mesh", "4", "8", "16",
                "reference", "diff %", "rate");
    for (const PlateCase& c : PlateCases) {
        for (const int corners : {4, 3}) {
            const double v4 = Compute(c, 4, corners), v8 = Compute(c, 8, corners),
                         v16 = Compute(c, 16, corners);
            const double difference = v16 / c.reference - 1;
            const double rate = std::log2(std::fabs((v4 - c.reference) / (v8 - c.reference)));
            std::printf("%-34s %-10s %9.6f %9.6f %9.6f %9.6f %7.2f %5.2f\n", c.name,
                        corners == 4 ? "rectangles" : "triangles", v4, v8, v16, c.reference,
                        100 * difference, rate);
            EXPECT_LT(std::fabs(difference), c.tolerance) << c.name;
            EXPECT_GT(rate, c.leastRate) << c.name;
        }
    }
}

TEST(PlateValidation, OneFreeNode) {
    PlateModel plate(2, 4, 20, 20, 30e6, 0.1, 0);
    const int centre = plate.Node(1, 1);
    plate.Q(PlateModel::Equation(centre, 1)) = 100;
    plate.Hold(Support::Clamped);
    plate.Solve();
    std::printf("one free node: w = %.7f in\n", plate.Value(centre));
    EXPECT_NEAR(plate.Value(centre), 0.0861742, 1e-7);
}

} // namespace
} // namespace torlib::test
