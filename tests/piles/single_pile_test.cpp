// A bored pile worked by hand, laws of the load-settlement curve, Geddes' published coefficients.

#include "tests/error_text.h"
#include "torlib/piles/piles_class.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace torlib {
namespace {

using test::ErrorOf;

const Piles_class piles;

/// 0.9 m in 5 m of clay and 5 m of dense sand, as far as a case does not say otherwise.
struct BoredPile {
    Integer According = 1, ANSCH = 2;
    Single D = 0.9, DF = 0.9, QV = 1, SZV = 1, QSSU = 20, CUU = 0, SIG, SIG1, SIGGR;
    Array<Single> L1 = ArrayFromOne<Single>({5, 5}), Qss = ArrayFromOne<Single>({0, 20}),
                  CU = ArrayFromOne<Single>({0.1, 0}), Tau = ArrayFromOne<Single>({0, 0});
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
        SIG = first;
        SIG1 = second;
        SIGGR = limit;
        return *this;
    }
    BoredPile& GiveShaft(double force) {
        FromTables = ArrayFromOne<Integer>({0, 0});
        Tau(1) = Tau(2) = force / (std::numbers::pi * D.Value() * 10);
        return *this;
    }
    double ResistanceAt(double settlement) {
        SZV = settlement;
        return Run().QZV.Value();
    }
    double SettlementUnder(double load) {
        QV = load;
        return Run().SV.Value();
    }
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
    const double bases[][5] = {
        {20, 0, 1.40, 1.80, 3.5},  {5, 0, 0.35, 0.45, 1.0},        {12.5, 0, 0.875, 1.125, 2.5},
        {60, 0, 1.75, 2.25, 4.0},  {20, 0.15, 0.625, 0.775, 1.15}, {0, 0.05, 0.175, 0.225, 0.40},
        {0, 0.3, 1.45, 1.75, 2.2}, {0, 0.9, 2.0, 2.4, 2.9},
    };
    for (const auto& [qc, cu, first, second, limit] : bases) {
        BoredPile pile;
        pile.QSSU = qc;
        pile.CUU = cu;
        pile.Run();
        EXPECT_NEAR(pile.SIG.Value(), first, 1E-6) << qc << " " << cu;
        EXPECT_NEAR(pile.SIG1.Value(), second, 1E-6) << qc << " " << cu;
        EXPECT_NEAR(pile.SIGGR.Value(), limit, 1E-6) << qc << " " << cu;
    }
    const double layers[][3] = {{20, 0.3, 0.12}, {2.5, 0, 0.02},  {7.5, 9, 0.06},
                                {12, 0, 0.096},  {0, 0.3, 0.06},  {0, 0.01, 0.01},
                                {0, 0.05, 0.03}, {0, 0.15, 0.05}, {0, 0.2, 0.06}};
    for (const auto& [qc, cu, tau] : layers) {
        BoredPile pile;
        pile.Qss(1) = qc;
        pile.CU(1) = cu;
        pile.FromTables(2) = 2;
        pile.Tau(2) = 0.5;
        pile.Run();
        EXPECT_NEAR(pile.Tau(1).Value(), tau, 1E-7) << qc << " " << cu;
        EXPECT_EQ(pile.Tau(2).Value(), 0.5);
    }
}

TEST(SinglePile, EnlargedBase) {
    BoredPile pile;
    pile.DF = 1.5;
    pile.Run();
    EXPECT_NEAR(pile.SIG.Value(), 1.05, 1E-6);
    EXPECT_NEAR(pile.SUMTAU1.Value(), std::numbers::pi * 0.9 * (5 * 0.04 + 3.5 * 0.12), 1E-6);
    pile.GiveStresses(1, 2, 4).Run();
    EXPECT_EQ(pile.SIG.Value(), 0.75);
    EXPECT_EQ(pile.SIG1.Value(), 1.5);
    EXPECT_EQ(pile.SIGGR.Value(), 3);
    EXPECT_NEAR(pile.QSD(4).Value(), 3 * std::numbers::pi * 1.5 * 1.5 / 4, 1E-6);
}

TEST(SinglePile, CurveIsTheSumOfShaftAndBase) {
    // Shaft's limit settlement before, between and behind those of the base.
    const double cases[][2] = {{0.9, 2.262}, {0.9, 4}, {0.9, 6}, {0.5, 1}, {0.5, 3}};
    for (const auto& [diameter, shaft] : cases) {
        BoredPile pile;
        pile.D = pile.DF = diameter;
        pile.GiveShaft(shaft).Run();
        const double srg = std::min(0.5 * shaft + 0.5, 3.0);
        const double s[] = {0, 2 * diameter, 3 * diameter, 10 * diameter};
        const auto base = [&](double at) {
            double value = 0;
            for (int k = 1; k <= 3; ++k) {
                const double from = k > 1 ? pile.QSD(k).Value() : 0;
                const double share = std::clamp((at - s[k - 1]) / (s[k] - s[k - 1]), 0.0, 1.0);
                value += share * (pile.QSD(k + 1).Value() - from);
            }
            return value;
        };
        const auto total = [&](double at) { return base(at) + shaft * std::min(at / srg, 1.0); };
        double expected[] = {srg, s[1], s[2], s[3]};
        std::sort(std::begin(expected), std::end(expected));
        for (int k = 1; k <= 4; ++k) {
            const double at = pile.Sp(k).Value();
            EXPECT_NEAR(at, expected[k - 1], 2E-6);
            EXPECT_NEAR(pile.Qp(k).Value(), total(at), 3E-6);
        }
        EXPECT_NEAR(pile.QSD(1).Value(), base(srg), 3E-6);
        EXPECT_NEAR(total(pile.Sp(5).Value()), pile.Qp(4).Value() / 2, 3E-6);
        EXPECT_EQ(pile.Qp(5).Value(), pile.Qp(4).Value() / 2);
        const double Qrg = total(srg);
        for (const double load : {0.4 * Qrg, 0.99 * Qrg, (Qrg + pile.Qp(4).Value()) / 2}) {
            const double settlement = pile.SettlementUnder(load);
            EXPECT_NEAR(total(settlement), load, 5E-6);
            EXPECT_NEAR(pile.ResistanceAt(settlement), load, 5E-6);
            EXPECT_NEAR(pile.QMA.Value(), std::min(load / Qrg, 1.0) * shaft, 5E-6);
            EXPECT_NEAR(pile.QSP.Value() + pile.QMA.Value(), load, 1E-6);
        }
    }
}

TEST(SinglePile, ShaftOutlastsASmallBase) {
    BoredPile pile;
    pile.D = pile.DF = 0.2;
    pile.GiveShaft(5).Run();
    const double points[][2] = {{0.4, 0}, {0.6, 0}, {3, 0}, {2, 0}};
    for (int k = 1; k <= 4; ++k) {
        EXPECT_NEAR(pile.Sp(k).Value(), points[k - 1][0], 1E-6);
    }
    const auto& Qb = pile.QSD;
    EXPECT_NEAR(Qb(1).Value(),
                Qb(3).Value() + (Qb(4).Value() - Qb(3).Value()) * (3 - 0.6) / (2 - 0.6), 2E-6);
    EXPECT_NEAR(pile.ResistanceAt(3), pile.Qp(3).Value(), 1E-6);
    EXPECT_EQ(pile.ResistanceAt(3.5), pile.Qp(4).Value());
}

TEST(SinglePile, BeyondTheCurve) {
    BoredPile pile;
    pile.Run();
    const double end = pile.Qp(4).Value();
    EXPECT_EQ(pile.ResistanceAt(30), pile.Qp(4).Value());
    EXPECT_NEAR(pile.SettlementUnder(end + 0.3) - 9, 0.3 * 6.3 / (end - pile.Qp(3).Value()), 1E-5);
    const float almostFlat = std::nextafterf(2, 3);
    for (const auto& [limit, load] : {std::pair(2.0F, 9.0F), {1.5F, 9.0F}, {almostFlat, 3E38F}}) {
        BoredPile flat;
        EXPECT_EQ(flat.GiveStresses(1, 2, limit).SettlementUnder(load), 9) << limit;
    }
}

TEST(SinglePile, Failures) {
    const std::pair<int, void (*)(BoredPile&)> cases[] = {
        {9, [](BoredPile& pile) { pile.ANSCH = 3; }},
        {9,
         [](BoredPile& pile) {
             pile.Qp = Array<Single>(Bounds{1, 4});
         }},
        {9,
         [](BoredPile& pile) {
             pile.QSD = Array<Single>(Bounds{1, 3});
         }},
        {6, [](BoredPile& pile) { pile.DF = 0; }},
        {6, [](BoredPile& pile) { pile.GiveStresses(0, 0, 0).GiveShaft(0); }},
    };
    for (const auto& [error, change] : cases) {
        BoredPile pile;
        change(pile);
        EXPECT_EQ(ErrorOf([&] { pile.Run(); }), error) << "case " << &change - &cases[0].second;
    }
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
}

TEST(PileStress, EveryPlaneCarriesTheLoadAboveIt) {
    // Depth, and what has entered the soil above it: at the base, uniformly, linearly.
    const double planes[][4] = {
        {0.4, 0, 0.4, 0.16}, {0.8, 0, 0.8, 0.64}, {1.1, 1, 1, 1}, {1.5, 1, 1, 1}, {4, 1, 1, 1}};
    for (const double nu : {0.0, 0.2, 0.5}) {
        for (const auto& plane : planes) {
            for (int load = 1; load <= 3; ++load) {
                const int steps = 2000;
                double sum = 0;
                for (int i = 1; i < steps; ++i) { // Simpson in t, n = t / (1 - t)
                    const double t = i / static_cast<double>(steps);
                    const double n = t / (1 - t);
                    sum += (i % 2 == 1 ? 4 : 2) * piles.Kz(nu, n, plane[0], load).Value() * n /
                           ((1 - t) * (1 - t));
                }
                EXPECT_NEAR(-sum * 2 * std::numbers::pi / (3 * steps), plane[load], 2E-5)
                    << "nu " << nu << " depth " << plane[0] << " load " << load;
            }
        }
    }
}

TEST(PileStress, OnTheAxis) {
    EXPECT_NEAR(piles.Kz(0.2, 0, 1.5, 1).Value(), piles.Kz(0.2, 1E-3, 1.5, 1).Value(), 1E-5);
    EXPECT_EQ(ErrorOf([] { piles.Kz(0.2, 0, 1, 1); }), 6);
    EXPECT_EQ(ErrorOf([] { piles.Kz(0.2, 0, 1.5, 2); }), 11);
    EXPECT_EQ(ErrorOf([] { piles.Kz(0.2, 0, 1.5, 3); }), 11);
    EXPECT_EQ(ErrorOf([] { piles.Kz(0.2, 1E-9, 0.5, 3); }), 5);
}

TEST(PileElement, StretchedByOpposedForces) {
    Array<Single> ST(Bounds{3, 7});
    piles.PileStiffness(ST, 3E4, 0.5, 12);
    EXPECT_EQ(ST.UBound(1) * 10 + ST.UBound(2), 22);
    for (int i = 1; i <= 2; ++i) {
        EXPECT_EQ(ST(i, i).Value(), 1250);
        EXPECT_EQ(ST(i, 3 - i).Value(), -1250);
        EXPECT_EQ(ST(0, i).Value() + ST(i, 0).Value(), 0);
    }
    EXPECT_EQ(test::ErrorText([&] { piles.PileStiffness(ST, 1, 1, 0); }).substr(0, 26),
              "Piles_class.PileStiffness:");
}

} // namespace
} // namespace torlib
