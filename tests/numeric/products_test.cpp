// Products and sums: rounding after every term, re-dimensioned outputs, bounds and counters.

#include "tests/error_of.h"
#include "torlib/numeric/math_class.h"

#include <gtest/gtest.h>

namespace torlib {
namespace {

using test::ErrorOf;

Array<Single> MatrixOf(int rows, int columns, std::initializer_list<Single> rowByRow) {
    Array<Single> matrix(Bounds{1, rows}, Bounds{1, columns});
    int k = 0;
    for (const Single value : rowByRow) {
        matrix(k / columns + 1, k % columns + 1) = value;
        ++k;
    }
    return matrix;
}

const Math_Class math;

/// The sum a1 b1 + a2 b2 + a3 b3 by each member that forms one.
struct Form {
    const char* Name;
    Single (*Sum)(const Array<Single>& a, const Array<Single>& b);
};

Array<Single> FirstRow(const Array<Single>& a) {
    return MatrixOf(3, 3, {a(1), a(2), a(3), 0, 0, 0, 0, 0, 0});
}
Array<Single> FirstColumn(const Array<Single>& a) {
    return MatrixOf(3, 3, {a(1), 0, 0, a(2), 0, 0, a(3), 0, 0});
}

const Form forms[] = {
    {"ProductTwoUnequalMatrices",
     [](const Array<Single>& a, const Array<Single>& b) {
         Array<Single> C(Bounds{1, 1}, Bounds{1, 1});
         math.ProductTwoUnequalMatrices(1, 3, 1, FirstRow(a), FirstColumn(b), C);
         return C(1, 1);
     }},
    {"ProductTwoEqualMatrices",
     [](const Array<Single>& a, const Array<Single>& b) {
         Array<Single> C;
         math.ProductTwoEqualMatrices(3, FirstRow(a), FirstColumn(b), C);
         return C(1, 1);
     }},
    {"ProductUnsymmetricalMatrxByVector",
     [](const Array<Single>& a, const Array<Single>& b) {
         Array<Single> U;
         math.ProductUnsymmetricalMatrxByVector(1, 3, FirstRow(a), b, U);
         return U(1);
     }},
    {"ProductMatrxByVector",
     [](const Array<Single>& a, const Array<Single>& b) {
         Array<Single> U;
         math.ProductMatrxByVector(3, FirstRow(a), b, U);
         return U(1);
     }},
    {"ProductTwoVectorsByMatrix",
     [](const Array<Single>& a, const Array<Single>& b) {
         Array<Single> P;
         math.ProductTwoVectorsByMatrix(3, P, FirstRow(a), b, ArrayFromOne<Single>({1, 1, 1}));
         return P(1);
     }},
};

TEST(Products, AreRoundedAfterEveryTermInAscendingOrder) {
    const double tiny = 0x1p-23;
    const struct {
        Array<Single> a;
        Array<Single> b;
        double Expected;
    } sums[] = {
        {ArrayFromOne<Single>({16777216, 1, 1}), ArrayFromOne<Single>({1, 1, 1}), 16777216},
        {ArrayFromOne<Single>({1, 1, 16777216}), ArrayFromOne<Single>({1, 1, 1}), 16777218},
        // The product itself is not rounded: 1 - 2^-46 survives.
        {ArrayFromOne<Single>({-1, 1 + tiny, 0}), ArrayFromOne<Single>({1, 1 - tiny, 0}), -0x1p-46},
        {ArrayFromOne<Single>({2, 3, 5}), ArrayFromOne<Single>({7, 11, 13}), 112},
    };
    for (const Form& form : forms) {
        for (const auto& sum : sums) {
            EXPECT_EQ(form.Sum(sum.a, sum.b).Value(), sum.Expected) << form.Name;
        }
    }
}

TEST(Products, KeepRowsAndColumnsApart) {
    const auto A = MatrixOf(2, 3, {1, 2, 3, 4, 5, 6});
    const auto B = MatrixOf(3, 2, {1, 10, 100, 1000, 10000, 100000});
    Array<Single> C(Bounds{1, 2}, Bounds{1, 2});
    math.ProductTwoUnequalMatrices(2, 3, 2, A, B, C);
    EXPECT_EQ(C(1, 1).Value(), 30201);
    EXPECT_EQ(C(1, 2).Value(), 302010);
    EXPECT_EQ(C(2, 1).Value(), 60504);

    Array<Single> U;
    math.ProductUnsymmetricalMatrxByVector(2, 3, A, ArrayFromOne<Single>({1, 10, 100}), U);
    EXPECT_EQ(U(1).Value(), 321);
    EXPECT_EQ(U(2).Value(), 654);

    // Weighted row sums, not a quadratic form.
    Array<Single> P;
    math.ProductTwoVectorsByMatrix(2, P, A, ArrayFromOne<Single>({2, 3}),
                                   ArrayFromOne<Single>({5, 7}));
    EXPECT_EQ(P(1).Value(), 1 * 10 + 2 * 21);
    EXPECT_EQ(P(2).Value(), 4 * 10 + 5 * 21);
}

TEST(Products, ReDimensionTheirOutputFromZero) {
    const auto A = MatrixOf(2, 2, {1, 2, 3, 4});
    const auto V = ArrayFromOne<Single>({1, 1});
    Array<Single> C(Bounds{5, 9}, Bounds{-1, 1});
    math.ProductTwoEqualMatrices(2, A, A, C);
    EXPECT_EQ(C.LBound(1) + C.LBound(2), 0);
    EXPECT_EQ(C.UBound(1) * 10 + C.UBound(2), 22);
    EXPECT_EQ(C(2, 0).Value() + C(0, 2).Value(), 0);
    EXPECT_EQ(C(2, 1).Value(), 15);
    math.ProductTwoEqualMatrices(0, A, A, C);
    EXPECT_EQ(C.Size(), 1U);
    EXPECT_EQ(C(0, 0).Value(), 0);

    Array<Single> U(Bounds{3, 4});
    EXPECT_EQ(ErrorOf([&] { math.ProductMatrxByVector(-1, A, V, U); }), 9);
    math.ProductUnsymmetricalMatrxByVector(2, 0, A, V, U);
    EXPECT_EQ(U.LBound() * 10 + U.UBound(), 2);
}

TEST(Products, LeaveWhatTheyMustNotTouch) {
    const auto A = MatrixOf(2, 2, {1, 2, 3, 4});
    auto C = MatrixOf(2, 2, {7, 7, 7, 7});
    math.ProductTwoUnequalMatrices(2, 0, 2, A, A, C);
    EXPECT_EQ(C(1, 1).Value() + C(2, 2).Value(), 14);

    Array<Single> small(Bounds{1, 1}, Bounds{1, 2});
    EXPECT_EQ(ErrorOf([&] { math.ProductTwoUnequalMatrices(2, 2, 2, A, A, small); }), 9);
    EXPECT_EQ(small(1, 2).Value(), 10); // written before the error
}

TEST(Products, CounterAndValueOverflow) {
    Array<Single> W(Bounds{1, 32767});
    Array<Single> U(Bounds{1, 32767});
    W(32767) = 3;
    EXPECT_EQ(ErrorOf([&] { math.AddVectorToVector(32767, W, W, U); }), 6);
    EXPECT_EQ(U(32767).Value(), 6);
    EXPECT_EQ(ErrorOf([&] { math.AddVectorToVector(32766, W, W, U); }), 0);
    const auto huge = ArrayFromOne<Single>({3E38});
    EXPECT_EQ(ErrorOf([&] { math.AddVectorToVector(1, huge, huge, U); }), 6);
}

} // namespace
} // namespace torlib
