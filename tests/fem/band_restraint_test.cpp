// Width of the band, imposed values, cancellation, repeated
// restraints.

#include "fem_test_tools.h"

#include "torlib/frame/run_state.h"
#include "torlib/platform/component/dynamic_object.h"
#include "torlib/platform/windows/events.h"

#include <map>
#include <random>
#include <vector>

namespace torlib::test {
namespace {

int WidthOf(const std::vector<std::vector<int>>& elements) {
    const int NE = static_cast<int>(elements.size());
    Array<Integer> types(Bounds{1, NE});
    Array<Integer> corners(Bounds{1, NE}, Bounds{1, 5});
    int element = 0;
    for (const auto& nodes : elements) {
        types(++element) = static_cast<int>(nodes.size());
        int k = 0;
        for (const int node : nodes) {
            corners(element, ++k) = node;
        }
    }
    Integer Nw;
    EXPECT_FALSE(FEM_Class().GetBandWidth(Nw, NE, types, corners));
    return Nw;
}

TEST(BandWidth, LargestDifferenceWithinOneElement) {
    EXPECT_EQ(WidthOf({}), 3);
    EXPECT_EQ(WidthOf({{1, 2, 5, 4}}), 15);
    EXPECT_EQ(WidthOf({{3, 3, 3}}), 3);
    EXPECT_EQ(WidthOf({{1, 2, 3}, {40, 42, 47}, {90, 91, 90}}), 24);
    for (const auto& nodes : {std::vector{10, 4, 9, 5},
                              {10, 5, 4, 9},
                              {9, 5, 6, 3},
                              {4, 10, 5, 9},
                              {5, 10, 9, 4},
                              {5, 6, 10, 4}}) {
        EXPECT_EQ(WidthOf({nodes}), 21) << "every pair of corners may be the widest";
    }
    EXPECT_EQ(WidthOf({{1, 10922, 1}}), 32766);
    EXPECT_EQ(ErrorOf([] { WidthOf({{1, 10923, 1}}); }), 6);
    EXPECT_EQ(ErrorOf([] { WidthOf({{1, 1, 1, 1, 1}}); }), 9);
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

// Held equations take their values exactly; the others are in equilibrium with the stiffness and
// loads before the restraints were imposed.
TEST(Restraints, PrescribedValuesAndEquilibriumOfTheRest) {
    const std::vector<std::map<int, double>> lists = {
        {}, {{1, 0}}, {{14, 2.5}}, {{3, -1.25}, {4, 0}, {7, 0.5}}, {{1, 2}, {10, 3}, {14, 1}}};
    for (const auto& held : lists) {
        const BandSystem original(3);
        BandSystem system(3);
        Array<Integer> NS;
        Array<Single> AufL;
        Integer NF = 0;
        for (const auto& [equation, value] : held) {
            AppendRestraint(NF, NS, AufL, equation, value);
        }
        FEM_Class fem;
        EXPECT_FALSE(fem.SetBoundaryToMatrix(BandSystem::Nw, NF, system.A, system.Q, AufL, NS));
        EXPECT_FALSE(fem.SolveMatrix(BandSystem::Nw, BandSystem::N3, system.A, system.Q));
        for (int i = 1; i <= BandSystem::N3; ++i) {
            double residual = -original.Q(i).Value();
            for (int j = 1; j <= BandSystem::N3; ++j) {
                residual += original.K(i, j) * system.Q(j).Value();
            }
            if (held.contains(i)) {
                EXPECT_EQ(system.Q(i).Value(), held.at(i));
            } else {
                EXPECT_NEAR(residual, 0, 1e-5) << held.size() << " held, equation " << i;
            }
        }
    }
}

TEST(Restraints, RepeatsAndMissingRows) {
    BandSystem system(4);
    const FEM_Class fem;
    const auto run = [&](Array<Single>& Q, int equation) {
        const auto NS = ArrayFromOne<Integer>({equation, equation});
        return ErrorOf([&] {
            fem.SetBoundaryToMatrix(5, 2, system.A, Q, ArrayFromOne<Single>({2, 3}), NS);
        });
    };
    EXPECT_EQ(run(system.Q, 12), 0);
    EXPECT_EQ(system.Q(12).Value(), 3) << "the last of two values holds";
    Array<Single> exact(Bounds{1, BandSystem::N3});
    EXPECT_EQ(run(exact, 10), 0);
    EXPECT_EQ(run(exact, 12), 9);
}

// A cancel that arrives at poll number k stops there: the stages of one restraint show.
TEST(Restraints, CancelStopsAtOnce) {
    for (int poll = 1; poll <= 4; ++poll) {
        BandSystem system(6);
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
        EXPECT_EQ(system.Q(6).Value() == 9, poll > 1);
        EXPECT_EQ(system.A(6, 2).Value() == 0, poll > 2);
        EXPECT_EQ(system.A(5, 2).Value() == 0, poll > 3);
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
    EXPECT_EQ(NS.UBound(), 0);
    EXPECT_EQ(AufL.UBound(), 0);
}

} // namespace
} // namespace torlib::test
