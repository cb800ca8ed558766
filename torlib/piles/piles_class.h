#pragma once
// Piles: the single pile, the nodes of a piled raft, and the influence of loads inside the soil.
// This header holds the single pile: the load-settlement curve of a bored pile, the vertical stress
// that a pile sends into the soil, and the axial stiffness of a pile element.
//
//     Piles_class piles;
//     Single stress = piles.Kz(Nue, r / L, z / L, 1) * Q / (L * L);   // tension positive
//
// Files in reading order: single_pile.cpp (load-settlement curve), geddes.cpp (stress
// coefficients), piles_class.cpp (pile element, instance, member table); pile_geometry_class.h and
// its sources (nodes, contribution factors and condensed coefficients of piled rafts).

#include "torlib/frame/arithmetic.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API Piles_class {
  public:
    static Piles_class& DefaultInstance();
    static const ClassInfo& Info();

    /// Load-settlement curve of a bored pile, with the working load read off it.
    ///
    /// Lengths in m, stresses and skin friction in MN/m2, forces in MN, settlements in cm.
    /// `CalculationAccording` 1: base stresses from the tables; any other number: the caller's.
    /// `D`, `DF` diameter of shaft and base. `QV` working load. `SZV` settlement whose load is
    /// wanted. `QSSU`, `CUU` cone resistance and undrained strength at the base; CUU other than 0
    /// makes the soil there cohesive. `ANSCH` number of layers along the shaft.
    /// `SIG`, `SIG1`, `SIGGR` [in/out] base stress at the settlements 0.02, 0.03 and 0.10 DF; where
    /// DF differs from D they come back multiplied by 0.75, also when the caller gave them.
    /// `L1`, `Qss`, `CU(1..ANSCH)` thickness, cone resistance (0: cohesive) and undrained strength
    /// of the layers, from the top. `Tau(1..ANSCH)` [in/out] ultimate skin friction, from the
    /// tables where `SkinFrictionInput(i)` is 1. With an enlarged base the lowest layer counts
    /// with L1 - DF.
    /// `SV` [out] settlement under QV. `QSP`, `QMA` [out] parts of QV carried by base and shaft.
    /// `SUMTAU1` [out] ultimate shaft resistance. `Qp`, `Sp(1..5)` [out] resistance and settlement
    /// at the points of the curve: 1..4 by growing settlement, 5 at half the limit resistance.
    /// `QZV` [out] resistance at SZV. `QSD(1..4)` [out] base resistance at the limit settlement of
    /// the shaft and at 0.02, 0.03 and 0.10 DF.
    ///
    /// Beyond the tables their last value holds; a negative soil strength continues the line from
    /// zero. A settlement beyond the curve has the resistance of point 4. A load beyond the curve
    /// has the settlement on the last segment's continuation; where that never reaches the load, or
    /// at no settlement a 32-bit number can hold, SV is the largest settlement of the curve. With a
    /// base below 0.3 m the shaft's limit settlement can lie beyond that of the base: point 3 then
    /// lies beyond point 4, and the curve is followed to point 3.
    /// Errors: 9 for arrays that are too short; 6 or 11 for DF = 0 or a curve without resistance.
    ///
    /// Source: DIN 4014 (1990), Bored cast-in-place piles: formation, design and bearing behaviour.
    /// Deviations: every named quantity and the sum over the layers are kept in 32 bits.
    void SinglePile(const Integer& CalculationAccording, const Single& D, const Single& DF,
                    const Single& QV, const Single& SZV, const Single& QSSU, const Single& CUU,
                    const Integer& ANSCH, Single& SIG, Single& SIG1, Single& SIGGR,
                    const Array<Single>& L1, const Array<Single>& Qss, const Array<Single>& CU,
                    Array<Single>& Tau, const Array<Integer>& SkinFrictionInput, Single& SV,
                    Single& QSP, Single& QMA, Single& SUMTAU1, Array<Single>& Qp, Array<Single>& Sp,
                    Single& QZV, Array<Single>& QSD) const;

    /// Coefficient of the vertical stress that a pile load causes in the half-space.
    ///
    /// `Nue` Poisson's ratio. `Np` distance from the pile's axis over its length. `MP` depth over
    /// the pile's length, downward positive. `StressCoefficientCase` 1 load at the base, 2 skin
    /// friction uniform along the pile, 3 skin friction growing linearly from zero at the head.
    /// Result: stress times length squared over load, tension positive: under the pile it is
    /// negative, and the coefficients printed in the literature, compression positive, are its
    /// opposite. 0 for any other case.
    /// Errors: 11 for Nue = 1, 11 or 6 for Np = 0 in the cases 2 and 3, 6 at the base on the axis
    /// in case 1, 5 in case 3 above the base so close to the axis that Np is lost beside MP.
    ///
    /// Source: Geddes (1966), Stresses in foundation soils due to vertical subsurface loading,
    /// Geotechnique 16. Deviations: the distances are kept in double precision, since terms of
    /// order 1/Np^2 cancel: in 32 bits case 3 would lose 4 % at Np = 0.05, MP = 5.
    Single Kz(const Single& Nue, const Single& Np, const Single& MP,
              Integer StressCoefficientCase) const;

    /// Axial stiffness of a pile element.
    ///
    /// `ST(0..2, 0..2)` [out] stiffness of the ends 1 and 2, shortened by equal forces; row and
    /// column 0 are zero. `Eep` modulus of elasticity, `Aep` cross-section, `Lep` length.
    /// Errors: 11 for Lep = 0 (6 when Eep Aep is 0 too), with ST already zero.
    void PileStiffness(Array<Single>& ST, Single Eep, Single Aep, Single Lep) const;
};

} // namespace torlib
