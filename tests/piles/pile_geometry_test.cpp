// Nodes of piles and piled rafts, weights on symmetry lines, and a rigid cap on nine piles.

#include "tests/error_text.h"
#include "torlib/frame/elementary.h"
#include "torlib/numeric/math_class.h"
#include "torlib/piles/pile_geometry_class.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace torlib {
namespace {

using Reals = Array<Single>;
using Numbers = Array<Integer>;

const PileGeometry_Class geometry;

Reals R(std::initializer_list<Single> values) {
    return ArrayFromOne(values);
}
Numbers N(std::initializer_list<Integer> values) {
    return ArrayFromOne(values);
}
template <class T>
void ExpectValues(const Array<T>& array, const std::vector<double>& from1) {
    ASSERT_EQ(array.UBound(), static_cast<int>(from1.size()));
    for (int i = 1; i <= array.UBound(); ++i) {
        EXPECT_EQ(array(i).Value(), from1[static_cast<std::size_t>(i - 1)]) << i;
    }
}

struct Nodes {
    Numbers NK_P, NE_P, Kind, Nak_Raft, NK_PR, Nak_Pile;
    Reals ro, X, Y, Z, LG1, LG2;
    Integer Count;

    void OfPiles(const Reals& Lp, Single Dz) {
        geometry.GenerationOfPileGeometry(2, Lp, R({0.8, 1}), R({3, 7}), R({5, 6}), NK_P, NE_P, ro,
                                          X, Y, Z, LG1, LG2, Kind, Dz, N({12, 11}), Nak_Raft,
                                          Count);
    }
    /// Two rows of three raft nodes 2 m apart, node 5 moved to `x5`.
    void OfRaft(const Reals& XPl, const Reals& YPl, Single x5 = 2) {
        geometry.GenerationOfPiledRaftSystems(6, R({0, 2, 4, 0, x5, 4}), R({0, 0, 0, 2, 2, 2}),
                                              R({1, 2, 1, 1, 2, 1}), 2, XPl, YPl, R({4.5, 6}),
                                              R({0.5, 1}), ro, X, Y, Z, LG1, LG2, Kind, Nak_Pile,
                                              Nak_Raft, NK_P, NE_P, Count, NK_PR, 1.5);
    }
    void ExpectNode(int n, std::initializer_list<double> expected) const {
        const Single actual[] = {Kind(n), Nak_Raft(n), X(n), Y(n), ro(n), LG1(n), LG2(n), Z(n)};
        int i = 0;
        for (const double value : expected) {
            EXPECT_NEAR(actual[i].Value(), value, 3E-6) << "node " << n << " value " << i;
            ++i;
        }
    }
    /// The segments are stacked without gaps, with the base below them.
    void ExpectPile(int n, int segments, double x, double y, double L, double r, int raft) const {
        for (int k = 0; k < segments; ++k) {
            const double LE = L / segments;
            ExpectNode(n + k, {1, 1.0 * raft, x, y, r, k * LE, (k + 1) * LE, (k + 0.5) * LE});
        }
        ExpectNode(n + segments, {2, 1.0 * raft, x, y, r, L, L, L});
    }
};

TEST(PileNodes, SegmentsOfAboutTheWantedLength) {
    const double cases[][3] = {{10, 1, 10}, {10.5, 1, 10}, {11.5, 1, 12}, {7, 2.75, 3}, {2, 3, 1}};
    for (const auto& [L, Dz, segments] : cases) {
        Nodes nodes;
        nodes.OfPiles(R({L, 4 * Dz}), Dz);
        const int n = static_cast<int>(segments);
        ExpectValues(nodes.NE_P, {segments, 4});
        ExpectValues(nodes.NK_P, {segments + 1, 5});
        ASSERT_EQ(nodes.Z.UBound(), n + 6);
        EXPECT_EQ(nodes.Count, n + 6);
        nodes.ExpectPile(1, n, 3, 5, L, 0.4, 12);
        nodes.ExpectPile(n + 2, 4, 7, 6, 4 * Dz, 0.5, 11);
    }
    for (const auto& of : {std::pair(1.0, 11), {0.0, 11}, {1E-5, 6}}) {
        EXPECT_EQ(test::ErrorOf([&] { Nodes().OfPiles(R({0.5, 0.5}), of.first); }), of.second);
    }
}

TEST(PiledRaftNodes, APileReplacesItsRaftNode) {
    Nodes nodes;
    nodes.OfRaft(R({4, 2.005}), R({2, 0.005}), 4.006);
    EXPECT_EQ(nodes.Count, 6 + 4 + 5 - 2);
    ExpectValues(nodes.Nak_Pile, {5, 2}); // the first of two nodes within reach
    ExpectValues(nodes.NK_PR, {1, 5, 1, 1, 4, 1});
    ASSERT_EQ(nodes.Z.UBound(), 13);
    nodes.ExpectNode(1, {3, 0, 0, 0, std::sqrt(1 / Pi.Value()), 0, 0, 0});
    nodes.ExpectPile(2, 4, 2.005, 0.005, 6, 0.5, 2);
    nodes.ExpectNode(7, {3, 0, 4, 0, std::sqrt(1 / Pi.Value()), 0, 0, 0});
    nodes.ExpectPile(9, 3, 4, 2, 4.5, 0.25, 5);
    nodes.ExpectNode(13, {3, 0, 4, 2});
}

TEST(PiledRaftNodes, RefusesPilesWithoutANodeOfTheirOwn) {
    const std::string alone = "no raft node: none is less than 0.01 away in x and in y";
    const std::pair<std::pair<double, double>, std::string> cases[] = {
        {{2.02, 0}, alone},
        {{0, 2.02}, alone},
        {{4.005, 2}, "raft node 6, where pile 1 stands already"}};
    for (const auto& [at, text] : cases) {
        Nodes nodes;
        const Reals XPl = R({4, at.first});
        const Reals YPl = R({2, at.second});
        EXPECT_EQ(test::ErrorText([&] { nodes.OfRaft(XPl, YPl); }),
                  "PileGeometry_Class.GenerationOfPiledRaftSystems: pile 2 stands on " + text +
                      " (error 5)");
        EXPECT_EQ(nodes.Nak_Pile.Dimensions() + nodes.NE_P.Dimensions() + nodes.Count, 0);
    }
}

TEST(PiledRaftNodes, MarksForTheSinglePileMethod) {
    for (const auto& [method, other] : {std::pair(1, 0.0), {2, 3.0}, {3, 7.0}}) {
        Numbers marks = N({7, 7, 7});
        Numbers Nak_Pile = N({1, 2});
        // Pile 1 reaches the nodes 2 and 3 and takes the last, pile 2 keeps its number 2.
        geometry.GenerationOfPiledRaftSystemsDIN4014(3, R({0, 4, 4.006}), R({0, 2, 2}), 2,
                                                     R({4.003, 20}), R({2, 0}), marks, Nak_Pile,
                                                     method);
        ExpectValues(Nak_Pile, {3, 2});
        ExpectValues(marks, {other, 4, 4});
    }
}

TEST(PileNumbers, LargestAndNumberOfEach) {
    EXPECT_EQ(geometry.MaxDim(3, N({9, 2, 4, 30})), 9);
    EXPECT_EQ(geometry.MaxDim(2, N({-2, -9})), 0);
    Single x;
    Single y;
    geometry.MaxCoordinates(3, R({-5, -3, -2, 8}), R({7, 1, 2, 8}), x, y);
    EXPECT_EQ(x.Value() + 10 * y.Value(), -2 + 10 * 7);
    Numbers numbers;
    geometry.SetPileNo(N({4, 2, 4}), numbers, 5, 3);
    ExpectValues(numbers, {0, 2, 0, 3, 0});
    geometry.SetRaftNodeNo(N({8, 6, 7}), numbers, 2);
    ExpectValues(numbers, {8, 6});
    geometry.ResolveNodeNumber(numbers, 4);
    ExpectValues(numbers, {1, 2, 3, 4});
    geometry.ResolveSymmetryNode(3, numbers);
    ExpectValues(numbers, {1, 2, 3});
}

TEST(ContributionFactors, OnSymmetryLines) {
    using enum SymmetricCase;
    const std::pair<SymmetricCase, std::vector<double>> cases[] = {
        {XY_Symmetric, {1, 2, 2, 4}},    {X_symmetric, {1, 1, 2, 2}},
        {Y_Symmetric, {1, 2, 1, 2}},     {Unsymmetric, {1, 1, 1, 1}},
        {X_AntiSymmetric, {1, 1, 1, 1}}, {Y_AntiSymmetric, {1, 1, 1, 1}}};
    Reals Cf;
    for (const auto& [symmetry, factors] : cases) {
        geometry.ContributedFactor(symmetry, 4, Cf, 5, 3, R({0, 5, 0, 4.999}), R({0, 0, 3.001, 3}));
        ExpectValues(Cf, factors);
    }
    const double texts[][3] = {{4.999, 5, 2},      {4.99, 5, 1},       {0.125, 0.13, 2},
                               {0.125, 0.12, 1},   {-0.125, -0.13, 2}, {-0.004, 0, 2},
                               {0.005, 0, 2},      {1.005, 1, 2},      {-0.01, 0.01, 1},
                               {0.00501, 0.01, 2}, {3E38, 2.9E38, 1}};
    for (const auto& [a, b, factor] : texts) {
        geometry.ContributedFactor(Y_Symmetric, 1, Cf, a, 0, R({b}), R({7}));
        EXPECT_EQ(Cf(1).Value(), factor) << a << " " << b;
    }
    for (const auto& of : cases) {
        const auto error = [&](const Reals& x, const Reals& y) {
            return test::ErrorOf([&] { geometry.ContributedFactor(of.first, 2, Cf, 5, 3, x, y); });
        };
        EXPECT_EQ(error(R({0}), R({0, 0})), 9) << static_cast<int>(of.first);
        EXPECT_EQ(error(R({0, 0}), R({0})), 9) << static_cast<int>(of.first);
        EXPECT_EQ(Cf.UBound(), 2);
        EXPECT_EQ(error(R({5, 0}), R({3})), 9);
        EXPECT_EQ(Cf(1).Value(), of.second.back()) << "written before the error";
    }
}

TEST(ContributionFactors, NodesInheritFromTheFirstPileAtTheirPlace) {
    Reals Cf = R({4, 2, 9});
    geometry.GlobalContributedFactor(3, 5, R({1, 1, 0, 0, std::nextafterf(1, 2)}),
                                     R({1, 1, 1, 0, 1}), R({1, 0, 1}), R({1, 1, 1}), Cf);
    ExpectValues(Cf, {4, 4, 2, 1, 1});
    geometry.GlobalContributedFactor(0, 3, {}, {}, {}, {}, Cf); // no pile, no coordinate
    ExpectValues(Cf, {1, 1, 1});
    EXPECT_EQ(test::ErrorOf([&] {
                  geometry.GlobalContributedFactor(1, 2, R({1}), R({1, 2}), R({1}), R({1}), Cf);
              }),
              9);
    ExpectValues(Cf, {1, 1, 1});
}

TEST(ComposedCoefficients, SumsAreKeptIn32Bits) {
    Reals kij(Bounds{1, 3}, Bounds{1, 3});
    kij(1, 1) = 16777216;
    kij(1, 2) = kij(2, 1) = kij(3, 1) = 1;
    Reals Gk;
    geometry.ComposedCoefficients(2, kij, Gk, N({2, 1}));
    EXPECT_EQ(Gk(1, 1).Value(), 16777216);
    EXPECT_EQ(Gk(2, 1).Value(), 1);
    EXPECT_EQ(test::ErrorOf([&] { geometry.ComposedCoefficients(2, kij, Gk, N({2, 2})); }), 9);
    // A count alone takes no memory: 1024 groups need their lists, and a matrix for their nodes.
    Array<Integer> groups(Bounds{1, 1024});
    const auto error = [&](int Nk) {
        return test::ErrorOf([&] { geometry.ComposedCoefficients(Nk, kij, Gk, groups); });
    };
    EXPECT_EQ(error(32767), 9);
    groups(1) = groups(1024) = 2;
    EXPECT_EQ(error(1024), 9);
    EXPECT_EQ(Gk.UBound(), 2);
    groups(1024) = -5; // a group without nodes
    groups(1) = 3;
    EXPECT_EQ(error(1024), 0);
    EXPECT_EQ(Gk(1, 1).Value(), 16777216);
}

/// Settlement, and loads of corner, side and centre, of nine piles under a rigid cap, over those of
/// the mean pile; the flexibility sums over as many piles as `count` tells.
void ExpectCap(Reals F, Reals count) {
    const int n = count.UBound();
    Reals settlement = count;
    Reals load;
    Math_Class().SolvingSystemLinearEquationsUnsymmetricalMatrix(n, F, settlement, load);
    double mean = 0;
    for (int i = 1; i <= n; ++i) {
        mean += (count(i) * load(i)).Value() / 9;
    }
    const double factors[] = {1, load(1).Value(), load((n + 1) / 2).Value(), load(n).Value()};
    const double expected[] = {2.449761, 1.172132, 0.918673, 0.636782};
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(factors[i] / mean, expected[i], 2E-6) << n << " " << i;
    }
}

TEST(ComposedCoefficients, RigidCapOnNinePiles) {
    // Corners, middles of the sides, centre; interaction 1 / (1 + s), s = 3 at the next pile.
    const int at[9][2] = {{0, 0}, {2, 0}, {0, 2}, {2, 2}, {1, 0}, {1, 2}, {0, 1}, {2, 1}, {1, 1}};
    Reals kij(Bounds{1, 9}, Bounds{1, 9});
    for (int of = 0; of < 81; ++of) {
        const auto& a = at[of / 9];
        const auto& b = at[of % 9];
        kij(of / 9 + 1, of % 9 + 1) = 1 / (1 + 3 * std::hypot(a[0] - b[0], a[1] - b[1]));
    }
    Reals Gk;
    geometry.ComposedCoefficients(9, kij, Gk, N({1, 1, 1, 1, 1, 1, 1, 1, 1}));
    ExpectCap(Gk, R({1, 1, 1, 1, 1, 1, 1, 1, 1}));
    // The quarter: each of its piles stands for 4 / Cf of the whole, its mirror images.
    Reals Cf;
    geometry.ContributedFactor(SymmetricCase::XY_Symmetric, 4, Cf, 1, 1, R({0, 1, 0, 1}),
                               R({0, 0, 1, 1}));
    geometry.ComposedCoefficients(4, kij, Gk, N({4, 2, 2, 1}));
    ExpectCap(Gk, R({4 / Cf(1), 4 / Cf(2), 4 / Cf(3), 4 / Cf(4)}));
}

} // namespace
} // namespace torlib
