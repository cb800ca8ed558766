#pragma once
// A count alone must not cost memory. Members make their square output first and then find the
// input that is too small for it, with what they have written until then left in place. Where that
// output would be large, they ask the inputs first, and leave it as it was:
//
//     if (IsLargeSquare(N)) {
//         RequireSquare(A, N);
//     }
//     C.ReDim(N, N);

#include "torlib/platform/component/array.h"

namespace torlib {

/// Whether an output (0..n, 0..n) takes so much memory, 4 MB, that it needs inputs of that size.
constexpr bool IsLargeSquare(int n) {
    return n >= 1024;
}

/// Raises 9 for a list that does not reach over 1..n.
template <class T>
void RequireList(const Array<T>& list, int n) {
    static_cast<void>(list(1));
    static_cast<void>(list(n));
}

/// Raises 9 for a matrix that does not reach over (1..n, 1..n).
template <class T>
void RequireSquare(const Array<T>& matrix, int n) {
    static_cast<void>(matrix(1, 1));
    static_cast<void>(matrix(n, n));
}

} // namespace torlib
