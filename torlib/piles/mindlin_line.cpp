#include "torlib/piles/mindlin_factors.h"

namespace torlib::mindlin {
namespace {

Real Cube(Real a) {
    return a * a * a;
}

/// The two ends of the line, as seen from the point or from its image.
struct Ends {
    Ends(Real r, Real top, Real bottom)
        : x1(top), x2(bottom), d1(Sqrt(r * r + x1 * x1)), d2(Sqrt(r * r + x2 * x2)) {}

    Real Logarithm() const { return Log((x2 + d2) / (x1 + d1)); }
    bool OnAxis() const { return Single(Abs(x1 + d1)) == 0 || Single(Abs(x2 + d2)) == 0; }

    Single x1; ///< depth of the top below the point or its image
    Single x2; ///< depth of the bottom
    Single d1; ///< distance of the top
    Single d2; ///< distance of the bottom
};

} // namespace

Single Line(Single R, Single L1, Single L2, Single Z, const Soil& soil) {
    const Real r = R;
    const Real z = Z;
    const Ends a(r, L1 - z, L2 - z);
    const Ends b(r, L1 + z, L2 + z);
    Real I1 = 0;
    Real I3 = 0;
    if (!a.OnAxis()) {
        const Real logarithm = a.Logarithm();
        I1 = soil.Near * logarithm;
        I3 = logarithm - a.x2 / a.d2 + a.x1 / a.d1;
    }
    const Real logarithm = b.Logarithm();
    const Real I2 = soil.Image * logarithm;
    const Real near2 = z * b.x2 / (r * r * b.d2);
    const Real near1 = z * b.x1 / (r * r * b.d1);
    const Real I4 = soil.Near * (logarithm - b.x2 / b.d2 + b.x1 / b.d1) -
                    2 * z * ((1 / b.d1 - 1 / b.d2) - near2 + near1);
    const Real cubes = Cube(b.x2) / Cube(b.d2) - Cube(b.x1) / Cube(b.d1);
    const Real I5 = 6 * z *
                    (r * r / 3 * (1 / Cube(b.d2) - 1 / Cube(b.d1)) - 1 / b.d2 + 1 / b.d1 -
                     z / (3 * (r * r)) * cubes);
    return (I2 + I1 + I3 + I4 + I5) / soil.Scale / (L2 - L1);
}

Single Ring(Single R, Single ro, Single L1, Single L2, Single Z, const Soil& soil) {
    static const auto cosines = AtAngles([](Single theta) { return Cos(theta); });
    const auto at = [&](Real cosine) {
        const Single d = Sqrt(R * R + ro * ro + 2 * R * ro * cosine);
        return Line(d, L1, L2, Z, soil);
    };
    const Single S = HalfTurn(cosines, at, R != ro);
    return Step * S / Pi;
}

} // namespace torlib::mindlin
