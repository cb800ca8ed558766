// Settlement and layer coefficients against the published factors of the flexible rectangle.

#include "tests/error_of.h"
#include "torlib/geometry/geometry_class.h"
#include "torlib/soil/soil_class.h"

#include <gtest/gtest.h>

namespace torlib {
namespace {

using test::ErrorOf;

const Soil_Class soil;

/// Sums a triangle function over the rectangle L x B seen from the point (x, y) in it.
template <class Function>
double OverRectangle(double L, double B, double x, double y, Function function) {
    const double corners[5][2] = {{0, 0}, {L, 0}, {L, B}, {0, B}, {0, 0}};
    double sum = 0;
    for (int c = 0; c < 4; ++c) {
        Single Dt, ET, FT;
        const Geometry_Class geometry;
        geometry.TriangularGeometry(x, y, corners[c][0], corners[c][1], corners[c + 1][0],
                                    corners[c + 1][1], Dt, ET, FT);
        sum += function(FT, Dt, ET).Value();
    }
    return sum;
}

TEST(Flexibility, SettlementOfTheFlexibleRectangle) {
    const double nu = 0.25;
    const double factors[][2] = {{1, 0.5611}, {2, 0.7659}, {5, 1.0523}};
    for (const auto& [ratio, factor] : factors) {
        const double B = 2.5, L = ratio * B;
        const auto settlement = [&](double x, double y) {
            return OverRectangle(L, B, x, y,
                                 [&](const Single& FT, const Single& Dt, const Single& ET) {
                                     return soil.Co_q_HS(FT, Dt, ET, 1, nu);
                                 }) /
                   (B * (1 - nu * nu));
        };
        EXPECT_NEAR(settlement(0, 0), factor, 6E-5);
        EXPECT_NEAR(settlement(L, 0), factor, 6E-5);
        EXPECT_NEAR(settlement(L / 2, B / 2), 2 * factor, 1.2E-4);
    }
}

TEST(Flexibility, StressUnderTheCornerOfARectangle) {
    const double factors[][3] = {{1, 1, 0.1752}, {2, 1, 0.1999}, {0.5, 0.5, 0.0840}};
    for (const auto& [m, n, factor] : factors) {
        for (const double z : {1.0, 3.0}) {
            const double stress = OverRectangle(
                m * z, n * z, 0, 0, [&](const Single& FT, const Single& Dt, const Single& ET) {
                    return soil.Sz_q_ST(FT, Dt, ET, z, 1);
                });
            EXPECT_NEAR(stress, factor, 6E-5);
        }
    }
}

TEST(Flexibility, LayersAreDifferencesOfSettlements) {
    const double nu = 0.3;
    const double thickness[] = {0.5, 2, 0.75, 4};
    const Single FT = 1.5, Dt = -0.5, ET = 3, area = 2;
    double top = 0, triangle = 0, point = 0;
    for (const double Ho : thickness) {
        const double layer = soil.Co_q_LM(FT, Dt, ET, top, Ho, area, nu).Value();
        EXPECT_NEAR(layer,
                    soil.Wz_q_ST(FT, Dt, ET, top, area, nu).Value() -
                        soil.Wz_q_ST(FT, Dt, ET, top + Ho, area, nu).Value(),
                    1E-7);
        Single ZG = top;
        const double slice = soil.Co_P_LM(1, 3, 5, 4, ZG, Ho, nu).Value();
        EXPECT_EQ(ZG.Value(), top + 2 * Ho);
        EXPECT_NEAR(slice,
                    soil.Wz_P_ST(1, 3, 5, 4, top, nu).Value() -
                        soil.Wz_P_ST(1, 3, 5, 4, top + Ho, nu).Value(),
                    1E-7);
        triangle += layer;
        point += slice;
        top += Ho;
    }
    EXPECT_NEAR(triangle, soil.Co_q_LM(FT, Dt, ET, 0, top, area, nu).Value(), 1E-7);
    Single surface = 0;
    EXPECT_NEAR(point, soil.Co_P_LM(1, 3, 5, 4, surface, top, nu).Value(), 1E-7);
    surface = 0; // a very thick layer is the half-space
    EXPECT_NEAR(soil.Co_q_LM(FT, Dt, ET, 0, 1E7, area, nu).Value(),
                soil.Co_q_HS(FT, Dt, ET, area, nu).Value(), 1E-6);
    EXPECT_NEAR(soil.Co_P_LM(1, 3, 5, 4, surface, 1E7, nu).Value(),
                soil.Co_P_HS(1, 3, 5, 4, nu).Value(), 1E-6);
}

TEST(Flexibility, FailuresLeaveTheDepthWhereTheyHappened) {
    Single ZG = 1;
    EXPECT_EQ(ErrorOf([&] { soil.Co_P_LM(2, 2, 3, 3, ZG, 4, 0.3); }), 11);
    EXPECT_EQ(ZG.Value(), 1);
    ZG = 2E38;
    EXPECT_EQ(ErrorOf([&] { soil.Co_P_LM(2, 3, 3, 3, ZG, 1E38, 0.3); }), 6);
    EXPECT_EQ(ZG.Value(), Single(Single(2E38) + Single(1E38)).Value());
}

} // namespace
} // namespace torlib
