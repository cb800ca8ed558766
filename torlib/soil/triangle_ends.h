#pragma once
// What the functions of a loaded triangle share: the triangle is the signed sum of two right
// triangles, one for each end of the side.

#include "torlib/frame/arithmetic.h"

namespace torlib {

/// Applies sum = step(sum, h, d) for d = Dt, then ET, where h and d both are not zero; the sum is
/// kept as a Single or a Real.
template <class Sum, class Step>
Sum SumOverEnds(const Single& FT, const Single& Dt, const Single& ET, Step step) {
    const Real h = FT;
    Sum sum = 0;
    for (const Real d : {Real(Dt), Real(ET)}) {
        if (Sgn(h) * Sgn(d) != 0) {
            sum = step(Real(sum), h, d);
        }
    }
    return sum;
}

} // namespace torlib
