#include "torlib/piles/mindlin_class.h"
#include "torlib/piles/mindlin_factors.h"
#include "torlib/platform/component/run_time_error.h"

namespace torlib {
namespace {

Single Diagonal(Real A, Real B) {
    return Sqrt(A * A + B * B);
}

/// `A` ln((D + `B`) / (D - `B`)).
Real SideTerm(Real A, Real B, Real D) {
    return A * Log((D + B) / (D - B));
}

/// The logarithm of a side `A` that the depth with the diagonal Dz leaves.
Real DepthLogarithm(Real A, Real D, Real Dz) {
    return Log(((Dz - A) * (D + A) / (Dz + A)) / (D - A));
}

} // namespace

Single Mindlin_class::Iii_HS(Single A, Single B, Single Nue) const {
    const MemberScope scope("Mindlin_class.Iii_HS");
    const Real nu = Nue;
    const Single D = Diagonal(A, B);
    const Real alongA = SideTerm(A, B, D);
    const Real alongB = SideTerm(B, A, D);
    return (1 - nu * nu) * (alongA + alongB) / (2 * Pi);
}

Single Mindlin_class::Iii_EH(Single A, Single B, Single ZG, Single Ho, Single Nue) const {
    const MemberScope scope("Mindlin_class.Iii_EH");
    const Real nu = Nue;
    const Single D = Diagonal(A, B);
    Single C = 0;
    Single z = ZG;
    for (const int pass : Range(1, 2)) {
        static_cast<void>(pass);
        if (z > 0) {
            const Real Dz = Sqrt(A * A + B * B + z * z);
            const Real LA = DepthLogarithm(A, D, Dz);
            const Real LB = DepthLogarithm(B, D, Dz);
            const Real V = z * Atan(A * B / (z * Dz));
            const Real S = (1 - nu * nu) * (A * LB + B * LA) + (1 - nu - 2 * (nu * nu)) * V;
            C = S - C;
        }
        z = z + Ho;
    }
    return C / (2 * Pi);
}

Single Mindlin_class::Cii_HS(const Single& A, const Single& B, Single C, Single Z,
                             Single Nue) const {
    const MemberScope scope("Mindlin_class.Cii_HS");
    const mindlin::Soil soil(Nue);
    const Single D = Diagonal(A, B);
    const Single r = D / 2;
    const Real R1 = Sqrt((Z - C) * (Z - C) + r * r);
    const Real R2 = Sqrt((C + Z) * (C + Z) + r * r);
    Real T1;
    if (Z == C) {
        const Real alongB = SideTerm(B, A, D);
        const Real alongA = SideTerm(A, B, D);
        T1 = soil.Near * 0.5 * (alongB + alongA) / (A * B);
    } else {
        T1 = soil.Near / R1;
    }
    const Real T2 = soil.Image / R2;
    return mindlin::WithRest(T2 + T1, R1, R2, C, Z, soil) * A * B / soil.Scale;
}

} // namespace torlib
