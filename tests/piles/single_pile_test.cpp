// A bored pile worked by hand, laws of the load-settlement curve, Geddes' published coefficients.

#include "tests/error_of.h"
#include "torlib/piles/piles_class.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace torlib {
namespace {

using std::numbers::pi;
using test::ErrorOf;

const Piles_class piles;

/// 0.9 m in 5 m of clay and 5 m of dense sand, as far as a case does not say otherwise.
struct BoredPile {
    Integer According = 1, ANSCH = 2;
    Single D = 0.9, DF = 0.9, QV = 1, SZV = 1, QSSU = 20, CUU = 0, SIG, SIG1, SIGGR;
    Array<Single> L1 = ArrayFromOne<Single>({5, 5}), Qss = ArrayFromOne<Single>({0, 20}),
                  CU = ArrayFromOne<Single>({0.1, 0}), Tau = ArrayFromOne<Single>({0, 0.5});
    Array<Integer> FromTables = ArrayFromOne<Integer>({1, 1});
    Single SV, QSP, QMA, SUMTAU1, QZV;
    Array<Single> Qp{Bounds{1, 5}}, Sp{Bounds{1, 5}}, QSD{Bounds{1, 4}};

    BoredPile& Run() {
        piles.SinglePile(According, D, DF, QV, SZV, QSSU, CUU, ANSCH, SIG, SIG1, SIGGR, L1, Qss, CU,
                         Tau, FromTables, SV, QSP, QMA, SUMTAU1, Qp, Sp, QZV, QSD);
        return *this;
    }
    BoredPile& GiveStresses(double first, double second, double limit) {
        According = 2;
        SIG = first, SIG1 = second, SIGGR = limit;
        return *this;
    }
    BoredPile& GiveShaft(double diameter, double force) {
        D = DF = diameter;
        FromTables(1) = FromTables(2) = 0;
        Tau(1) = Tau(2) = force / (pi * diameter * 10);
        return *this;
    }
    double ResistanceAt(double s) { return SZV = s, Run().QZV.Value(); }
    double SettlementUnder(double Q) { return QV = Q, Run().SV.Value(); }
};

TEST(SinglePile, BoredPileWorkedByHand) {
    BoredPile pile;
    for (const auto& [s, Q] : {std::pair(1.0, 1.882), {1.8, 3.153}, {9.0, 4.489}}) {
        EXPECT_NEAR(pile.ResistanceAt(s), Q, 5E-4);
        EXPECT_NEAR(pile.SettlementUnder(pile.QZV.Value()), s, 1E-5);
    }
    EXPECT_NEAR(pile.SUMTAU1.Value(), 2.262, 5E-4);
    EXPECT_NEAR(pile.Sp(1).Value(), 1.631, 5E-4);
}

TEST(SinglePile, TablesOfTheSoil) {
    // qc and cu of base and upper layer; base stresses, skin friction.
    const double rows[][6] = {
        {20, 0, 1.40, 1.80, 3.5, 0.12},        {5, 0, 0.35, 0.45, 1.0, 0.04},
        {12.5, 0, 0.875, 1.125, 2.5, 0.10},    {60, 0, 1.75, 2.25, 4.0, 0.12},
        {7.5, 0.15, 0.625, 0.775, 1.15, 0.06}, {0, 0.15, 0.625, 0.775, 1.15, 0.05},
        {0, 0.05, 0.175, 0.225, 0.40, 0.03},   {0, 0.3, 1.45, 1.75, 2.2, 0.06},
        {0, 0.01, 0.035, 0.045, 0.08, 0.01},   {0, 0.9, 2.0, 2.4, 2.9, 0.06}};
    for (const auto& row : rows) {
        BoredPile pile;
        pile.QSSU = pile.Qss(1) = row[0];
        pile.CUU = pile.CU(1) = row[1];
        pile.FromTables(2) = 2;
        pile.Run();
        const Single values[] = {pile.SIG, pile.SIG1, pile.SIGGR, pile.Tau(1)};
        for (int k = 0; k < 4; ++k) {
            EXPECT_NEAR(values[k].Value(), row[k + 2], 1E-6) << row[0] << " " << row[1];
        }
        EXPECT_EQ(pile.Tau(2).Value(), 0.5);
    }
}

TEST(SinglePile, EnlargedBase) {
    BoredPile pile;
    pile.DF = 1.5;
    EXPECT_NEAR(pile.Run().SIG.Value(), 1.05, 1E-6);
    EXPECT_NEAR(pile.SUMTAU1.Value(), pi * 0.9 * (5 * 0.04 + 3.5 * 0.12), 1E-6);
    pile.GiveStresses(1, 2, 4).Run();
    EXPECT_EQ(pile.SIG.Value() + pile.SIG1.Value(), 0.75 + 1.5);
    EXPECT_NEAR(pile.QSD(4).Value(), 3 * pi * 1.5 * 1.5 / 4, 1E-6);
}

TEST(SinglePile, CurveIsTheSumOfShaftAndBase) {
    // Shaft's limit settlement before, between and behind those of the base.
    const double cases[][2] = {{0.9, 2.262}, {0.9, 4}, {0.9, 6}, {0.5, 1}, {0.5, 3}};
    for (const auto& row : cases) {
        const double shaft = row[1];
        BoredPile pile;
        pile.GiveShaft(row[0], shaft).Run();
        const double srg = std::min(0.5 * shaft + 0.5, 3.0);
        const double s[] = {0, 2 * row[0], 3 * row[0], 10 * row[0]};
        const double Qb[] = {0, pile.QSD(2).Value(), pile.QSD(3).Value(), pile.QSD(4).Value()};
        const auto total = [&](double at) {
            double Q = shaft * std::min(at / srg, 1.0);
            for (int k = 1; k <= 3; ++k) {
                Q +=
                    (Qb[k] - Qb[k - 1]) * std::clamp((at - s[k - 1]) / (s[k] - s[k - 1]), 0.0, 1.0);
            }
            return Q;
        };
        double expected[] = {srg, s[1], s[2], s[3]};
        std::sort(std::begin(expected), std::end(expected));
        for (int k = 1; k <= 4; ++k) {
            EXPECT_NEAR(pile.Sp(k).Value(), expected[k - 1], 2E-6);
            EXPECT_NEAR(pile.Qp(k).Value(), total(expected[k - 1]), 3E-6);
        }
        const double Qrg = total(srg);
        EXPECT_NEAR(pile.QSD(1).Value(), Qrg - shaft, 3E-6);
        EXPECT_NEAR(total(pile.Sp(5).Value()), pile.Qp(4).Value() / 2, 3E-6);
        for (const double load : {0.4 * Qrg, 0.99 * Qrg, (Qrg + pile.Qp(4).Value()) / 2}) {
            EXPECT_NEAR(total(pile.SettlementUnder(load)), load, 5E-6);
            EXPECT_NEAR(pile.ResistanceAt(pile.SV.Value()), load, 5E-6);
            EXPECT_NEAR(pile.QMA.Value(), std::min(load / Qrg, 1.0) * shaft, 5E-6);
            EXPECT_NEAR(pile.QSP.Value() + pile.QMA.Value(), load, 1E-6);
        }
    }
}

TEST(SinglePile, ShaftOutlastsASmallBase) {
    BoredPile pile;
    pile.GiveShaft(0.2, 5).Run();
    const auto& Qb = pile.QSD;
    EXPECT_NEAR(Qb(1).Value(), Qb(3).Value() + (Qb(4).Value() - Qb(3).Value()) * 2.4 / 1.4, 2E-6);
    EXPECT_NEAR(pile.Sp(3).Value() + 10 * pile.Sp(4).Value(), 3 + 10 * 2, 1E-5);
    EXPECT_NEAR(pile.ResistanceAt(3), pile.Qp(3).Value(), 1E-6);
    EXPECT_EQ(pile.ResistanceAt(3.5), pile.Qp(4).Value());
}

TEST(SinglePile, BeyondTheCurve) {
    BoredPile pile;
    const double end = pile.Run().Qp(4).Value();
    EXPECT_EQ(pile.ResistanceAt(30), end);
    EXPECT_NEAR(pile.SettlementUnder(end + 0.3) - 9, 0.3 * 6.3 / (end - pile.Qp(3).Value()), 1E-5);
    const float almostFlat = std::nextafterf(2, 3);
    for (const auto& [limit, load] : {std::pair(2.0F, 9.0F), {1.5F, 9.0F}, {almostFlat, 3E38F}}) {
        EXPECT_EQ(BoredPile().GiveStresses(1, 2, limit).SettlementUnder(load), 9) << limit;
    }
}

TEST(SinglePile, Failures) {
    BoredPile pile;
    pile.GiveStresses(0, 0, 0).GiveShaft(1, 0);
    EXPECT_EQ(ErrorOf([&] { pile.Run(); }), 6);
    pile.ANSCH = 3;
    EXPECT_EQ(ErrorOf([&] { pile.Run(); }), 9);
}

TEST(PileStress, GeddesCoefficients) {
    const double published[][5] = {{1.2, 0.1, 2.7496, 0.7446, 1.0160},
                                   {1.5, 0.5, 0.2028, 0.1862, 0.1947},
                                   {2, 1, 0.0674, 0.0700, 0.0700}};
    for (const auto& row : published) {
        for (int load = 1; load <= 3; ++load) {
            EXPECT_NEAR(piles.Kz(0.2, row[1], row[0], load).Value(), -row[load + 1], 6E-5);
        }
    }
    EXPECT_EQ(piles.Kz(0.2, 0.5, 1.5, 4).Value(), 0);
    EXPECT_NEAR(piles.Kz(0.2, 0, 1.5, 1).Value(), piles.Kz(0.2, 1E-3, 1.5, 1).Value(), 1E-5);
    const double failures[][4] = {
        {6, 0, 1, 1}, {11, 0, 1.5, 2}, {11, 0, 1.5, 3}, {5, 1E-9, 0.5, 3}};
    for (const auto& row : failures) {
        EXPECT_EQ(ErrorOf([&] { piles.Kz(0.2, row[1], row[2], static_cast<int>(row[3])); }),
                  row[0]);
    }
}

TEST(PileStress, EveryPlaneCarriesTheLoadAboveIt) {
    // Depth, and what has entered the soil above it: at the base, uniformly, linearly.
    const double planes[][4] = {
        {0.4, 0, 0.4, 0.16}, {0.8, 0, 0.8, 0.64}, {1.1, 1, 1, 1}, {1.5, 1, 1, 1}, {4, 1, 1, 1}};
    for (const auto& plane : planes) {
        for (int of = 0; of < 9; ++of) {
            const int load = of / 3 + 1;
            const double nu = 0.25 * (of % 3);
            const int steps = 2000;
            double sum = 0;
            for (int i = 1; i < steps; ++i) { // Simpson in t, n = t / (1 - t)
                const double t = i / static_cast<double>(steps);
                sum += (i % 2 == 1 ? 4 : 2) * t / std::pow(1 - t, 3) *
                       piles.Kz(nu, t / (1 - t), plane[0], load).Value();
            }
            EXPECT_NEAR(-sum * 2 * pi / (3 * steps), plane[load], 2E-5) << plane[0] << " " << of;
        }
    }
}

TEST(PileElement, StretchedByOpposedForces) {
    Array<Single> ST(Bounds{3, 7});
    piles.PileStiffness(ST, 3E4, 0.5, 12);
    EXPECT_EQ(ST.UBound(1) * 10 + ST.UBound(2), 22);
    for (int i = 1; i <= 2; ++i) {
        EXPECT_EQ(ST(i, i).Value(), 1250);
        EXPECT_EQ(ST(i, 3 - i).Value(), -1250);
    }
    EXPECT_EQ(ErrorOf([&] { piles.PileStiffness(ST, 1, 1, 0); }), 11);
}

} // namespace
} // namespace torlib
