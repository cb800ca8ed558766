// Load-settlement curve of a bored pile (DIN 4014): base stresses and skin friction from the soil's
// strength, the curve through the characteristic settlements, and what is read off it.

#include "torlib/frame/elementary.h"
#include "torlib/piles/piles_class.h"
#include "torlib/platform/component/run_time_error.h"

#include <algorithm>
#include <limits>
#include <span>

namespace torlib {
namespace {

/// y at x on the line through two points.
Real OnLine(Real x0, Real y0, Real x1, Real y1, Real x) {
    return y0 + (y1 - y0) * (x - x0) / (x1 - x0);
}

// ---- tables: soil strength against stress, all in MN/m2

struct Entry {
    double Strength;
    double Stress;
};

constexpr Entry SandBase002[] = {{0, 0}, {10, 0.70}, {15, 1.05}, {20, 1.40}, {25, 1.75}};
constexpr Entry SandBase003[] = {{0, 0}, {10, 0.90}, {15, 1.35}, {20, 1.80}, {25, 2.25}};
constexpr Entry SandBaseLimit[] = {{0, 0}, {10, 2.0}, {15, 3.0}, {20, 3.5}, {25, 4.0}};
constexpr Entry ClayBase002[] = {{0, 0}, {0.1, 0.35}, {0.2, 0.90}, {0.4, 2.0}};
constexpr Entry ClayBase003[] = {{0, 0}, {0.1, 0.45}, {0.2, 1.10}, {0.4, 2.4}};
constexpr Entry ClayBaseLimit[] = {{0, 0}, {0.1, 0.80}, {0.2, 1.50}, {0.4, 2.9}};
constexpr Entry SandFriction[] = {{0, 0}, {5, 0.04}, {10, 0.08}, {15, 0.12}};
constexpr Entry ClayFriction[] = {{0, 0}, {0.025, 0.025}, {0.1, 0.04}, {0.2, 0.06}};

/// Linear between the entries; beyond the last one its stress holds.
Real InTable(std::span<const Entry> table, Real strength) {
    for (std::size_t k = 1; k < table.size(); ++k) {
        const Entry& from = table[k - 1];
        const Entry& to = table[k];
        if (strength <= to.Strength) {
            return OnLine(from.Strength, from.Stress, to.Strength, to.Stress, strength);
        }
    }
    return table.back().Stress;
}

// ---- the curve

/// Base resistance at the settlements s1, s2 and sg; shaft resistance, reached at srg.
struct Resistances {
    Single s1, s2, sg;
    Single Qb1, Qb2, Qbg;
    Single Qs;
    Single srg;
};

/// Sets the points 1..4; returns the number of the one at srg.
int SetCurve(const Resistances& pile, Array<Single>& Qp, Array<Single>& Sp) {
    const auto& [s1, s2, sg, Qb1, Qb2, Qbg, Qs, srg] = pile;
    const auto set = [&](int k, Real s, Real Q) {
        Sp(k) = s;
        Qp(k) = Q;
    };
    int shaft = 0;
    if (srg <= s1) {
        shaft = 1;
        set(1, srg, Qb1 * srg / s1 + Qs);
        set(2, s1, Qb1 + Qs);
        set(3, s2, Qb2 + Qs);
    } else if (srg <= s2) {
        shaft = 2;
        set(1, s1, Qb1 + Qs * s1 / srg);
        set(2, srg, OnLine(s1, Qb1, s2, Qb2, srg) + Qs);
        set(3, s2, Qb2 + Qs);
    } else {
        shaft = 3;
        set(1, s1, Qb1 + Qs * s1 / srg);
        set(2, s2, Qb2 + Qs * s2 / srg);
        set(3, srg, OnLine(s2, Qb2, sg, Qbg, srg) + Qs);
    }
    set(4, sg, Qbg + Qs);
    return shaft;
}

/// Number of the first point whose value reaches the given one; 5 when none does.
int SegmentTo(const Array<Single>& values, Real value) {
    int k = 1;
    while (k <= 4 && value > values(k)) {
        ++k;
    }
    return k;
}

/// Settlement under a load that no point reaches.
Real SettlementBeyond(const Array<Single>& Qp, const Array<Single>& Sp, Real Q) {
    const Real rise = Qp(4) - Qp(3);
    const Real advance = Sp(4) - Sp(3);
    if (rise * advance > 0) {
        const Real continued = Sp(4) + (Q - Qp(4)) / rise * advance;
        if (continued <= std::numeric_limits<float>::max()) {
            return continued;
        }
    }
    return std::max(Sp(3).Value(), Sp(4).Value());
}

/// Settlement under a load, on the segment k = 2..5 of the curve.
Real SettlementAt(const Array<Single>& Qp, const Array<Single>& Sp, int k, Real Q) {
    return k <= 4 ? OnLine(Qp(k - 1), Sp(k - 1), Qp(k), Sp(k), Q) : SettlementBeyond(Qp, Sp, Q);
}

void SetHalfLimitPoint(Array<Single>& Qp, Array<Single>& Sp) {
    Qp(5) = Qp(4) / 2;
    const int k = SegmentTo(Qp, Qp(5));
    Sp(5) = k == 1 ? Qp(5) / Qp(1) * Sp(1) : SettlementAt(Qp, Sp, k, Qp(5));
}

Real SettlementUnder(const Array<Single>& Qp, const Array<Single>& Sp, Real QV) {
    const int k = SegmentTo(Qp, QV);
    return k == 1 ? Sp(1) * QV / Qp(1) : SettlementAt(Qp, Sp, k, QV);
}

Real ResistanceAt(const Array<Single>& Qp, const Array<Single>& Sp, Real SZV) {
    const int k = SegmentTo(Sp, SZV);
    if (k == 1) {
        return Qp(1) * SZV / Sp(1);
    }
    return k <= 4 ? OnLine(Sp(k - 1), Qp(k - 1), Sp(k), Qp(k), SZV) : Real(Qp(4));
}

// ---- base and shaft

void SetBaseStresses(Single QSSU, Single CUU, Single& SIG, Single& SIG1, Single& SIGGR) {
    const bool cohesive = CUU != 0;
    const Real strength = cohesive ? CUU : QSSU;
    SIG = InTable(cohesive ? std::span<const Entry>(ClayBase002) : SandBase002, strength);
    SIG1 = InTable(cohesive ? std::span<const Entry>(ClayBase003) : SandBase003, strength);
    SIGGR = InTable(cohesive ? std::span<const Entry>(ClayBaseLimit) : SandBaseLimit, strength);
}

void SetSkinFriction(Integer ANSCH, const Array<Single>& Qss, const Array<Single>& CU,
                     const Array<Integer>& SkinFrictionInput, Array<Single>& Tau) {
    for (const int i : Range(1, ANSCH)) {
        if (SkinFrictionInput(i) == 1) {
            Tau(i) = Qss(i) != 0 ? InTable(SandFriction, Qss(i)) : InTable(ClayFriction, CU(i));
        }
    }
}

/// Force per unit of the shaft's perimeter; the length of the lowest layer counts less `shortened`.
Single FrictionSum(Integer ANSCH, const Array<Single>& L1, const Array<Single>& Tau,
                   Real shortened) {
    Single S = 0;
    for (const int i : Range(1, ANSCH)) {
        const Single h = i == ANSCH ? L1(i) - shortened : Real(L1(i));
        S = S + Tau(i) * h;
    }
    return S;
}

} // namespace

void Piles_class::SinglePile(const Integer& CalculationAccording, const Single& D, const Single& DF,
                             const Single& QV, const Single& SZV, const Single& QSSU,
                             const Single& CUU, const Integer& ANSCH, Single& SIG, Single& SIG1,
                             Single& SIGGR, const Array<Single>& L1, const Array<Single>& Qss,
                             const Array<Single>& CU, Array<Single>& Tau,
                             const Array<Integer>& SkinFrictionInput, Single& SV, Single& QSP,
                             Single& QMA, Single& SUMTAU1, Array<Single>& Qp, Array<Single>& Sp,
                             Single& QZV, Array<Single>& QSD) const {
    const MemberScope scope("Piles_class.SinglePile", Named("L1", L1), Named("Qss", Qss),
                            Named("CU", CU), Named("Tau", Tau),
                            Named("SkinFrictionInput", SkinFrictionInput), Named("Qp", Qp),
                            Named("Sp", Sp), Named("QSD", QSD));
    Resistances pile{DF * 0.02 * 100, DF * 0.03 * 100, DF * 0.1 * 100, {}, {}, {}, {}, {}};
    if (CalculationAccording == 1) {
        SetBaseStresses(QSSU, CUU, SIG, SIG1, SIGGR);
    }
    const bool enlarged = DF != D;
    if (enlarged) {
        for (Single* stress : {&SIG, &SIG1, &SIGGR}) {
            *stress *= 0.75;
        }
    }
    const Single AF = DF * DF * Pi / 4;
    const Single U = Pi * D;
    SetSkinFriction(ANSCH, Qss, CU, SkinFrictionInput, Tau);
    SUMTAU1 = U * FrictionSum(ANSCH, L1, Tau, enlarged ? DF : Single(0));
    pile.Qb1 = AF * SIG;
    pile.Qb2 = AF * SIG1;
    pile.Qbg = AF * SIGGR;
    pile.Qs = SUMTAU1;
    pile.srg = 0.5 * SUMTAU1 + 0.5;
    if (pile.srg > 3) {
        pile.srg = 3;
    }

    const Single Qrg = Qp(SetCurve(pile, Qp, Sp));
    const bool shaftExhausted = QV >= Qrg;
    QMA = shaftExhausted ? Real(SUMTAU1) : QV * SUMTAU1 / Qrg;
    QSP = QV - (shaftExhausted ? Real(SUMTAU1) : QV * SUMTAU1 / Qrg);
    SetHalfLimitPoint(Qp, Sp);
    SV = SettlementUnder(Qp, Sp, QV);
    QZV = ResistanceAt(Qp, Sp, SZV);
    QSD(1) = Qrg - SUMTAU1;
    QSD(2) = pile.Qb1;
    QSD(3) = pile.Qb2;
    QSD(4) = pile.Qbg;
}

} // namespace torlib
