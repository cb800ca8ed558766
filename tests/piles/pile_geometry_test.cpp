// Nodes of piles and piled rafts, weights on symmetry lines, and a rigid cap on nine piles.

#include "tests/error_text.h"
#include "torlib/piles/pile_geometry_class.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace torlib {
namespace {

using test::ErrorOf;
using test::ErrorText;

const PileGeometry_Class geometry;

struct Nodes {
    Array<Integer> NK_P, NE_P, Kind, Nak_Raft, NK_PR, Nak_Pile;
    Array<Single> ro, X, Y, Z, LG1, LG2;
    Integer Count;

    /// The nodes of one pile are stacked without gaps, with the base below them.
    void ExpectPile(int first, int segments, double x, double y, double length, double radius,
                    int raftNode) const {
        for (int k = 0; k <= segments; ++k) {
            const int n = first + k;
            const bool base = k == segments;
            EXPECT_EQ(Kind(n), base ? 2 : 1);
            EXPECT_EQ(Nak_Raft(n), raftNode);
            EXPECT_EQ(X(n).Value(), static_cast<float>(x));
            EXPECT_EQ(Y(n).Value(), static_cast<float>(y));
            EXPECT_EQ(ro(n).Value(), static_cast<float>(radius));
            EXPECT_NEAR(LG1(n).Value(), base ? length : k * length / segments, 2E-6);
            EXPECT_NEAR(LG2(n).Value(), base ? length : (k + 1) * length / segments, 2E-6);
            EXPECT_NEAR(2 * Z(n).Value(), LG1(n).Value() + LG2(n).Value(), 4E-6);
        }
    }
};

/// Two rows of three raft nodes 2 m apart.
struct Raft {
    Array<Single> X = ArrayFromOne<Single>({0, 2, 4, 0, 2, 4}),
                  Y = ArrayFromOne<Single>({0, 0, 0, 2, 2, 2}),
                  Area = ArrayFromOne<Single>({1, 2, 1, 1, 2, 1});

    void Generate(const Array<Single>& XPl, const Array<Single>& YPl, Nodes& nodes) const {
        const Array<Single> Lp = ArrayFromOne<Single>({4.5, 6});
        const Array<Single> Dp = ArrayFromOne<Single>({0.5, 1});
        geometry.GenerationOfPiledRaftSystems(6, X, Y, Area, 2, XPl, YPl, Lp, Dp, nodes.ro, nodes.X,
                                              nodes.Y, nodes.Z, nodes.LG1, nodes.LG2, nodes.Kind,
                                              nodes.Nak_Pile, nodes.Nak_Raft, nodes.NK_P,
                                              nodes.NE_P, nodes.Count, nodes.NK_PR, 1.5);
    }
};

TEST(PileNodes, SegmentsOfAboutTheWantedLength) {
    const struct {
        double Length, Dz;
        int Segments;
    } cases[] = {{10, 1, 10}, {10.5, 1, 10}, {11.5, 1, 12}, {7, 2.75, 3}, {2, 3, 1}};
    for (const auto& of : cases) {
        const Array<Single> Lp = ArrayFromOne<Single>({of.Length, 4 * of.Dz});
        Nodes nodes;
        geometry.GenerationOfPileGeometry(
            2, Lp, ArrayFromOne<Single>({0.8, 1}), ArrayFromOne<Single>({3, 7}),
            ArrayFromOne<Single>({5, 6}), nodes.NK_P, nodes.NE_P, nodes.ro, nodes.X, nodes.Y,
            nodes.Z, nodes.LG1, nodes.LG2, nodes.Kind, of.Dz, ArrayFromOne<Integer>({12, 11}),
            nodes.Nak_Raft, nodes.Count);
        ASSERT_EQ(nodes.NE_P(1), of.Segments);
        ASSERT_EQ(nodes.NK_P(1), of.Segments + 1);
        ASSERT_EQ(nodes.Count, of.Segments + 6);
        EXPECT_EQ(nodes.Z.UBound(), nodes.Count);
        nodes.ExpectPile(1, of.Segments, 3, 5, of.Length, 0.4, 12);
        nodes.ExpectPile(of.Segments + 2, 4, 7, 6, 4 * of.Dz, 0.5, 11);
    }
    Nodes none;
    const Array<Single> one = ArrayFromOne<Single>({0.5});
    for (const auto& [Dz, error] : {std::pair(1.0, 11), {0.0, 11}, {1E-5, 6}}) {
        EXPECT_EQ(ErrorOf([&, wanted = Dz] {
                      geometry.GenerationOfPileGeometry(1, one, one, one, one, none.NK_P, none.NE_P,
                                                        none.ro, none.X, none.Y, none.Z, none.LG1,
                                                        none.LG2, none.Kind, wanted,
                                                        ArrayFromOne<Integer>({1}), none.Nak_Raft);
                  }),
                  error);
    }
}

TEST(PiledRaftNodes, APileReplacesItsRaftNode) {
    const Raft raft;
    Nodes nodes;
    raft.Generate(ArrayFromOne<Single>({4, 2.005}), ArrayFromOne<Single>({2, 0.005}), nodes);
    ASSERT_EQ(nodes.Count, 6 + 4 + 5 - 2);
    EXPECT_EQ(nodes.Nak_Pile(1) * 10 + nodes.Nak_Pile(2), 62);
    const int sizes[] = {1, 5, 1, 1, 1, 4};
    int n = 1;
    for (int j = 1; j <= 6; ++j) {
        ASSERT_EQ(nodes.NK_PR(j), sizes[j - 1]);
        if (j == 2) {
            nodes.ExpectPile(n, 4, 2.005, 0.005, 6, 0.5, 2);
        } else if (j == 6) {
            nodes.ExpectPile(n, 3, 4, 2, 4.5, 0.25, 6);
        } else {
            EXPECT_EQ(nodes.Kind(n), 3);
            EXPECT_EQ(nodes.X(n).Value(), raft.X(j).Value());
            EXPECT_EQ(nodes.Y(n).Value(), raft.Y(j).Value());
            EXPECT_EQ(nodes.Z(n).Value() + nodes.LG1(n).Value() + nodes.LG2(n).Value(), 0);
            EXPECT_NEAR(std::pow(nodes.ro(n).Value(), 2) * std::numbers::pi, raft.Area(j).Value(),
                        1E-6);
        }
        n += sizes[j - 1];
    }
}

TEST(PiledRaftNodes, RefusesPilesWithoutANodeOfTheirOwn) {
    const struct {
        double x, y;
        const char* Text;
    } cases[] = {
        {2.02, 0, "pile 2 stands on no raft node: none is less than 0.01 away in x and in y"},
        {0, 2.02, "pile 2 stands on no raft node: none is less than 0.01 away in x and in y"},
        {4.005, 2, "pile 2 stands on raft node 6, where pile 1 stands already"},
    };
    for (const auto& of : cases) {
        Nodes nodes;
        EXPECT_EQ(ErrorText([&] {
                      Raft().Generate(ArrayFromOne<Single>({4, of.x}),
                                      ArrayFromOne<Single>({2, of.y}), nodes);
                  }),
                  std::string("PileGeometry_Class.GenerationOfPiledRaftSystems: ") + of.Text +
                      " (error 5)");
        EXPECT_EQ(nodes.Nak_Pile.Dimensions() + nodes.NE_P.Dimensions() + nodes.Count, 0);
    }
}

TEST(PiledRaftNodes, MarksForTheSinglePileMethod) {
    Raft raft;
    raft.X(5) = 4.006; // pile 1 reaches the nodes 5 and 6, pile 2 none
    for (const auto& [method, other] : {std::pair(1, 0), {2, 3}, {3, 7}}) {
        Array<Integer> marks = ArrayFromOne<Integer>({7, 7, 7, 7, 7, 7});
        Array<Integer> Nak_Pile = ArrayFromOne<Integer>({1, 2});
        geometry.GenerationOfPiledRaftSystemsDIN4014(
            6, raft.X, raft.Y, 2, ArrayFromOne<Single>({4.003, 20}), ArrayFromOne<Single>({2, 0}),
            marks, Nak_Pile, method);
        EXPECT_EQ(Nak_Pile(1) * 10 + Nak_Pile(2), 62);
        for (int j = 1; j <= 6; ++j) {
            EXPECT_EQ(marks(j), j == 2 || j == 6 ? 4 : other) << j;
        }
    }
}

TEST(PileNumbers, LargestAndNumberOfEach) {
    EXPECT_EQ(geometry.MaxDim(3, ArrayFromOne<Integer>({2, 9, 4, 30})), 9);
    EXPECT_EQ(geometry.MaxDim(2, ArrayFromOne<Integer>({-2, -9})), 0);
    EXPECT_EQ(geometry.MaxDim(0, {}), 0);
    Single x;
    Single y;
    geometry.MaxCoordinates(3, ArrayFromOne<Single>({-5, -2, -3, 8}),
                            ArrayFromOne<Single>({7, 1, 2, 8}), x, y);
    EXPECT_EQ(x.Value(), -2);
    EXPECT_EQ(y.Value(), 7);
    Array<Integer> numbers;
    const auto expect = [&](const std::vector<int>& from1) {
        ASSERT_EQ(numbers.UBound(), static_cast<int>(from1.size()));
        for (int i = 1; i <= numbers.UBound(); ++i) {
            EXPECT_EQ(numbers(i), from1[static_cast<std::size_t>(i - 1)]) << i;
        }
    };
    geometry.SetPileNo(ArrayFromOne<Integer>({4, 2, 4}), numbers, 5, 3);
    expect({0, 2, 0, 3, 0});
    geometry.SetRaftNodeNo(ArrayFromOne<Integer>({8, 6, 7}), numbers, 2);
    expect({8, 6});
    geometry.ResolveNodeNumber(numbers, 4);
    expect({1, 2, 3, 4});
    geometry.ResolveSymmetryNode(3, numbers);
    expect({1, 2, 3});
}

TEST(ContributionFactors, OnSymmetryLines) {
    using enum SymmetricCase;
    const Array<Single> Xc = ArrayFromOne<Single>({0, 5, 0, 4.999});
    const Array<Single> Yc = ArrayFromOne<Single>({0, 0, 3.001, 3});
    const struct {
        SymmetricCase Case;
        double Factors[4];
    } cases[] = {{XY_Symmetric, {1, 2, 2, 4}},    {X_symmetric, {1, 1, 2, 2}},
                 {Y_Symmetric, {1, 2, 1, 2}},     {Unsymmetric, {1, 1, 1, 1}},
                 {X_AntiSymmetric, {1, 1, 1, 1}}, {Y_AntiSymmetric, {1, 1, 1, 1}}};
    for (const auto& of : cases) {
        Array<Single> Cf;
        geometry.ContributedFactor(of.Case, 4, Cf, 5, 3, Xc, Yc);
        for (int i = 1; i <= 4; ++i) {
            EXPECT_EQ(Cf(i).Value(), of.Factors[i - 1]) << static_cast<int>(of.Case) << " " << i;
        }
    }
    const struct {
        float a, b;
        bool Equal;
    } texts[] = {{4.999F, 5, true},       {4.99F, 5, false},       {0.125F, 0.13F, true},
                 {0.125F, 0.12F, false},  {-0.125F, -0.13F, true}, {-0.004F, 0, true},
                 {0.005F, 0, true},       {1.005F, 1, true},       {-0.01F, 0.01F, false},
                 {0.00501F, 0.01F, true}, {3E38F, 2.9E38F, false}};
    for (const auto& of : texts) {
        Array<Single> Cf;
        geometry.ContributedFactor(Y_Symmetric, 1, Cf, of.a, 0, ArrayFromOne<Single>({of.b}), {});
        EXPECT_EQ(Cf(1).Value() == 2, of.Equal) << of.a << " " << of.b;
    }
}

TEST(ContributionFactors, NodesInheritFromTheFirstPileAtTheirPlace) {
    Array<Single> Cf = ArrayFromOne<Single>({4, 2, 9});
    const Single next = std::nextafterf(1, 2);
    geometry.GlobalContributedFactor(
        3, 5, ArrayFromOne<Single>({1, 1, 0, 0, next}), ArrayFromOne<Single>({1, 1, 1, 0, 1}),
        ArrayFromOne<Single>({1, 0, 1}), ArrayFromOne<Single>({1, 1, 1}), Cf);
    const double expected[] = {0, 4, 4, 2, 1, 1};
    ASSERT_EQ(Cf.UBound(), 5);
    for (int n = 0; n <= 5; ++n) {
        EXPECT_EQ(Cf(n).Value(), expected[n]) << n;
    }
}

TEST(ComposedCoefficients, SumsAreKeptIn32Bits) {
    Array<Single> kij(Bounds{1, 3}, Bounds{1, 3});
    kij(1, 1) = 16777216;
    kij(1, 2) = kij(2, 1) = kij(3, 1) = 1;
    Array<Single> Gk;
    geometry.ComposedCoefficients(2, kij, Gk, ArrayFromOne<Integer>({2, 1}));
    EXPECT_EQ(Gk(1, 1).Value(), 16777216);
    EXPECT_EQ(Gk(2, 1).Value(), 1);
    EXPECT_EQ(ErrorText([&] {
                  geometry.ComposedCoefficients(2, kij, Gk, ArrayFromOne<Integer>({2, 2}));
              }),
              "PileGeometry_Class.ComposedCoefficients: kij: index (1, 4) outside (1..3, 1..3) "
              "(error 9)");
}

/// Loads under a rigid cap that settles by 1: F(i, j) P(j) = weight(i).
std::vector<double> LoadsUnderCap(const Array<Single>& F, std::vector<double> weight) {
    const auto n = weight.size();
    std::vector<std::vector<double>> A(n, std::vector<double>(n));
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            A[i][j] = F(static_cast<int>(i) + 1, static_cast<int>(j) + 1).Value();
        }
    }
    for (std::size_t p = 0; p < n; ++p) {
        for (std::size_t i = 0; i < n; ++i) {
            const double f = i == p ? 0 : A[i][p] / A[p][p];
            for (std::size_t j = 0; j < n; ++j) {
                A[i][j] -= f * A[p][j];
            }
            weight[i] -= f * weight[p];
        }
    }
    for (std::size_t p = 0; p < n; ++p) {
        weight[p] /= A[p][p];
    }
    return weight;
}

TEST(ComposedCoefficients, RigidCapOnNinePiles) {
    // Corners, middles of the sides, centre; interaction 1 / (1 + s), s = 3 at the next pile.
    const int at[9][2] = {{0, 0}, {2, 0}, {0, 2}, {2, 2}, {1, 0}, {1, 2}, {0, 1}, {2, 1}, {1, 1}};
    Array<Single> kij(Bounds{1, 9}, Bounds{1, 9});
    for (int i = 0; i < 9; ++i) {
        for (int j = 0; j < 9; ++j) {
            kij(i + 1, j + 1) = 1 / (1 + 3 * std::hypot(at[i][0] - at[j][0], at[i][1] - at[j][1]));
        }
    }
    const auto expectCap = [](const std::vector<double>& loads, const std::vector<double>& count) {
        double total = 0;
        for (std::size_t i = 0; i < loads.size(); ++i) {
            total += count[i] * loads[i];
        }
        EXPECT_NEAR(9 / total, 2.449761, 2E-6);
        EXPECT_NEAR(loads.front() * 9 / total, 1.172132, 2E-6);
        EXPECT_NEAR(loads[loads.size() / 2] * 9 / total, 0.918673, 2E-6);
        EXPECT_NEAR(loads.back() * 9 / total, 0.636782, 2E-6);
    };
    Array<Single> Gk;
    geometry.ComposedCoefficients(9, kij, Gk, ArrayFromOne<Integer>({1, 1, 1, 1, 1, 1, 1, 1, 1}));
    expectCap(LoadsUnderCap(Gk, std::vector<double>(9, 1)), std::vector<double>(9, 1));

    // The quarter: each of its piles stands for 4 / Cf of the whole, its mirror images.
    Array<Single> Cf;
    geometry.ContributedFactor(SymmetricCase::XY_Symmetric, 4, Cf, 1, 1,
                               ArrayFromOne<Single>({0, 1, 0, 1}),
                               ArrayFromOne<Single>({0, 0, 1, 1}));
    std::vector<double> count;
    Array<Integer> NK_PR(Bounds{1, 4});
    for (int i = 1; i <= 4; ++i) {
        NK_PR(i) = ToInteger(4 / Cf(i));
        count.push_back(NK_PR(i));
    }
    geometry.ComposedCoefficients(4, kij, Gk, NK_PR);
    expectCap(LoadsUnderCap(Gk, count), count);
}

} // namespace
} // namespace torlib
