// The nonconforming plate triangle, integrated in closed form in the oblique slopes along two
// sides.

#include "torlib/fem/fem_class.h"
#include "torlib/fem/triangle_sides.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace torlib {

namespace {

constexpr int TriangleSize = 9;
constexpr int UpperEntries = TriangleSize * (TriangleSize + 1) / 2;
constexpr int WeightCount = 6;

/// The integrals over the triangle that each weight multiplies: upper triangles, row by row.
// clang-format off
constexpr std::int8_t TriangleIntegrals[WeightCount][UpperEntries] = {
    {80, 28, 4, -64, 40, 4, -16, -4, 8,
     30, -4, -44, 10, -4, 16, 4, -8,
     2, 4, 2, 2, -8, -2, 4,
     80, -32, 4, -16, -4, 8,
     24, 2, -8, -2, 4,
     2, -8, -2, 4,
     32, 8, -16,
     2, -4,
     8},
    {64, 12, 8, -32, 24, 8, -32, -4, 16,
     11, 2, -12, 5, -2, 0, -4, 0,
     1, -4, 1, 1, -4, 1, 2,
     16, -12, -4, 16, 8, -8,
     8, 5, -12, -1, 6,
     1, -4, 1, 2,
     16, -4, -8,
     -3, 2,
     4},
    {64, 12, 12, -32, 20, 0, -32, 0, 20,
     -1, 11, 0, 2, 1, -12, -1, 0,
     -1, -12, 0, -1, 0, 1, 2,
     16, -16, 0, 16, 0, -4,
     12, -2, -4, 2, 6,
     -1, 0, 1, 2,
     16, 0, -16,
     -1, -2,
     12},
    {64, 8, 8, -32, 16, 8, -32, 8, 16,
     5, 1, -4, 2, 1, -4, -3, 2,
     5, -4, 2, -3, -4, 1, 2,
     16, -8, -4, 16, -4, -8,
     4, 2, -8, 2, 4,
     5, -4, 1, 2,
     16, -4, -8,
     5, 2,
     4},
    {64, 8, 12, -32, 16, -4, -32, 8, 24,
     1, 2, -4, 2, 1, -4, 1, 1,
     11, 0, 0, -4, -12, -2, 5,
     16, -8, -4, 16, -4, -12,
     4, 2, -8, 2, 6,
     -3, 8, 1, -1,
     16, -4, -12,
     1, 5,
     8},
    {80, 4, 28, -16, 8, -4, -64, 4, 40,
     2, -4, -8, 4, -2, 4, 2, 2,
     30, 16, -8, 4, -44, -4, 10,
     32, -16, 8, -16, -8, -8,
     8, -4, 8, 4, 4,
     2, -4, -2, -2,
     80, 4, -32,
     2, 2,
     24},
};
// clang-format on

std::array<Single, WeightCount> TriangleWeights(const TriangleSides& sides, Single e, Single T,
                                                Single nu) {
    const Single D = e * (T * T * T) / (12 * (1 - nu * nu));
    const Single area2 = sides.Area2;
    const Single F = 24 * (area2 * area2 * area2) / D;
    const Single L12 = sides.X21 * sides.X21 + sides.Y21 * sides.Y21;
    const Single L13 = sides.X31 * sides.X31 + sides.Y31 * sides.Y31;
    const Single d = sides.X21 * sides.X31 + sides.Y21 * sides.Y31;
    return {L13 * L13 / F,
            -4 * d * L13 / F,
            2 * (d * d + nu * (area2 * area2)) / F,
            (2 * (1 - nu) * (area2 * area2) + 4 * (d * d)) / F,
            -4 * d * L12 / F,
            L12 * L12 / F};
}

} // namespace

void FEM_Class::SetTriElementStiffness(Array<Single>& SK, Single e, Single T, Single bnu,
                                       const Array<Single>& x, const Array<Single>& Y) const {
    const MemberScope scope("FEM_Class.SetTriElementStiffness", Named("SK", SK), Named("x", x),
                            Named("Y", Y));
    const TriangleSides sides(x, Y);
    const auto g = TriangleWeights(sides, e, T, bnu);
    std::size_t entry = 0;
    for (const int i : Range(1, TriangleSize)) {
        for (const int j : Range(i, TriangleSize)) {
            Real sum = 0;
            for (std::size_t k = 0; k < WeightCount; ++k) {
                sum += g[k] * TriangleIntegrals[k][entry];
            }
            SK(i, j) = sum;
            SK(j, i) = SK(i, j);
            ++entry;
        }
    }
    for (const int slope : {2, 5, 8}) {
        for (const int i : Range(1, TriangleSize)) {
            sides.Turn(SK(i, slope), SK(i, slope + 1));
        }
    }
    for (const int slope : {2, 5, 8}) {
        for (const int j : Range(1, TriangleSize)) {
            sides.Turn(SK(slope, j), SK(slope + 1, j));
        }
    }
}

} // namespace torlib
