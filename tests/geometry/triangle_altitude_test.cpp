// The altitude of a triangle: signed distances, direction, degenerate triangles.

#include "torlib/geometry/geometry_class.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

constexpr double pi = 3.14159265358979323846;

struct Altitude {
    Altitude(double XI, double Yi, double Xj, double Yj, double XK, double YK) {
        Geometry_Class::DefaultInstance().TriangularGeometry(XI, Yi, Xj, Yj, XK, YK, Dt, ET, FT,
                                                             Theta, Jsign);
    }
    Single Dt = 71, ET = 72, FT = 73, Theta = 74;
    Integer Jsign = 75;
};

TEST(TriangleAltitude, MeasuresFromTheFootAndMarksDegenerateTriangles) {
    const struct {
        double XI, Yi, Xj, Yj, XK, YK;
        double Dt, ET, FT;
        int Jsign; // 75: as before
    } cases[] = {{0, 2, -1, 0, 3, 0, 1, 3, 2, 1},      {0, 2, 3, 0, -1, 0, 3, 1, 2, -1},
                 {0, 2, 1, 0, 4, 0, -1, 4, 2, 1},      {0, 2, -5, 0, -2, 0, 5, -2, 2, -1},
                 {0, 2, 0, 0, 3, 0, 0, 3, 2, 1},       {7, 5, 5, 1, 9, 1, 2, 2, 4, 0},
                 {1, 0, 0, 0, 4, 0, 1, 3, 0, 75},       // i on the side
                 {-2, 0, 0, 0, 4, 0, -2, 6, 0, 75},     // i on its extension
                 {1, 0.0005, 0, 0, 4, 0, 1, 3, 0, 75},  // i too near to it
                 {1, 1, 1, 1, 4, 0, 0, 0, 0, 75},       // i at j
                 {1, 1, 2, 2, 2, 2, 0, 0, 0, 75},       // j at k
                 {1, 0, 1.0001, 0, 4, 0, 0, 3, 0, 75}}; // i nearly at j
    for (const auto& of : cases) {
        const Altitude a(of.XI, of.Yi, of.Xj, of.Yj, of.XK, of.YK);
        EXPECT_NEAR(a.Dt.Value(), of.Dt, 2E-6);
        EXPECT_NEAR(a.ET.Value(), of.ET, 2E-6);
        EXPECT_NEAR(a.FT.Value(), of.FT, 4E-6);
        EXPECT_EQ(a.Jsign, of.Jsign);
        EXPECT_EQ(a.Theta == 74, of.Jsign == 75);
        EXPECT_EQ(a.FT == 0, of.FT == 0);
    }
}

TEST(TriangleAltitude, DirectionInEveryOctant) {
    for (int octant = 0; octant < 8; ++octant) {
        const double alpha = octant * pi / 4;
        const double dx = std::round(std::cos(alpha));
        const double dy = std::round(std::sin(alpha));
        // A right angle at i; the side ik is longer, then shorter than ij.
        const Altitude longer(3, 4, 3 + dx, 4 + dy, 3 - 2 * dy, 4 + 2 * dx);
        EXPECT_NEAR(longer.Theta.Value(), alpha - std::atan(0.5), 1E-6) << octant;
        const Altitude shorter(3, 4, 3 + dx, 4 + dy, 3 - 0.5 * dy, 4 + 0.5 * dx);
        EXPECT_NEAR(shorter.Theta.Value(), alpha + std::atan(2), 1E-6) << octant;
    }
    const Altitude known(0, 2, -1, 0, 3, 0);
    EXPECT_NEAR(known.Theta.Value(), pi + std::atan(2) - std::atan(0.5), 1E-6);
}

} // namespace
} // namespace torlib
