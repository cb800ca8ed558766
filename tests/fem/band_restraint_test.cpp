// Width of the band, imposed values against the dense reduced system, cancellation, repeated
// restraints.

#include "fem_test_tools.h"

#include "torlib/frame/run_state.h"
#include "torlib/platform/component/dynamic_object.h"
#include "torlib/platform/windows/events.h"

#include <random>
#include <utility>
#include <vector>

namespace torlib::test {
namespace {

TEST(BandWidth, LargestDifferenceWithinOneElement) {
    struct Case {
        std::vector<std::vector<int>> elements;
        int width;
    };
    const Case cases[] = {
        {{}, 3},
        {{{1, 2, 5, 4}}, 15},
        {{{3, 3, 3}}, 3},
        {{{1, 2, 3}, {40, 42, 47}, {90, 91, 90}}, 24},
        {{{1, 2, 3}, {10, 4, 9, 5}}, 21}, // first corner, first and second
        {{{2, 3, 9, 4}}, 24},
        {{{4, 5, 3, 9}}, 21}, // third and fourth
    };
    for (const Case& c : cases) {
        const int NE = static_cast<int>(c.elements.size());
        Array<Integer> types(Bounds{1, NE});
        Array<Integer> corners(Bounds{1, NE}, Bounds{1, 4});
        for (int e = 1; e <= NE; ++e) {
            const auto& nodes = c.elements[static_cast<std::size_t>(e - 1)];
            types(e) = static_cast<int>(nodes.size());
            for (int k = 1; k <= types(e); ++k) {
                corners(e, k) = nodes[static_cast<std::size_t>(k - 1)];
            }
        }
        Integer Nw = -1;
        EXPECT_FALSE(FEM_Class().GetBandWidth(Nw, NE, types, corners));
        EXPECT_EQ(+Nw, c.width);
    }
}

TEST(BandWidth, Failures) {
    Array<Integer> corners(Bounds{1, 1}, Bounds{1, 6});
    Integer Nw;
    const auto run = [&](int type) {
        return ErrorOf(
            [&] { FEM_Class().GetBandWidth(Nw, 1, ArrayFromOne<Integer>({type}), corners); });
    };
    EXPECT_EQ(run(4), 0);
    EXPECT_EQ(run(5), 9) << "more than 4 corners";
    corners(1, 2) = 10922;
    EXPECT_EQ(run(3), 6) << "width 32769";
    corners(1, 2) = 10921;
    EXPECT_EQ(run(3), 0);
}

/// A random positive definite band system, with its zero rows at the foot.
struct BandSystem {
    explicit BandSystem(unsigned seed)
        : A(Bounds{1, N3 + Nw - 1}, Bounds{1, Nw}), Q(Bounds{1, N3 + Nw - 1}) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> entry(-1, 1);
        for (int n = 1; n <= N3; ++n) {
            Q(n) = entry(random);
            A(n, 1) = 9 + entry(random);
            for (int l = 2; l <= Nw && n + l - 1 <= N3; ++l) {
                A(n, l) = entry(random);
            }
        }
    }
    double K(int i, int j) const {
        const int l = std::abs(i - j) + 1;
        return l <= Nw ? A(std::min(i, j), l).Value() : 0;
    }

    static constexpr int N3 = 14;
    static constexpr int Nw = 5;
    Array<Single> A;
    Array<Single> Q;
};

/// Solves the dense system of the equations that are not prescribed, in double precision.
std::vector<double> DenseReduced(const BandSystem& s,
                                 const std::vector<std::pair<int, double>>& held) {
    const int n = BandSystem::N3;
    std::vector<std::vector<double>> M(static_cast<std::size_t>(n),
                                       std::vector<double>(static_cast<std::size_t>(n) + 1));
    for (int i = 1; i <= n; ++i) {
        auto& row = M[static_cast<std::size_t>(i - 1)];
        for (int j = 1; j <= n; ++j) {
            row[static_cast<std::size_t>(j - 1)] = s.K(i, j);
        }
        row.back() = s.Q(i).Value();
        for (const auto& [equation, value] : held) {
            if (equation == i) {
                std::fill(row.begin(), row.end(), 0.0);
                row[static_cast<std::size_t>(i - 1)] = 1;
                row.back() = value;
            }
        }
    }
    const auto size = static_cast<std::size_t>(n);
    for (std::size_t k = 0; k < size; ++k) {
        for (std::size_t i = 0; i < size; ++i) {
            const double factor = i == k ? 0 : M[i][k] / M[k][k];
            for (std::size_t j = k; j <= size; ++j) {
                M[i][j] -= factor * M[k][j];
            }
        }
    }
    std::vector<double> solution;
    for (std::size_t k = 0; k < size; ++k) {
        solution.push_back(M[k][size] / M[k][k]);
    }
    return solution;
}

TEST(Restraints, EqualDenseReducedSolution) {
    const std::vector<std::vector<std::pair<int, double>>> lists = {
        {},
        {{1, 0.0}},
        {{14, 2.5}},
        {{7, 0.5}, {3, -1.25}, {4, 0.0}},
        {{14, 1.0}, {1, 2.0}, {10, 3.0}}};
    for (const auto& held : lists) {
        BandSystem system(3);
        const std::vector<double> expected = DenseReduced(system, held);
        Array<Integer> NS;
        Array<Single> AufL;
        Integer NF = 0;
        for (const auto& [equation, value] : held) {
            AppendRestraint(NF, NS, AufL, equation, value);
        }
        FEM_Class fem;
        EXPECT_FALSE(fem.SetBoundaryToMatrix(BandSystem::Nw, NF, system.A, system.Q, AufL, NS));
        for (const auto& [equation, value] : held) {
            EXPECT_EQ(system.A(equation, 1).Value(), 1);
            EXPECT_EQ(system.Q(equation).Value(), static_cast<float>(value));
            for (int other = 1; other <= BandSystem::N3; ++other) {
                EXPECT_EQ(system.K(equation, other), other == equation ? 1 : 0);
            }
        }
        EXPECT_FALSE(fem.SolveMatrix(BandSystem::Nw, BandSystem::N3, system.A, system.Q));
        for (int n = 1; n <= BandSystem::N3; ++n) {
            EXPECT_NEAR(system.Q(n).Value(), expected[static_cast<std::size_t>(n - 1)], 1e-6) << n;
        }
        for (const auto& [equation, value] : held) {
            EXPECT_EQ(system.Q(equation).Value(), static_cast<float>(value));
        }
    }
}

TEST(Restraints, LastOfRepeatedValuesHolds) {
    BandSystem system(4);
    FEM_Class().SetBoundaryToMatrix(5, 2, system.A, system.Q, ArrayFromOne<Single>({2, 3}),
                                    ArrayFromOne<Integer>({6, 6}));
    EXPECT_EQ(system.Q(6).Value(), 3);
}

TEST(Restraints, MissingTrailingRowsFail) {
    BandSystem system(5);
    Array<Single> A(Bounds{1, 14}, Bounds{1, 5});
    Array<Single> Q(Bounds{1, 14});
    const auto run = [&](Array<Single>& load) {
        return ErrorOf([&] {
            FEM_Class().SetBoundaryToMatrix(5, 1, A, load, ArrayFromOne<Single>({0}),
                                            ArrayFromOne<Integer>({12}));
        });
    };
    EXPECT_EQ(run(Q), 9);
    EXPECT_EQ(run(system.Q), 0);
}

// A cancel that arrives at poll number k stops there: the stages of one restraint show.
TEST(Restraints, CancelStopsAtOnce) {
    struct Stage {
        bool rowMoved;
        bool rowCleared;
        bool columnCleared;
    };
    const Stage stages[] = {
        {false, false, false}, {true, false, false}, {true, true, false}, {true, true, true}};
    for (int poll = 1; poll <= 4; ++poll) {
        BandSystem system(6);
        const float above = system.A(5, 2).Value();
        bool unloaded = false;
        DynamicObject form("form");
        form.DefineMethod(u"Unload", [&](std::span<Argument>) {
            unloaded = true;
            return Variant();
        });
        int polls = 0;
        SetEventSource(
            [&] { ExitControlState() = ++polls == poll ? ExitCancelRequested : ExitRunning; });
        EXPECT_TRUE(FEM_Class().SetBoundaryToMatrix(5, 1, system.A, system.Q,
                                                    ArrayFromOne<Single>({9}),
                                                    ArrayFromOne<Integer>({6}), form.Reference()));
        SetEventSource({});
        ExitControlState() = ExitRunning;
        EXPECT_TRUE(unloaded);
        EXPECT_EQ(polls, poll);
        const Stage& stage = stages[poll - 1];
        EXPECT_EQ(system.Q(6).Value() == 9, stage.rowMoved);
        EXPECT_EQ(system.A(6, 2).Value() == 0, stage.rowCleared);
        EXPECT_EQ(system.A(5, 2).Value() == 0, stage.columnCleared);
        EXPECT_NE(above, 0);
    }
}

TEST(Restraints, DuplicatesKeepTheirFirstEntry) {
    auto NS = ArrayFromOne<Integer>({7, 3, 7, 9, -1, 3, -1});
    auto AufL = ArrayFromOne<Single>({0, 0.25, 0.5, 0, 4, 5, 6});
    Integer NF = 7;
    RemoveDuplicateBoundary(NF, NS, AufL);
    ASSERT_EQ(+NF, 4);
    ASSERT_EQ(NS.UBound(), 4);
    ASSERT_EQ(AufL.UBound(), 4);
    const int equations[] = {0, 7, 3, 9, -1};
    const double values[] = {0, 0, 0.25, 0, 4};
    for (int i = 0; i <= 4; ++i) {
        EXPECT_EQ(+NS(i), equations[i]);
        EXPECT_EQ(AufL(i).Value(), values[i]);
    }
    NF = 0;
    RemoveDuplicateBoundary(NF, NS, AufL);
    EXPECT_EQ(+NF, 0);
    EXPECT_EQ(NS.LBound(), 0);
    EXPECT_EQ(NS.UBound(), 0);
    EXPECT_EQ(AufL.UBound(), 0);
}

} // namespace
} // namespace torlib::test
