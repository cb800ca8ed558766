// Mindlin's factors against printed values, the surface limit and sums of point loads.

#include "torlib/piles/mindlin_class.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

constexpr double nu = 0.3;
constexpr double pi = 3.14159265358979323846;

double Value(Single factor) {
    return static_cast<double>(factor.Value());
}

TEST(Mindlin, PointLoadTimesShearModulus) {
    // Mindlin (1936), Physics 7, 195-202; a factor is E w / P, so G w / P is factor / (2 (1 + nu)).
    struct Row {
        double r, c, z, expected;
    };
    const Row rows[] = {
        {1, 1, 0, 0.106913},
        {1, 0, 1, 0.106913},
        {1, 1, 1, 0.103522},
        {0.5, 1, 2, 0.110023},
        {0.5, 2, 1, 0.110023},
        {2, 0, 0, (1 - nu) / (2 * pi * 2)},
        {7, 0, 0, (1 - nu) / (2 * pi * 7)},
    };
    const Mindlin_class mindlin;
    for (const Row& row : rows) {
        EXPECT_NEAR(Value(mindlin.Ipi_HS(row.r, row.c, row.z, nu)) / (2 * (1 + nu)), row.expected,
                    1e-6)
            << row.r << ' ' << row.c << ' ' << row.z;
    }
}

TEST(Mindlin, LineIsTheMeanOfItsPoints) {
    const Mindlin_class mindlin;
    for (const double r : {0.5, 2.0, 6.0}) {
        for (const double z : {0.0, 3.0, 9.0}) {
            const double from = 1;
            const double to = 5;
            const int steps = 400;
            double sum = 0;
            for (int i = 0; i < steps; ++i) {
                sum += Value(mindlin.Ipi_HS(r, from + (i + 0.5) * (to - from) / steps, z, nu));
            }
            const double line = Value(mindlin.Ili_HS(r, from, to, z, nu));
            EXPECT_NEAR(line, sum / steps, 1e-4 * line) << r << ' ' << z;
        }
    }
}

TEST(Mindlin, CircleFarAwayIsAPointAndALayerIsADifference) {
    const Mindlin_class mindlin;
    const double point = Value(mindlin.Ipi_HS(4, 6, 2, nu));
    EXPECT_NEAR(Value(mindlin.Icr_HS(4, 0.25, 6, 2, nu)), point, 5e-3 * point);
    const double layer = Value(mindlin.Ipi_EH(4, 6, 2, 10, nu));
    EXPECT_NEAR(layer, point - Value(mindlin.Ipi_HS(4, 6, 12, nu)), 1e-6);
    const double line = Value(mindlin.Ili_EH(4, 1, 6, 2, 10, nu));
    EXPECT_NEAR(
        line, Value(mindlin.Ili_HS(4, 1, 6, 2, nu)) - Value(mindlin.Ili_HS(4, 1, 6, 12, nu)), 1e-6);
}

} // namespace
} // namespace torlib
