// Plates with known deflections: values, convergence, reciprocity, settlements. The table that is
// printed is the one that docs/validation.md quotes.

#include "fem_test_tools.h"

#include <cstdio>
#include <functional>

namespace torlib::test {
namespace {

enum class Support { Simple, Clamped, Corners };
enum class Result { Deflection, Moment };

struct PlateCase {
    const char* name;
    Support support;
    bool pointLoad; // unit force at the centre instead of unit pressure
    double aspect;  // side b over side a = 1
    Result result;  // at the centre
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
    {"simply supported, pressure, w", Support::Simple, false, 1.0, Result::Deflection, 0.0040624, 0.005, 1.9},
    {"simply supported, pressure, M", Support::Simple, false, 1.0, Result::Moment, 0.047886, 0.003, 1.5},
    {"simply supported, point load, w", Support::Simple, true, 1.0, Result::Deflection, 0.0116008, 0.007, 1.6},
    {"simply supported, b/a = 1.5, w", Support::Simple, false, 1.5, Result::Deflection, 0.0077240, 0.005, 1.9},
    {"simply supported, b/a = 2, w", Support::Simple, false, 2.0, Result::Deflection, 0.0101287, 0.006, 1.9},
    {"clamped, pressure, w", Support::Clamped, false, 1.0, Result::Deflection, 0.0012653, 0.012, 1.5},
    {"clamped, point load, w", Support::Clamped, true, 1.0, Result::Deflection, 0.0056120, 0.015, 1.1},
    {"corner supported, pressure, w", Support::Corners, false, 1.0, Result::Deflection, 0.0255, 0.015, 1.7},
};
// clang-format on

/// Bending moment at an inner node from the slopes of its neighbours.
double MomentX(const PlateModel& plate, int i, int j) {
    const auto slopeChange = [&](int di, int dj, int freedom, const Array<Single>& along) {
        const int before = plate.Node(i - di, j - dj);
        const int after = plate.Node(i + di, j + dj);
        return (plate.Value(after, freedom) - plate.Value(before, freedom)) /
               (along(after).Value() - along(before).Value());
    };
    return -(slopeChange(1, 0, 2, plate.X) + 0.3 * slopeChange(0, 1, 3, plate.Y));
}

double Compute(const PlateCase& c, int n, Mesh mesh) {
    PlateModel plate(n, n, 1, c.aspect, mesh);
    plate.Assemble(c.pointLoad ? 0 : 1);
    const int centre = plate.Node(n / 2, n / 2);
    if (c.pointLoad) {
        plate.Q(PlateModel::Equation(centre, 1)) = 1;
    }
    if (c.support == Support::Corners) {
        for (const int node :
             {plate.Node(0, 0), plate.Node(n, 0), plate.Node(0, n), plate.Node(n, n)}) {
            plate.Restrain(node, 1);
        }
    } else {
        plate.SupportEdges(true, true, true, true, c.support == Support::Clamped);
    }
    plate.Solve();
    return c.result == Result::Moment ? MomentX(plate, n / 2, n / 2) : plate.Value(centre);
}

TEST(PlateValidation, KnownPlates) {
    std::printf("%-34s %-10s %9s %9s %9s %9s %7s %5s\n", "plate", "mesh", "4", "8", "16",
                "reference", "diff %", "rate");
    for (const PlateCase& c : PlateCases) {
        for (const Mesh mesh : {Mesh::Rectangles, Mesh::Triangles}) {
            const double v4 = Compute(c, 4, mesh);
            const double v8 = Compute(c, 8, mesh);
            const double v16 = Compute(c, 16, mesh);
            const double difference = v16 / c.reference - 1;
            const double rate = std::log2(std::fabs((v4 - c.reference) / (v8 - c.reference)));
            std::printf("%-34s %-10s %9.6f %9.6f %9.6f %9.6f %7.2f %5.2f\n", c.name,
                        mesh == Mesh::Rectangles ? "rectangles" : "triangles", v4, v8, v16,
                        c.reference, 100 * difference, rate);
            EXPECT_LT(std::fabs(difference), c.tolerance) << c.name;
            EXPECT_GT(rate, c.leastRate) << c.name;
        }
    }
}

TEST(PlateValidation, OneFreeNode) {
    PlateModel plate(2, 2, 20, 20);
    plate.e = 30e6;
    plate.T = 0.1;
    plate.Assemble(0);
    plate.Q(PlateModel::Equation(plate.Node(1, 1), 1)) = 100;
    plate.SupportEdges(true, true, true, true, true);
    plate.Solve();
    std::printf("one free node: w = %.7f in\n", plate.Value(plate.Node(1, 1)));
    EXPECT_NEAR(plate.Value(plate.Node(1, 1)), 0.0861742, 1e-7);
}

TEST(PlateValidation, Reciprocity) {
    const auto response = [](Mesh mesh, int loaded, int freedom, int observed,
                             int observedFreedom) {
        PlateModel plate(5, 4, 1, 1.2, mesh);
        plate.Assemble(0);
        plate.Q(PlateModel::Equation(loaded, freedom)) = 1;
        plate.SupportEdges(true, false, true, false, true);
        plate.Solve();
        return plate.Value(observed, observedFreedom);
    };
    for (const Mesh mesh : {Mesh::Rectangles, Mesh::Triangles}) {
        for (const auto& [a, b] : {std::pair{1, 1}, {1, 2}, {2, 3}, {3, 1}}) {
            const double there = response(mesh, 9, a, 28, b);
            EXPECT_NEAR(there, response(mesh, 28, b, 9, a), 2e-5 * std::fabs(there));
            EXPECT_NE(there, 0);
        }
    }
}

// Three corners settle to a plane: the whole plate tilts with them, without any curvature.
TEST(PlateValidation, SettlementsOfStaticallyDeterminateSupportsTiltThePlate) {
    for (const Mesh mesh : {Mesh::Rectangles, Mesh::Triangles}) {
        PlateModel plate(4, 3, 2, 3, mesh);
        plate.Assemble(0);
        plate.Restrain(plate.Node(0, 0), 1, 0.01);
        plate.Restrain(plate.Node(4, 0), 1, 0.03);
        plate.Restrain(plate.Node(0, 3), 1, -0.02);
        plate.Solve();
        for (int node = 1; node <= plate.Nk; ++node) {
            const double w = 0.01 + 0.01 * plate.X(node).Value() - 0.01 * plate.Y(node).Value();
            EXPECT_NEAR(plate.Value(node, 1), w, 2e-6);
            EXPECT_NEAR(plate.Value(node, 2), 0.01, 2e-6);
            EXPECT_NEAR(plate.Value(node, 3), -0.01, 2e-6);
        }
    }
}

} // namespace
} // namespace torlib::test
