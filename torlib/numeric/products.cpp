#include "torlib/frame/large_output.h"
#include "torlib/numeric/math_class.h"

namespace torlib {

void Math_Class::ProductTwoUnequalMatrices(Integer L, Integer M, Integer N, const Array<Single>& A,
                                           const Array<Single>& B, Array<Single>& C) const {
    const MemberScope scope("Math_Class.ProductTwoUnequalMatrices", Named("A", A), Named("B", B),
                            Named("C", C));
    for (int i : Range(1, L)) {
        for (int j : Range(1, N)) {
            Single sum = 0;
            for (int k : Range(1, M)) {
                sum = A(i, k) * B(k, j) + sum;
                C(i, j) = sum;
            }
        }
    }
}

void Math_Class::ProductTwoEqualMatrices(Integer N, const Array<Single>& A, const Array<Single>& B,
                                         Array<Single>& C) const {
    const MemberScope scope("Math_Class.ProductTwoEqualMatrices", Named("A", A), Named("B", B),
                            Named("C", C));
    if (IsLargeSquare(N)) {
        RequireSquare(A, N);
        RequireSquare(B, N);
    }
    C.ReDim(N, N);
    for (int i : Range(1, N)) {
        for (int j : Range(1, N)) {
            for (int k : Range(1, N)) {
                C(i, j) = A(i, k) * B(k, j) + C(i, j);
            }
        }
    }
}

namespace {

void MultiplyByVector(int rows, int columns, const Array<Single>& A, const Array<Single>& V,
                      Array<Single>& U) {
    U.ReDim(rows);
    for (int i : Range(1, rows)) {
        for (int j : Range(1, columns)) {
            U(i) = A(i, j) * V(j) + U(i);
        }
    }
}

} // namespace

void Math_Class::ProductUnsymmetricalMatrxByVector(Integer N, Integer M, const Array<Single>& A,
                                                   const Array<Single>& V, Array<Single>& U) const {
    const MemberScope scope("Math_Class.ProductUnsymmetricalMatrxByVector", Named("A", A),
                            Named("V", V), Named("U", U));
    MultiplyByVector(N, M, A, V, U);
}

void Math_Class::ProductMatrxByVector(Integer N, const Array<Single>& A, const Array<Single>& V,
                                      Array<Single>& U) const {
    const MemberScope scope("Math_Class.ProductMatrxByVector", Named("A", A), Named("V", V),
                            Named("U", U));
    MultiplyByVector(N, N, A, V, U);
}

void Math_Class::AddVectorToVector(Integer N, const Array<Single>& W, const Array<Single>& V,
                                   Array<Single>& U) const {
    const MemberScope scope("Math_Class.AddVectorToVector", Named("W", W), Named("V", V),
                            Named("U", U));
    for (int i : Range(1, N)) {
        U(i) = W(i) + V(i);
    }
}

void Math_Class::ProductTwoVectorsByMatrix(Integer N, Array<Single>& P, const Array<Single>& A,
                                           const Array<Single>& Q1, const Array<Single>& Q2) const {
    const MemberScope scope("Math_Class.ProductTwoVectorsByMatrix", Named("P", P), Named("A", A),
                            Named("Q1", Q1), Named("Q2", Q2));
    P.ReDim(N);
    for (int i : Range(1, N)) {
        for (int j : Range(1, N)) {
            P(i) = (A(i, j) * Q1(j)) * Q2(j) + P(i);
        }
    }
}

} // namespace torlib
