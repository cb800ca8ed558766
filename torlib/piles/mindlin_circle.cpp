#include "torlib/piles/mindlin_factors.h"

namespace torlib::mindlin {
namespace {

/// Where a ray starts and ends, as seen from the point or from its image.
struct Ray {
    Real start;    ///< p, the start's component along the ray
    Real end;      ///< p + ro
    Real across;   ///< square of the distance of the point from the ray's line
    Single centre; ///< distance of the start
    Single rim;    ///< distance of the end

    /// Integral of t / D(t).
    Real Inverse() const { return (rim - centre) - start * Log((end + rim) / (start + centre)); }
    /// Integral of t / D(t)^3.
    Real InverseCube() const {
        const Real radial = 1 / centre - 1 / rim;
        return radial - start / across * (end / rim - start / centre);
    }
    /// Integral of t / D(t)^5.
    Real InverseFifth() const {
        const Real centre3 = centre * centre * centre;
        const Real rim3 = rim * rim * rim;
        const Real radial = (1 / centre3 - 1 / rim3) / 3;
        const Real cubes = end * end * end / rim3 - start * start * start / centre3;
        const Real M = (end / rim - start / centre) - cubes / 3;
        return radial - start * M / (across * across);
    }
};

struct Direction {
    Real cosine;
    Real sine;
};

/// The direction at the angle, Pi lifted to where the logarithms exist.
Direction Towards(Single theta) {
    if (theta == Single(Pi)) {
        theta = 0.999 * theta;
    }
    return {Cos(theta), Sin(theta)};
}

Single AlongRay(Single R, Single ro, Single C, Single Z, const Direction& direction,
                const Soil& soil) {
    const auto& [cosine, sine] = direction;
    const Real p = R * cosine;
    const Real q2 = R * R * (sine * sine);
    const Real d2 = R * R + ro * ro + 2 * R * ro * cosine;
    const Real below = (Z - C) * (Z - C);
    const Real above = (C + Z) * (C + Z);
    const Ray load = {p, p + ro, below + q2, Sqrt(R * R + below), Sqrt(d2 + below)};
    const Ray image = {p, p + ro, above + q2, Sqrt(R * R + above), Sqrt(d2 + above)};

    const Real J1 = soil.Near * load.Inverse();
    const Real J2 = soil.Image * image.Inverse();
    Real J3 = 0;
    if (Z - C != 0) {
        J3 = below * load.InverseCube();
    }
    Real J4 = 0;
    Real J5 = 0;
    if (C != 0 || Z != 0) {
        J4 = (above * soil.Near - 2 * C * Z) * image.InverseCube();
        J5 = 6 * C * Z * above * image.InverseFifth();
    }
    return J2 + J1 + J3 + J4 + J5;
}

} // namespace

Single CircleRayIntegral(Single R, Single ro, Single C, Single Z, Single theta, const Soil& soil) {
    return AlongRay(R, ro, C, Z, Towards(theta), soil);
}

Single Circle(Single R, Single ro, Single C, Single Z, const Soil& soil) {
    static const auto directions = AtAngles(Towards);
    const auto at = [&](const Direction& direction) {
        return AlongRay(R, ro, C, Z, direction, soil);
    };
    const Single S = HalfTurn(directions, at, true);
    return S * Step / (ro * ro * 8 * (Pi * Pi) * soil.Shear * (1 - soil.Nu));
}

Single CircleCentre(Single ro, Single C, Single Z, const Soil& soil) {
    const Real below = (Z - C) * (Z - C);
    const Real D = Abs(Z - C);
    const Real s = C + Z;
    const Real E1 = Sqrt(ro * ro + below);
    const Real E2 = Sqrt(ro * ro + s * s);
    const Real J1 = soil.Near * (E1 - D);
    const Real J2 = soil.Image * (E2 - s);
    Real J3 = 0;
    if (D != 0) {
        J3 = below * (1 / D - 1 / E1);
    }
    Real J4 = 0;
    Real J5 = 0;
    if (s != 0) {
        J4 = (s * s * soil.Near - 2 * C * Z) * (1 / s - 1 / E2);
        J5 = s * s * 2 * C * Z * (1 / (s * s * s) - 1 / (E2 * E2 * E2));
    }
    return (J2 + J1 + J3 + J4 + J5) / 8 / soil.Shear / (1 - soil.Nu) / Pi / (ro * ro);
}

} // namespace torlib::mindlin
