#include "torlib/fem/band_reference.h"

namespace torlib::band {

void ReplaceZeroDiagonal(Integer n, Array<Single>& A, Array<Single>& Q) {
    if (A(n, 1) == 0) {
        A(n, 1) = 1.0E-10F;
        Q(n) = 0;
    }
}

void EliminateEquation(Integer n, Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q) {
    for (const int l : Range(2, Nw)) {
        const Integer i = n + l - 1;
        const Single c = A(n, l) / A(n, 1);
        if (n != N3) {
            int j = 0;
            for (const int k : Range(l, Nw)) {
                ++j;
                A(i, j) = A(i, j) - c * A(n, k);
            }
        }
        A(n, l) = c;
        Q(i) = Q(i) - c * Q(n);
    }
    Q(n) = Q(n) / A(n, 1);
}

void BackSubstituteEquation(Integer n, Integer Nw, const Array<Single>& A, Array<Single>& Q) {
    for (const int l : Range(2, Nw)) {
        Q(n) = Q(n) - A(n, l) * Q(Integer(n + l - 1));
    }
}

bool SolveReference(Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q,
                    const EquationEvents& events) {
    for (const int n : Range(1, N3)) {
        ReplaceZeroDiagonal(n, A, Q);
        events.Progress(n);
        if (events.Cancelled()) {
            return true;
        }
        EliminateEquation(n, Nw, N3, A, Q);
    }
    for (const int n : Range(Integer(N3 - 1), 1, -1)) {
        if (events.Cancelled()) {
            return true;
        }
        BackSubstituteEquation(n, Nw, A, Q);
    }
    return false;
}

} // namespace torlib::band
