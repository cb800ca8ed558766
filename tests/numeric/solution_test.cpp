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
        Array<Single> B(Bounds{4, 5});
        Array<Single> product;
        math.InverseMatrix(n, DominantMatrix(n), B);
        math.ProductTwoEqualMatrices(n, DominantMatrix(n), B, product);
        for (int i : Range(1, n)) {
            for (int j : Range(1, n)) {
                EXPECT_NEAR(product(i, j).Value(), i == j, 1E-6) << n << ": " << i << ", " << j;
            }
        }
    }
    for (const double rest : {1.0, 0.0}) { // a zero pivot, whatever stands beside it
        Array<Single> A(Bounds{1, 2}, Bounds{1, 2});
        Array<Single> B;
        A(1, 2) = rest;
        A(2, 1) = 1;
        EXPECT_EQ(ErrorOf([&] { math.InverseMatrix(2, A, B); }), 11);
    }
}

TEST(Solution, EliminationSolvesAndKeepsItsMultipliers) {
    const int n = 7;
    const auto given = DominantMatrix(n);
    Array<Single> A = given;
    Array<Single> Q(Bounds{1, n});
    Array<Single> x;
    for (int i : Range(1, n)) {
        for (int j : Range(1, n)) {
            Q(i) += given(i, j) * (j - 3);
        }
    }
    math.SolvingSystemLinearEquationsUnsymmetricalMatrix(n, A, Q, x);
    for (int i : Range(1, n)) {
        EXPECT_NEAR(x(i).Value(), i - 3, 2E-6);
        Real reduced = 0;
        for (int j : Range(1, n)) { // the factors' product is the matrix
            reduced += j >= i ? A(i, j) * x(j) : Real(0);
            Real product = j >= i ? Real(A(i, j)) : Real(0);
            for (int k : Range(1, std::min(i - 1, j))) {
                product -= A(i, k) * A(k, j);
            }
            EXPECT_NEAR(product.Value(), given(i, j).Value(), 2E-6);
        }
        EXPECT_NEAR(reduced.Value(), Q(i).Value(), 1E-5);
    }
}

TEST(Solution, ZeroPivotsAreReplaced) {
    Array<Single> A(Bounds{1, 2}, Bounds{1, 2});
    A(1, 2) = 5;
    A(2, 1) = 2;
    A(2, 2) = 4;
    auto Q = ArrayFromOne<Single>({4, 7});
    Array<Single> x;
    math.SolvingSystemLinearEquationsUnsymmetricalMatrix(2, A, Q, x);
    EXPECT_EQ(A(1, 1).Value(), 1.0E-10F);
    EXPECT_EQ(A(1, 2).Value(), 0);
    EXPECT_FLOAT_EQ(x(1).Value(), 4E10F);
    EXPECT_FLOAT_EQ(x(2).Value(), -2E10F);
    A(1, 1) = 0; // the last pivot, and a solution that is too large
    math.SolvingSystemLinearEquationsUnsymmetricalMatrix(1, A, Q, x);
    EXPECT_FLOAT_EQ(x(1).Value(), 4E10F);
    Q(1) = 1E30;
    EXPECT_EQ(ErrorOf([&] { math.SolvingSystemLinearEquationsUnsymmetricalMatrix(1, A, Q, x); }),
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
    } cases[] = {{4, 0.5, true, 0.5},   {4, 0.49999, false, 0.5}, {2, 0.25, true, 0.25},
                 {2, 0.2, false, 0.25}, {0, 0, true, 0},          {0, -1, false, 0}};
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

TEST(LineFit, FindsTheLeastSquaresLineOrFails) {
    // The intercept follows from the rounded slope: with the exact third it would be 0.
    const double step = 0x1p20;
    const double residue = 1.5 * step - (1 / 3.0F) * (4.5 * step);
    const Array<Single> none;
    const struct {
        int N;
        Array<Single> x, Y;
        int Error;
        double C1, C2; // as before when it fails
    } cases[] = {
        {3, ArrayFromOne<Single>({-1, 2, 6}), ArrayFromOne<Single>({8, 2, -6}), 0, 6, -2},
        {3, ArrayFromOne<Single>({0, 1, 2}), ArrayFromOne<Single>({1, 4, 1}), 0, 2, 0},
        {4, ArrayFromOne<Single>({0, 1, 2, 3}), ArrayFromOne<Single>({0, 3, 3, 5}), 0, 0.5, 1.5},
        {2, ArrayFromOne<Single>({3 * step, 6 * step}), ArrayFromOne<Single>({step, 2 * step}), 0,
         residue, 1 / 3.0F},
        {0, none, none, 6, 41, 42},
        {2, ArrayFromOne<Single>({2, 2}), ArrayFromOne<Single>({1, 5}), 6, 41, 42},
        {1, ArrayFromOne<Single>({3}), ArrayFromOne<Single>({0.1}), 11, 41, 42}, // 3 Y is rounded
        {2, ArrayFromOne<Single>({2}), ArrayFromOne<Single>({1}), 9, 41, 42},
    };
    for (const auto& of : cases) {
        Single C1 = 41, C2 = 42;
        EXPECT_EQ(ErrorOf([&] { math.BestFitting(of.N, of.x, of.Y, C1, C2); }), of.Error);
        EXPECT_EQ(C1.Value(), static_cast<float>(of.C1));
        EXPECT_EQ(C2.Value(), static_cast<float>(of.C2));
    }
}

} // namespace
} // namespace torlib
