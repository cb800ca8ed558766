#include "torlib/frame/large_output.h"
#include "torlib/numeric/math_class.h"

#include <string>

namespace torlib {
namespace {

/// Takes the pivot of row k out of column 1 and moves the rest of the row one column to the left.
void ShiftPivotRow(int N, int k, Array<Single>& B) {
    const Single pivot = B(k, 1);
    if (pivot == 0) {
        RaiseError(ErrorNumber::DivisionByZero, "zero pivot in row " + std::to_string(k));
    }
    for (int j : Range(1, N - 1)) {
        B(k, j) = B(k, j + 1) / pivot;
    }
    B(k, N) = 1 / pivot;
}

void ShiftOtherRow(int N, int k, int i, Array<Single>& B) {
    const Single factor = B(i, 1);
    for (int j : Range(1, N - 1)) {
        B(i, j) = B(i, j + 1) - factor * B(k, j);
    }
    B(i, N) = -B(k, N) * factor;
}

constexpr Single substitutePivot = 1.0E-10;

void Eliminate(int N, Array<Single>& A) {
    for (int i : Range(1, N - 1)) {
        for (int j : Range(i + 1, N)) {
            if (A(i, i) == 0) {
                A(i, i) = substitutePivot;
                A(i, N) = 0;
            }
            A(j, i) = -A(j, i) / A(i, i);
            for (int k : Range(i + 1, N)) {
                A(j, k) = A(i, k) * A(j, i) + A(j, k);
            }
        }
    }
}

void ReduceRightHandSide(int N, const Array<Single>& A, Array<Single>& Q) {
    for (int i : Range(1, N - 1)) {
        for (int j : Range(i + 1, N)) {
            Q(j) = A(j, i) * Q(i) + Q(j);
        }
    }
}

void SubstituteBack(int N, Array<Single>& A, const Array<Single>& Q, Array<Single>& x) {
    for (int i : Range(N, 1, -1)) {
        x(i) = Q(i);
        for (int j : Range(i + 1, N)) {
            x(i) = x(i) - A(i, j) * x(j);
        }
        if (A(i, i) == 0) {
            A(i, i) = substitutePivot;
        }
        x(i) = x(i) / A(i, i);
    }
}

} // namespace

void Math_Class::InverseMatrix(Integer N, const Array<Single>& A, Array<Single>& B) const {
    const MemberScope scope("Math_Class.InverseMatrix", Named("A", A), Named("B", B));
    if (IsLargeSquare(N)) {
        RequireSquare(A, N);
    }
    B.ReDim(N, N);
    for (int i : Range(1, N)) {
        for (int j : Range(1, N)) {
            B(i, j) = A(i, j);
        }
    }
    for (int k : Range(1, N)) {
        ShiftPivotRow(N, k, B);
        for (int i : Range(1, N)) {
            if (i != k) {
                ShiftOtherRow(N, k, i, B);
            }
        }
    }
}

void Math_Class::SolvingSystemLinearEquationsUnsymmetricalMatrix(const Integer& N, Array<Single>& A,
                                                                 Array<Single>& Q,
                                                                 Array<Single>& x) const {
    const MemberScope scope("Math_Class.SolvingSystemLinearEquationsUnsymmetricalMatrix",
                            Named("A", A), Named("Q", Q), Named("x", x));
    x.ReDim(N);
    Eliminate(N, A);
    ReduceRightHandSide(N, A, Q);
    SubstituteBack(N, A, Q, x);
}

} // namespace torlib
