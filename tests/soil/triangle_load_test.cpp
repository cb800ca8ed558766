// The loaded triangle is the point load summed over the triangle, whatever its shape.

#include "tests/error_of.h"
#include "torlib/geometry/geometry_class.h"
#include "torlib/soil/soil_class.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

using test::ErrorOf;

constexpr double pi = 3.14159265358979323846;
const Soil_Class soil;

/// The corner i stands above the point where the value is sought.
struct Triangle {
    double i[2], j[2], k[2];
};

const Triangle triangles[] = {
    {{1, 2}, {3, 1}, {3.5, 3}},   // the foot inside the side
    {{0, 0}, {1, 0.5}, {3, 0.5}}, // beyond j: obtuse there
    {{0, 0}, {-3, 1}, {-1, 1}},   // beyond k
    {{2, -1}, {2, 1}, {4, 1}},    // at j
};

struct Sums {
    double Sz = 0, Wz = 0, Surface = 0, Layer = 0, Txz = 0, Tyz = 0, Ux = 0, Uy = 0;
};

/// Unit pressure over the triangle in cells that shrink towards the corner i.
Sums Quadrature(const Triangle& of, double z, double Ho, double nu) {
    const double side[2] = {of.k[0] - of.j[0], of.k[1] - of.j[1]};
    const double length = std::hypot(side[0], side[1]);
    const double t[2] = {side[0] / length, side[1] / length};
    const double cross = (of.j[0] - of.i[0]) * side[1] - (of.j[1] - of.i[1]) * side[0];
    const double turn = cross > 0 ? 1 : -1; // the perpendicular from i towards the side
    const double n[2] = {turn * t[1], -turn * t[0]};
    const int cells = 250;
    Sums sum;
    for (int a = 0; a < cells; ++a) {
        for (int b = 0; b < cells; ++b) {
            const double s = (a + 0.5) / cells;
            const double m = (b + 0.5) / cells;
            const Single x = of.i[0] + s * (of.j[0] + m * side[0] - of.i[0]);
            const Single y = of.i[1] + s * (of.j[1] + m * side[1] - of.i[1]);
            const Single xi = of.i[0], yi = of.i[1];
            const double area = std::fabs(cross) * s / cells / cells;
            sum.Sz += area * soil.Sz_P_ST(xi, x, yi, y, z).Value();
            sum.Wz += area * soil.Wz_P_ST(xi, x, yi, y, z, nu).Value();
            sum.Surface += area * soil.Co_P_HS(xi, x, yi, y, nu).Value();
            Single depth = z;
            sum.Layer += area * soil.Co_P_LM(xi, x, yi, y, depth, Ho, nu).Value();
            const double tx = soil.Txz_P_ST(xi, x, yi, y, z).Value();
            const double ty = soil.Tyz_P_ST(xi, x, yi, y, z).Value();
            sum.Txz -= area * (tx * n[0] + ty * n[1]);
            sum.Tyz += area * std::fabs(tx * t[0] + ty * t[1]);
            const double u = soil.Ux_P_ST(xi, x, yi, y, 0, nu).Value();
            const double v = soil.Vy_P_ST(xi, x, yi, y, 0, nu).Value();
            sum.Ux += area * (u * n[0] + v * n[1]);
            sum.Uy -= area * std::fabs(u * t[0] + v * t[1]);
        }
    }
    return sum;
}

TEST(TriangleLoad, IsThePointLoadSummedOverTheTriangle) {
    const double nu = 0.3, area = 2.5;
    for (const Triangle& of : triangles) {
        Single Dt, ET, FT;
        const Geometry_Class geometry;
        geometry.TriangularGeometry(of.i[0], of.i[1], of.j[0], of.j[1], of.k[0], of.k[1], Dt, ET,
                                    FT);
        for (const double z : {0.75, 2.0}) {
            const Sums sum = Quadrature(of, z, 1.5, nu);
            const auto expectNear = [&](Single value, double expected, const char* name) {
                EXPECT_NEAR(value.Value() * area / expected, 1, 5E-5)
                    << name << " at depth " << z << ", Dt " << Dt.Value();
            };
            expectNear(soil.Sz_q_ST(FT, Dt, ET, z, area), sum.Sz, "Sz_q_ST");
            expectNear(soil.Wz_q_ST(FT, Dt, ET, z, area, nu), sum.Wz, "Wz_q_ST");
            expectNear(soil.Txz_q_ST(FT, Dt, ET, z, area), -std::fabs(sum.Txz), "Txz_q_ST");
            expectNear(soil.Tyz_q_ST(FT, Dt, ET, z, area), sum.Tyz, "Tyz_q_ST");
            expectNear(soil.Co_q_HS(FT, Dt, ET, area, nu), sum.Surface, "Co_q_HS");
            expectNear(soil.Co_q_LM(FT, Dt, ET, z, 1.5, area, nu), sum.Layer, "Co_q_LM");
            expectNear(soil.Ux_q_Tr(FT, Dt, ET, area, nu), sum.Ux, "Ux_q_Tr");
            expectNear(soil.Uy_q_Tr(FT, Dt, ET, area, nu), sum.Uy, "Uy_q_Tr");
        }
    }
}

TEST(TriangleLoad, LimitsAndFailures) {
    for (const double ET : {2.0, -2.0}) { // no altitude; then no side
        const Single h = ET > 0 ? 0 : 1.5;
        for (const Single& nothing :
             {soil.Sz_q_ST(h, 2, ET, 1, 3), soil.Wz_q_ST(h, 2, ET, 1, 3, 0.3),
              soil.Txz_q_ST(h, 2, ET, 1, 3), soil.Tyz_q_ST(h, 2, ET, 1, 3),
              soil.Co_q_HS(h, 2, ET, 3, 0.3), soil.Co_q_LM(h, 2, ET, 1, 2, 3, 0.3),
              soil.Ux_q_Tr(h, 2, ET, 3, 0.3), soil.Uy_q_Tr(h, 2, ET, 3, 0.3)}) {
            EXPECT_NEAR(nothing.Value(), 0, 1E-8);
        }
    }
    const double angle = std::atan(2 / 1.5) + std::atan(3 / 1.5);
    for (const double size : {1.0, 1E-5}) {
        const Single surface = soil.Sz_q_ST(1.5 * size, 2 * size, 3 * size, 0, 4);
        EXPECT_NEAR(surface.Value(), angle / (2 * pi) / 4, 1E-7);
    }
    EXPECT_LT(soil.Txz_q_ST(1.5, -3, 2, 1, 4), 0);
    EXPECT_EQ(soil.Wz_q_ST(1.5, 2, 3, 0, 4, 0.3).Value(), soil.Co_q_HS(1.5, 2, 3, 4, 0.3).Value());
    EXPECT_EQ(soil.Ux_q_Tr(1.5, 2, 3, 4, 0.5).Value(), 0);
    EXPECT_EQ(soil.Uy_q_Tr(1.5, 2, 3, 4, 0.5).Value(), 0);
    EXPECT_EQ(ErrorOf([] { soil.Uy_q_Tr(-1.5, 2, 3, 4, 0.3); }), 5);
    EXPECT_EQ(ErrorOf([] { soil.Sz_q_ST(1.5, 2, 3, 1, 0); }), 11);
    EXPECT_EQ(ErrorOf([] { soil.Txz_q_ST(0, 2, 3, 1, 0); }), 6);
    EXPECT_EQ(soil.Co_q_HS(0, 2, 3, 0, 0.3).Value(), 0); // no term, no division
}

} // namespace
} // namespace torlib
