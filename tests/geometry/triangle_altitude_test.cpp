// The altitude of a triangle: signed distances, direction, degenerate triangles.

#include "torlib/geometry/geometry_class.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

constexpr double pi = 3.14159265358979323846;

struct Altitude {
    Single Dt = 71, ET = 72, FT = 73, Theta = 74;
    Integer Jsign = 75;
};

Altitude Split(double XI, double Yi, double Xj, double Yj, double XK, double YK) {
    Altitude a;
    const Geometry_Class geometry;
    geometry.TriangularGeometry(XI, Yi, Xj, Yj, XK, YK, a.Dt, a.ET, a.FT, a.Theta, a.Jsign);
    return a;
}

TEST(TriangleAltitude, MeasuresFromTheFoot) {
    const struct {
        double i[2], j[2], k[2];
        double Dt, ET, FT;
        int Jsign;
    } cases[] = {{{0, 2}, {-1, 0}, {3, 0}, 1, 3, 2, 1},    {{0, 2}, {3, 0}, {-1, 0}, 3, 1, 2, -1},
                 {{0, 2}, {1, 0}, {4, 0}, -1, 4, 2, 1},    {{0, 2}, {-5, 0}, {-2, 0}, 5, -2, 2, -1},
                 {{0, 2}, {0, 0}, {3, 0}, 0, 3, 2, 1},     {{7, 5}, {5, 1}, {9, 1}, 2, 2, 4, 0},
                 {{0, 2}, {-1, 0}, {1.5, 0}, 1, 1.5, 2, 1}};
    for (const auto& of : cases) {
        const Altitude a = Split(of.i[0], of.i[1], of.j[0], of.j[1], of.k[0], of.k[1]);
        EXPECT_NEAR(a.Dt.Value(), of.Dt, 2E-6);
        EXPECT_NEAR(a.ET.Value(), of.ET, 2E-6);
        EXPECT_NEAR(a.FT.Value(), of.FT, 4E-6);
        EXPECT_EQ(a.Jsign, of.Jsign);
    }
    EXPECT_NEAR(Split(0, 2, -1, 0, 3, 0).Theta.Value(), pi + std::atan(2) - std::atan(0.5), 1E-6);
}

TEST(TriangleAltitude, DirectionInEveryOctant) {
    for (int dx = -1; dx <= 1; ++dx) {
        for (int dy = -1; dy <= 1; ++dy) {
            if (dx == 0 && dy == 0) {
                continue;
            }
            const double alpha = std::atan2(dy, dx) + (dy < 0 ? 2 * pi : 0);
            // A right angle at i; the side ik is longer, then shorter than ij.
            const Altitude longer = Split(3, 4, 3 + dx, 4 + dy, 3 - 2 * dy, 4 + 2 * dx);
            EXPECT_NEAR(longer.Theta.Value(), alpha - std::atan(0.5), 1E-6) << dx << ", " << dy;
            const Altitude shorter = Split(3, 4, 3 + dx, 4 + dy, 3 - 0.5 * dy, 4 + 0.5 * dx);
            EXPECT_NEAR(shorter.Theta.Value(), alpha + std::atan(2), 1E-6) << dx << ", " << dy;
        }
    }
}

TEST(TriangleAltitude, DegenerateTrianglesKeepThetaAndJsign) {
    const struct {
        double XI, Yi, Xj, Yj, XK, YK;
        double Dt, ET;
    } cases[] = {{1, 0, 0, 0, 4, 0, 1, 3},       // i on the side
                 {-2, 0, 0, 0, 4, 0, -2, 6},     // i on its extension
                 {1, 0.0005, 0, 0, 4, 0, 1, 3},  // i too near to it
                 {1, 1, 1, 1, 4, 0, 0, 0},       // i at j
                 {1, 1, 2, 2, 2, 2, 0, 0},       // j at k
                 {1, 0, 1.0005, 0, 4, 0, 0, 3}}; // i nearly at j
    for (const auto& of : cases) {
        const Altitude a = Split(of.XI, of.Yi, of.Xj, of.Yj, of.XK, of.YK);
        EXPECT_EQ(a.FT.Value(), 0);
        EXPECT_EQ(a.Theta.Value(), 74);
        EXPECT_EQ(a.Jsign, 75);
        EXPECT_NEAR(a.Dt.Value(), of.Dt, 1E-6);
        EXPECT_NEAR(a.ET.Value(), of.ET, 1E-6);
        EXPECT_FALSE(a.Dt != 0 && Abs(a.Dt) < 0.001);
    }
}

} // namespace
} // namespace torlib
