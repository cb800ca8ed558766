// Inversion, unsymmetric solution, convergence test and line fit.

#include "tests/error_of.h"
#include "torlib/numeric/math_class.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

using test::ErrorOf;

const Math_Class math;

/// Unsymmetric and dominated by its diagonal, so that elimination without pivoting is sound.
Array<Single> DominantMatrix(int n) {
    Array<Single> A(Bounds{1, n}, Bounds{1, n});
    for (int i : Range(1, n)) {
        for (int j : Range(1, n)) {
            A(i, j) = i == j ? 3.0 + i : std::sin(3.0 * i + 5.0 * j * j) / n;
        }
    }
    return A;
}

TEST(Solution, InverseTimesMatrixIsTheIdentity) {
    for (const int n : {1, 2, 3, 8}) {
        const auto A = DominantMatrix(n);
        Array<Single> B(Bounds{4, 5});
        math.InverseMatrix(n, A, B);
        Array<Single> product;
        math.ProductTwoEqualMatrices(n, A, B, product);
        for (int i : Range(1, n)) {
            for (int j : Range(1, n)) {
                EXPECT_NEAR(product(i, j).Value(), i == j, 1E-6) << n << ": " << i << ", " << j;
            }
        }
        EXPECT_EQ(B.LBound(1) + B.LBound(2), 0);
        EXPECT_EQ(B.UBound(2), n);
    }
}

TEST(Solution, InverseStopsAtAnyZeroPivot) {
    for (const double rest : {1.0, 0.0}) {
        Array<Single> A(Bounds{1, 2}, Bounds{1, 2});
        A(1, 2) = rest;
        A(2, 1) = 1;
        Array<Single> B;
        EXPECT_EQ(ErrorOf([&] { math.InverseMatrix(2, A, B); }), 11);
    }
}

TEST(Solution, EliminationSolvesAndKeepsItsMultipliers) {
    const int n = 7;
    const auto given = DominantMatrix(n);
    Array<Single> A = given;
    Array<Single> Q(Bounds{1, n});
    for (int i : Range(1, n)) {
        for (int j : Range(1, n)) {
            Q(i) += given(i, j) * (j - 3);
        }
    }
    Array<Single> x(Bounds{2, 2});
    math.SolvingSystemLinearEquationsUnsymmetricalMatrix(n, A, Q, x);
    EXPECT_EQ(x.LBound() * 100 + x.UBound(), n);
    for (int i : Range(1, n)) {
        EXPECT_NEAR(x(i).Value(), i - 3, 2E-6);
        Real reduced = 0;
        for (int j : Range(i, n)) {
            reduced += A(i, j) * x(j);
        }
        EXPECT_NEAR(reduced.Value(), Q(i).Value(), 1E-5);
        for (int j : Range(1, n)) { // the factors' product is the matrix
            Real product = j >= i ? Real(A(i, j)) : Real(0);
            for (int k : Range(1, std::min(i - 1, j))) {
                product -= A(i, k) * A(k, j);
            }
            EXPECT_NEAR(product.Value(), given(i, j).Value(), 2E-6);
        }
    }
}

TEST(Solution, ZeroPivotsAreReplaced) {
    const float substitute = 1.0E-10F;
    Array<Single> A(Bounds{1, 2}, Bounds{1, 2});
    A(1, 2) = 5;
    A(2, 1) = 2;
    A(2, 2) = 4;
    auto Q = ArrayFromOne<Single>({4, 7});
    Array<Single> x;
    math.SolvingSystemLinearEquationsUnsymmetricalMatrix(2, A, Q, x);
    EXPECT_EQ(A(1, 1).Value(), substitute);
    EXPECT_EQ(A(1, 2).Value(), 0);
    EXPECT_EQ(A(2, 2).Value(), 4);
    EXPECT_FLOAT_EQ(x(1).Value(), 4E10F);
    EXPECT_FLOAT_EQ(x(2).Value(), -2E10F);

    Array<Single> zero(Bounds{1, 1}, Bounds{1, 1});
    auto q = ArrayFromOne<Single>({2});
    math.SolvingSystemLinearEquationsUnsymmetricalMatrix(1, zero, q, x);
    EXPECT_EQ(zero(1, 1).Value(), substitute);
    EXPECT_FLOAT_EQ(x(1).Value(), 2E10F);
    q(1) = 1E30;
    zero(1, 1) = 0;
    EXPECT_EQ(ErrorOf([&] { math.SolvingSystemLinearEquationsUnsymmetricalMatrix(1, zero, q, x); }),
              6);
}

TEST(Convergence, ComparesTheLargestAbsoluteChange) {
    const auto fresh = ArrayFromOne<Single>({1, 2.5, -4, 8});
    const auto old = ArrayFromOne<Single>({1.25, 2.5, -3.5, 8});
    const struct {
        int N;
        double Tolerance;
        bool Converged;
        double Big;
    } cases[] = {{4, 0.5, true, 0.5},     {4, 0.49999, false, 0.5}, {2, 0.25, true, 0.25},
                 {2, 0.2, false, 0.25},   {0, 0, true, 0},          {0, -1, false, 0},
                 {4, 0.500001, true, 0.5}};
    for (const auto& of : cases) {
        auto E_Old = old;
        Single big = 99;
        EXPECT_EQ(math.CheckConvergence(of.N, fresh, E_Old, of.Tolerance, big), of.Converged);
        EXPECT_EQ(big.Value(), of.Big);
        for (int i : Range(1, 4)) {
            EXPECT_EQ(E_Old(i).Value(), (i <= of.N ? fresh : old)(i).Value());
        }
        E_Old = old;
        EXPECT_EQ(math.CheckConvergence(of.N, fresh, E_Old, of.Tolerance), of.Converged);
    }
}

TEST(LineFit, FindsTheLeastSquaresLine) {
    Single C1;
    Single C2;
    math.BestFitting(3, ArrayFromOne<Single>({-1, 2, 6}), ArrayFromOne<Single>({8, 2, -6}), C1, C2);
    EXPECT_EQ(C1.Value(), 6);
    EXPECT_EQ(C2.Value(), -2);
    math.BestFitting(4, ArrayFromOne<Single>({0, 1, 2, 3}), ArrayFromOne<Single>({0, 1, 1, 3}), C1,
                     C2);
    EXPECT_EQ(C2.Value(), 0.9F);
    EXPECT_NEAR(C1.Value(), -0.1, 1E-7);
    // The intercept follows from the rounded slope: with the exact one it would be 0.
    const double step = 0x1p20;
    math.BestFitting(2, ArrayFromOne<Single>({3 * step, 6 * step}),
                     ArrayFromOne<Single>({step, 2 * step}), C1, C2);
    EXPECT_EQ(C2.Value(), 1 / 3.0F);
    EXPECT_EQ(C1.Value(), static_cast<float>(1.5 * step - (1 / 3.0F) * (4.5 * step)));
    EXPECT_NE(C1.Value(), 0);
}

TEST(LineFit, FailsWithoutTwoDistinctAbscissae) {
    const struct {
        int N;
        Array<Single> x;
        Array<Single> Y;
        int Number;
    } cases[] = {
        {0, ArrayFromOne<Single>({1}), ArrayFromOne<Single>({1}), 6},
        {2, ArrayFromOne<Single>({2, 2}), ArrayFromOne<Single>({1, 5}), 6},
        {1, ArrayFromOne<Single>({3}), ArrayFromOne<Single>({0.1}), 11}, // 3 * 0.1 is rounded
        {2, ArrayFromOne<Single>({2}), ArrayFromOne<Single>({1}), 9},
    };
    for (const auto& of : cases) {
        Single C1 = 41;
        Single C2 = 42;
        EXPECT_EQ(ErrorOf([&] { math.BestFitting(of.N, of.x, of.Y, C1, C2); }), of.Number);
        EXPECT_EQ(C1.Value() + C2.Value(), 83);
    }
}

} // namespace
} // namespace torlib
