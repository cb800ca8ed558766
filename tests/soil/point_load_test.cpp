// The point load: the nine functions together satisfy Hooke's law and equilibrium.

#include "tests/error_of.h"
#include "torlib/soil/soil_class.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

using test::ErrorOf;

constexpr double pi = 3.14159265358979323846;
const Soil_Class soil;

enum Function { Ux = 2, Vy, Wz, Sx, Sy, Sz, Txy, Txz, Tyz };

/// A function at a point seen from the load, which itself stands off the origin.
double At(int function, const double (&p)[3], double nu) {
    return soil.Fxy(p[0] + 0.5, p[1] - 0.25, 0.5, -0.25, p[2], nu, function).Value();
}

/// Fourth-order difference quotient along an axis.
double Slope(int function, const double (&p)[3], int axis, double nu) {
    const double step = 0x1p-5;
    const auto shifted = [&](double by) {
        double q[3] = {p[0], p[1], p[2]};
        q[axis] += by * step;
        return At(function, q, nu);
    };
    return (8 * (shifted(1) - shifted(-1)) - (shifted(2) - shifted(-2))) / (12 * step);
}

const double points[][3] = {
    {1.25, 0.75, 1.5}, {-1, 2, 1}, {0.5, -1.5, 2}, {-1.5, -0.5, 0.75}, {0.25, 0.5, 3}};

TEST(PointLoad, SatisfiesHookesLawAndEquilibrium) {
    for (const auto& p : points) {
        for (const double nu : {0.0, 0.3, 0.5}) {
            const auto slope = [&](int f, int axis) { return Slope(f, p, axis, nu); };
            const double sx = -At(Sx, p, nu); // tension positive
            const double sy = -At(Sy, p, nu);
            const double sz = -At(Sz, p, nu);
            const double twice = 2 * (1 + nu);
            const double residues[] = {
                slope(Ux, 0) - (sx - nu * (sy + sz)),
                slope(Vy, 1) - (sy - nu * (sx + sz)),
                slope(Wz, 2) - (sz - nu * (sx + sy)),
                slope(Ux, 1) + slope(Vy, 0) - twice * At(Txy, p, nu),
                slope(Ux, 2) + slope(Wz, 0) - twice * At(Txz, p, nu),
                slope(Vy, 2) + slope(Wz, 1) - twice * At(Tyz, p, nu),
                -slope(Sx, 0) + slope(Txy, 1) + slope(Txz, 2),
                slope(Txy, 0) - slope(Sy, 1) + slope(Tyz, 2),
                slope(Txz, 0) + slope(Tyz, 1) - slope(Sz, 2),
            };
            for (const double& residue : residues) {
                EXPECT_NEAR(residue, 0, 1E-4) << "law " << &residue - residues << ", nu " << nu;
            }
        }
    }
}

TEST(PointLoad, OnTheAxisAndOnTheSurface) {
    for (const int f : {Ux, Vy, Txy, Txz, Tyz}) {
        EXPECT_EQ(At(f, {0, 0, 2}, 0.25), 0) << f;
    }
    EXPECT_NEAR(At(Sz, {0, 0, 2}, 0), 3 / (8 * pi), 1E-8);
    const double surface = soil.Wz_P_ST(3, 0, 0, 4, 0, 0.25).Value();
    EXPECT_NEAR(surface, (1 - 0.0625) / (5 * pi), 1E-8);
    EXPECT_NEAR(soil.Co_P_HS(3, 0, 0, 4, 0.25).Value(), surface, 1E-8);
    // On the plane through the load along y, the whole radial displacement goes along y.
    EXPECT_EQ(soil.Vy_P_ST(1, 1, 3, 0, 2, 0.25).Value(), soil.Ux_P_ST(3, 0, 1, 1, 2, 0.25).Value());
}

TEST(PointLoad, SelectorTakesItsOwnOrderAndLiftsZeroDepth) {
    EXPECT_EQ(soil.Fxy(1, 2, 4, 7, 3, 0.2, 5).Value(), soil.Sx_P_ST(1, 4, 2, 7, 3, 0.2).Value());
    EXPECT_EQ(soil.Fxy(1, 2, 4, 7, 0, 0.2, 4).Value(), soil.Wz_P_ST(1, 4, 2, 7, 0.1, 0.2).Value());
    for (const int none : {1, 11, 0, -3}) {
        EXPECT_EQ(soil.Fxy(1, 2, 4, 7, 3, 0.2, none).Value(), 0);
    }
}

TEST(PointLoad, FailsAtTheLoadItself) {
    EXPECT_EQ(ErrorOf([] { soil.Sz_P_ST(1, 1, 2, 2, 0); }), 6);
    EXPECT_EQ(ErrorOf([] { soil.Wz_P_ST(1, 1, 2, 2, 0, 0.3); }), 6);
    EXPECT_EQ(ErrorOf([] { soil.Sx_P_ST(1, 1, 2, 2, 0, 0.3); }), 6);
    EXPECT_EQ(ErrorOf([] { soil.Sy_P_ST(1, 1, 2, 2, 0, 0.3); }), 6);
    EXPECT_EQ(ErrorOf([] { soil.Co_P_HS(1, 1, 2, 2, 0.3); }), 11);
    EXPECT_EQ(soil.Txy_P_ST(1, 1, 2, 2, 0, 0.3).Value(), 0);
    EXPECT_EQ(soil.Fxy(1, 2, 1, 2, 0, 0.3, 9).Value(), 0);
}

} // namespace
} // namespace torlib
