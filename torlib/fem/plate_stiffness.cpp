// Plate elements: the choice by node count, and the nonconforming rectangle in closed form.

#include "torlib/fem/fem_class.h"
#include "torlib/frame/large_output.h"

#include <array>
#include <cstdint>
#include <cstdlib>

namespace torlib {

namespace {

constexpr int RectangleSize = 12;

/// The 21 different coefficients of the rectangle, from 1; number 0 is zero.
using Coefficients = std::array<Single, 22>;

Coefficients RectangleCoefficients(Single a, Single b, Single nu) {
    const Single p = a / b;
    const Single q = b / a;
    Coefficients c;
    c[1] = (42 - 12 * nu + 60 * p * p + 60 * q * q) / (a * b);
    c[2] = (3 * p + 30 * q + 12 * nu * p) / a;
    c[3] = (30 * p + 3 * q + 12 * nu * q) / b;
    c[4] = (12 * nu - 42 - 60 * q * q + 30 * p * p) / (a * b);
    c[5] = (3 * (1 - nu) * p + 30 * q) / a;
    c[6] = (3 * q + 12 * nu * q - 15 * p) / b;
    c[7] = (42 - 12 * nu - 30 * p * p - 30 * q * q) / (a * b);
    c[8] = (15 * q - 3 * (1 - nu) * p) / a;
    c[9] = (3 * (1 - nu) * q - 15 * p) / b;
    c[10] = (12 * nu - 42 - 60 * p * p + 30 * q * q) / (a * b);
    c[11] = (15 * q - 3 * p - 12 * nu * p) / a;
    c[12] = (3 * (1 - nu) * q + 30 * p) / b;
    c[13] = 4 * (1 - nu) * p + 20 * q;
    c[14] = 15 * nu;
    c[15] = 10 * q - (1 - nu) * p;
    c[16] = (1 - nu) * p + 5 * q;
    c[17] = 10 * q - 4 * (1 - nu) * p;
    c[18] = 4 * (1 - nu) * q + 20 * p;
    c[19] = 10 * p - 4 * (1 - nu) * q;
    c[20] = (1 - nu) * q + 5 * p;
    c[21] = 10 * p - (1 - nu) * q;
    return c;
}

/// Which coefficient stands where in the upper triangle; a minus sign negates it.
// clang-format off
constexpr std::int16_t RectanglePattern[RectangleSize][RectangleSize] = {
    {1,  2,  3,  4,  5,  -6,   7,   8,  -9,  10,  11,  12},
    {0, 13, 14, -5, 15,   0,  -8,  16,   0,  11,  17,   0},
    {0,  0, 18, -6,  0,  19,   9,   0,  20, -12,   0,  21},
    {0,  0,  0,  1, -2,   3,  10, -11,  12,   7,  -8,  -9},
    {0,  0,  0,  0, 13, -14, -11,  17,   0,   8,  16,   0},
    {0,  0,  0,  0,  0,  18, -12,   0,  21,   9,   0,  20},
    {0,  0,  0,  0,  0,   0,   1,  -2,  -3,   4,  -5,   6},
    {0,  0,  0,  0,  0,   0,   0,  13,  14,   5,  15,   0},
    {0,  0,  0,  0,  0,   0,   0,   0,  18,   6,   0,  19},
    {0,  0,  0,  0,  0,   0,   0,   0,   0,   1,   2,  -3},
    {0,  0,  0,  0,  0,   0,   0,   0,   0,   0,  13, -14},
    {0,  0,  0,  0,  0,   0,   0,   0,   0,   0,   0,  18},
};
// clang-format on

template <class Step>
void ForUpperTriangle(Step step) {
    for (const int i : Range(1, RectangleSize)) {
        for (const int j : Range(i, RectangleSize)) {
            step(i, j);
        }
    }
}

} // namespace

void FEM_Class::SetElementStiffnessMatrix(Array<Single>& SK, Single e, Single T, Single bnu,
                                          const Integer& NNode, const Array<Single>& XE,
                                          const Array<Single>& YE) const {
    const MemberScope scope("FEM_Class.SetElementStiffnessMatrix", Named("SK", SK), Named("XE", XE),
                            Named("YE", YE));
    const Integer size = 3 * NNode;
    if (IsLargeSquare(size)) {
        RequireList(XE, NNode);
        RequireList(YE, NNode);
    }
    SK.ReDim(size, size);
    const bool valid = T > 0 && e > 0;
    if (NNode == 3 && valid) {
        SetTriElementStiffness(SK, e, T, bnu, XE, YE);
    } else if (NNode == 4) {
        const Single A = XE(2) - XE(1);
        const Single B = YE(4) - YE(1);
        if (valid) {
            SetRecElementStiffness(SK, e, T, bnu, A, B);
        }
    }
}

void FEM_Class::SetRecElementStiffness(Array<Single>& SK, Single e, Single T, Single bnu, Single A,
                                       Single B) const {
    const MemberScope scope("FEM_Class.SetRecElementStiffness", Named("SK", SK));
    const Coefficients c = RectangleCoefficients(A, B, bnu);
    // One pass after the other: an error leaves the passes before it in SK.
    ForUpperTriangle([&](int i, int j) {
        const int number = RectanglePattern[i - 1][j - 1];
        const Real coefficient = c[static_cast<std::size_t>(std::abs(number))];
        SK(i, j) = number < 0 ? -coefficient : coefficient;
    });
    const Single f = (T * T * T * e / 180) / (1 - bnu * bnu);
    ForUpperTriangle([&](int i, int j) { SK(i, j) = SK(i, j) * f; });
    ForUpperTriangle([&](int i, int j) { SK(j, i) = SK(i, j); });
}

} // namespace torlib
