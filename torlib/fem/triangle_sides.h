#pragma once
// The sides 1-2 and 1-3 of a triangle: the oblique axes in which the plate triangle is integrated.

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/array.h"

namespace torlib {

struct TriangleSides {
    TriangleSides(const Array<Single>& x, const Array<Single>& Y)
        : X21(x(2) - x(1)),
          X31(x(3) - x(1)),
          Y21(Y(2) - Y(1)),
          Y31(Y(3) - Y(1)),
          Area2(X21 * Y31 - X31 * Y21) {}

    /// Turns the pair that belongs to the slopes along the sides into the pair of the x-y slopes.
    void Turn(Single& s, Single& t) const {
        const Single u = s;
        const Single v = t;
        s = X21 * u + X31 * v;
        t = Y21 * u + Y31 * v;
    }

    Single X21;
    Single X31;
    Single Y21;
    Single Y31;
    Single Area2; // twice the area, negative for clockwise corners
};

} // namespace torlib
