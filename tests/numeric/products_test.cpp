// Products and sums: rounding after every term, re-dimensioned outputs, bounds and counters.

#include "tests/error_of.h"
#include "torlib/numeric/math_class.h"

#include <gtest/gtest.h>

namespace torlib {
namespace {

using test::ErrorOf;
using Vector = Array<Single>;

const Math_Class math;

Array<Single> MatrixOf(int rows, int columns, std::initializer_list<Single> rowByRow) {
    Array<Single> matrix(Bounds{1, rows}, Bounds{1, columns});
    int k = 0;
    for (const Single value : rowByRow) {
        matrix(k / columns + 1, k % columns + 1) = value;
        ++k;
    }
    return matrix;
}

TEST(Products, AreRoundedAfterEveryTermInAscendingOrder) {
    const Single up = 1 + 0x1p-23, down = 1 - 0x1p-23;
    const struct {
        Single a[3], b[3];
        double Sum;
    } sums[] = {{{16777216, 1, 1}, {1, 1, 1}, 16777216},
                {{1, 1, 16777216}, {1, 1, 1}, 16777218},
                {{-1, up, 0}, {1, down, 0}, -0x1p-46}, // a product is not rounded by itself
                {{2, 3, 5}, {7, 11, 13}, 112}};
    for (const auto& [a, b, sum] : sums) {
        const auto A = MatrixOf(3, 3, {a[0], a[1], a[2], 0, 0, 0, 0, 0, 0});
        const auto B = MatrixOf(3, 3, {b[0], 0, 0, b[1], 0, 0, b[2], 0, 0});
        const auto V = ArrayFromOne<Single>({b[0], b[1], b[2]});
        auto C = MatrixOf(1, 1, {9});
        math.ProductTwoUnequalMatrices(1, 3, 1, A, B, C);
        EXPECT_EQ(C(1, 1).Value(), sum);
        math.ProductTwoEqualMatrices(3, A, B, C);
        EXPECT_EQ(C(1, 1).Value(), sum);
        Vector U;
        math.ProductUnsymmetricalMatrxByVector(1, 3, A, V, U);
        EXPECT_EQ(U(1).Value(), sum);
        math.ProductMatrxByVector(3, A, V, U);
        EXPECT_EQ(U(1).Value(), sum);
        math.ProductTwoVectorsByMatrix(3, U, A, V, ArrayFromOne<Single>({1, 1, 1}));
        EXPECT_EQ(U(1).Value(), sum);
    }
}

TEST(Products, KeepRowsAndColumnsApart) {
    const auto A = MatrixOf(2, 3, {1, 2, 3, 4, 5, 6});
    auto C = MatrixOf(2, 2, {7, 7, 7, 7});
    math.ProductTwoUnequalMatrices(2, 0, 2, A, A, C); // no column of A: C stays
    EXPECT_EQ(C(2, 2).Value(), 7);
    math.ProductTwoUnequalMatrices(2, 3, 2, A, MatrixOf(3, 2, {1, 10, 100, 1000, 1E4, 1E5}), C);
    EXPECT_EQ(C(1, 2).Value(), 302010);
    EXPECT_EQ(C(2, 1).Value(), 60504);
    Vector U;
    math.ProductUnsymmetricalMatrxByVector(2, 3, A, ArrayFromOne<Single>({1, 10, 100}), U);
    EXPECT_EQ(U(2).Value(), 654);
    const auto Q = ArrayFromOne<Single>({2, 3}); // weighted row sums, not a quadratic form
    math.ProductTwoVectorsByMatrix(2, U, A, Q, ArrayFromOne<Single>({5, 7}));
    EXPECT_EQ(U(2).Value(), 4 * 10 + 5 * 21);
}

TEST(Products, ReDimensionTheirOutputFromZero) {
    const auto A = MatrixOf(2, 2, {1, 2, 3, 4});
    Array<Single> C(Bounds{5, 9}, Bounds{-1, 1});
    math.ProductTwoEqualMatrices(2, A, A, C);
    EXPECT_EQ(C.LBound(1) + C.LBound(2), 0);
    EXPECT_EQ(C.UBound(1) * 10 + C.UBound(2), 22);
    EXPECT_EQ(C(2, 0).Value() + C(0, 2).Value(), 0);
    math.ProductTwoEqualMatrices(0, A, A, C);
    EXPECT_EQ(C.Size(), 1U);
    Vector U(Bounds{3, 4});
    EXPECT_EQ(ErrorOf([&] { math.ProductMatrxByVector(-1, A, U, U); }), 9);
    math.ProductUnsymmetricalMatrxByVector(2, 0, A, Vector(), U);
    EXPECT_EQ(U.LBound() * 10 + U.UBound(), 2);
    C = MatrixOf(1, 2, {0, 0});
    EXPECT_EQ(ErrorOf([&] { math.ProductTwoUnequalMatrices(2, 2, 2, A, A, C); }), 9);
    EXPECT_EQ(C(1, 2).Value(), 10); // written before the error
}

// Sizes that no input reaches cost no memory: 32767 would take 4 GB.
TEST(Products, ACountAloneTakesNoMemory) {
    const auto A = MatrixOf(2, 2, {1, 2, 3, 4});
    const Array<Single> wide(Bounds{1, 1024}, Bounds{1, 1024});
    auto C = MatrixOf(1, 1, {9});
    for (const int N : {1024, 32767}) {
        EXPECT_EQ(ErrorOf([&] { math.ProductTwoEqualMatrices(N, A, A, C); }), 9);
        EXPECT_EQ(ErrorOf([&] { math.ProductTwoEqualMatrices(N, wide, A, C); }), 9);
        EXPECT_EQ(ErrorOf([&] { math.InverseMatrix(N, A, C); }), 9);
        EXPECT_EQ(C.Size(), 1U);
        EXPECT_EQ(C(1, 1).Value(), 9);
    }
    EXPECT_EQ(ErrorOf([&] { math.ProductTwoEqualMatrices(3, A, A, C); }), 9);
    EXPECT_EQ(C.Size(), 16U) << "a small output is made before the inputs are read";
    EXPECT_EQ(C(1, 1).Value(), 7) << "and keeps what was written";
}

TEST(Products, CounterAndValueOverflow) {
    Vector W(Bounds{1, 32767});
    Vector U(Bounds{1, 32767});
    W(32767) = 3;
    EXPECT_EQ(ErrorOf([&] { math.AddVectorToVector(32767, W, W, U); }), 6);
    EXPECT_EQ(U(32767).Value(), 6);
    EXPECT_EQ(ErrorOf([&] { math.AddVectorToVector(32766, W, W, U); }), 0);
    W(1) = 3E38;
    EXPECT_EQ(ErrorOf([&] { math.AddVectorToVector(1, W, W, U); }), 6);
}

} // namespace
} // namespace torlib
