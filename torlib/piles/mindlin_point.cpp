#include "torlib/piles/mindlin_factors.h"

namespace torlib::mindlin {

Soil::Soil(Single Nue)
    : Nu(Nue),
      Near(3 - 4 * Nu),
      Image(8 * ((1 - Nu) * (1 - Nu)) - Near),
      Shear(0.5 / (1 + Nu)),
      Scale(16 * Pi * Shear * (1 - Nu)) {}

// The terms are named one by one: the first that fails decides the error number.

Real WithRest(Real first, Real R1, Real R2, Real c, Real z, const Soil& soil) {
    const Real below = (z - c) * (z - c);
    const Real above = (c + z) * (c + z);
    const Real T3 = below / (R1 * R1 * R1);
    const Real T4 = (soil.Near * above - 2 * c * z) / (R2 * R2 * R2);
    const Real T5 = 6 * c * z * above / (R2 * R2 * R2 * R2 * R2);
    return first + T3 + T4 + T5;
}

Single Point(Single R, Single C, Single Z, const Soil& soil) {
    const Real c = C;
    const Real z = Z;
    const Real R1 = Sqrt(R * R + (z - c) * (z - c));
    const Real R2 = Sqrt(R * R + (z + c) * (z + c));
    const Real T2 = soil.Image / R2;
    const Real T1 = soil.Near / R1;
    return WithRest(T2 + T1, R1, R2, c, z, soil) / soil.Scale;
}

} // namespace torlib::mindlin
