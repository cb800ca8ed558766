#pragma once
// Matrices of elements with two nodes of three degrees of freedom each, used from index 1.

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/array.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace torlib {

constexpr int TwoNodeSize = 6;

/// Which value, counted from 1, stands where in the upper triangle; a minus sign negates it.
using TwoNodePattern = std::int16_t[TwoNodeSize][TwoNodeSize];

/// Re-dimensions ST to (0..6, 0..6) and fills both triangles with the values of the pattern.
template <std::size_t N>
void FillSymmetric(Array<Single>& ST, const TwoNodePattern& pattern,
                   const std::array<Single, N>& values) {
    ST.ReDim(TwoNodeSize, TwoNodeSize);
    for (const int i : Range(1, TwoNodeSize)) {
        for (const int j : Range(i, TwoNodeSize)) {
            const int number = pattern[i - 1][j - 1];
            const Real value = values[static_cast<std::size_t>(std::abs(number)) - 1];
            ST(i, j) = number < 0 ? -value : value;
            ST(j, i) = ST(i, j);
        }
    }
}

/// Re-dimensions TR to (0..6, 0..6) and puts the same block at both nodes.
inline void FillBlocks(Array<Single>& TR, const Single (&block)[3][3]) {
    TR.ReDim(TwoNodeSize, TwoNodeSize);
    for (const int base : {0, 3}) {
        for (const int i : Range(1, 3)) {
            for (const int j : Range(1, 3)) {
                TR(base + i, base + j) = block[i - 1][j - 1];
            }
        }
    }
}

} // namespace torlib
