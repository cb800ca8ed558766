#pragma once
// What the members of Mindlin_class share: the constants of the soil and the factors of the single
// loads, each of which serves the half-space and, as a difference of two depths, the layer.

#include "torlib/frame/elementary.h"

#include <array>

namespace torlib::mindlin {

/// The steps into which half the circle or ring is divided, and their width.
inline constexpr int Steps = 50;
inline constexpr Single Step = Pi / Steps;

/// Poisson's ratio and what the kernel needs of it.
struct Soil {
    explicit Soil(Single Nue);

    Real Nu;
    Real Near;  ///< 3 - 4 nu, factor of the load itself
    Real Image; ///< 8 (1 - nu)^2 - (3 - 4 nu), factor of its image above the surface
    Real Shear; ///< shear modulus over modulus of elasticity
    Real Scale; ///< 16 Pi Shear (1 - nu)
};

/// Sum of the kernel's terms that belong to the image, behind the two that come first.
Real WithRest(Real first, Real R1, Real R2, Real c, Real z, const Soil& soil);

/// A function at the ends of the steps, from 0 to Pi; the running angle is kept in 32 bits. Sines
/// and cosines would be a third of a factor's time: a table of them serves every call.
template <class Function>
auto AtAngles(Function at) {
    std::array<decltype(at(Single())), Steps + 1> values;
    Single theta = 0;
    for (std::size_t k = 0; k < Steps; ++k) {
        values[k] = at(theta);
        theta = theta + Step;
    }
    values[Steps] = at(Pi);
    return values;
}

/// Trapezoidal rule over half a turn, without the step's width; the sum is kept in 32 bits.
template <class Entry, class Function>
Single HalfTurn(const std::array<Entry, Steps + 1>& entries, Function at, bool withEnd) {
    Single S = at(entries[0]) / 2;
    for (std::size_t k = 1; k < Steps; ++k) {
        S = S + at(entries[k]);
    }
    if (withEnd) {
        S = S + at(entries[Steps]) / 2;
    }
    return S;
}

Single Point(Single R, Single C, Single Z, const Soil& soil);
Single Line(Single R, Single L1, Single L2, Single Z, const Soil& soil);
Single Ring(Single R, Single ro, Single L1, Single L2, Single Z, const Soil& soil);
Single Circle(Single R, Single ro, Single C, Single Z, const Soil& soil);
Single CircleCentre(Single ro, Single C, Single Z, const Soil& soil);

/// Integral of K t dt along the ray from the circle's centre (t = 0) to its rim (t = `ro`).
///
/// `theta` angle in radians of the ray with the direction away from the point. Result: a length.
/// Errors: 11 for R = 0 at equal depths (6 if ro is 0 too). Source: term by term in closed form,
/// with R2(t)^2 = (p + t)^2 + q^2 + (C + Z)^2. Deviations: the angle Pi becomes 0.999 Pi, where the
/// logarithms still exist. Distances are kept in 32 bits; what that costs, measured against
/// quadrature for nu 0.3, radius 0.5, loads at depths up to 10 and points up to 5 below them:
/// - rays up to 0.9 Pi: 1E-4 to R = 6 ro, 5E-4 at 20 ro, 2 % at 100 ro;
/// - the ray at 0.999 Pi: 3E-5 inside the circle; outside at equal depths 0.7 % at 3 ro, 36 % at
///   6 ro, 390 % at 20 ro: the errors of Mindlin_class.Icr_HS are its share.
Single CircleRayIntegral(Single R, Single ro, Single C, Single Z, Single theta, const Soil& soil);

} // namespace torlib::mindlin
