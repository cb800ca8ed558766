// Width of the band, imposed values, cancellation.

#include "fem_test_tools.h"
#include "tests/host_window.h"

#include "torlib/frame/run_state.h"
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
    for (int e = 1; e <= NE; ++e) {
        types(e) = elements[e - 1].size();
        for (int k = 1; k <= types(e); ++k) {
            corners(e, k) = elements[e - 1][k - 1];
        }
    }
    Integer Nw;
    EXPECT_FALSE(FEM_Class().GetBandWidth(Nw, NE, types, corners));
    return Nw;
}

TEST(BandWidth, LargestDifferenceWithinOneElement) {
    EXPECT_EQ(WidthOf({}), 3);
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

// The corners that are there differ by more than 16 bits, but the one that is missing comes first.
TEST(BandWidth, ReadsAllCornersBeforeItComparesThem) {
    Array<Integer> corners(Bounds{1, 1}, Bounds{1, 2});
    corners(1, 1) = 32767;
    corners(1, 2) = -32768;
    Integer Nw = 7;
    const auto error = [&](int count) {
        return ErrorOf(
            [&] { FEM_Class().GetBandWidth(Nw, 1, ArrayFromOne<Integer>({count}), corners); });
    };
    EXPECT_EQ(error(3), 9);
    EXPECT_EQ(error(2), 6);
    corners = Array<Integer>(Bounds{1, 1}, Bounds{2, 2});
    EXPECT_EQ(error(1), 9) << "a single corner is read too";
    EXPECT_EQ(error(0), 0);
    EXPECT_EQ(Nw, 3);
}

/// A random positive definite system of 14 equations.
struct RandomSystem : BandSystem<1> {
    RandomSystem() {
        Size(14, 5);
        std::mt19937 random(3);
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
};

// Held equations take their values exactly; the others are in equilibrium with the stiffness and
// loads before the restraints were imposed.
TEST(Restraints, PrescribedValuesAndEquilibriumOfTheRest) {
    const RandomSystem original;
    for (const std::map<int, double>& held : {std::map<int, double>{},
                                              {{1, 0}},
                                              {{14, 2.5}},
                                              {{3, -1.25}, {4, 0}, {7, 0.5}},
                                              {{1, 2}, {10, 3}, {14, 1}}}) {
        RandomSystem system;
        for (const auto& [equation, value] : held) {
            system.Restrain(equation, 1, value);
        }
        system.Solve();
        for (int i = 1; i <= system.N3; ++i) {
            double residual = -original.Q(i).Value();
            for (int j = 1; j <= system.N3; ++j) {
                residual += original.K(i, j) * system.Value(j);
            }
            if (held.contains(i)) {
                EXPECT_EQ(system.Value(i), held.at(i));
            } else {
                EXPECT_NEAR(residual, 0, 1e-5) << held.size() << " held, equation " << i;
            }
        }
    }
}

TEST(Restraints, RepeatsAndMissingRows) {
    RandomSystem system;
    const auto run = [&](Array<Single>& Q, int equation) {
        const auto NS = ArrayFromOne<Integer>({equation, equation});
        return ErrorOf([&] {
            system.fem.SetBoundaryToMatrix(5, 2, system.A, Q, ArrayFromOne<Single>({2, 3}), NS);
        });
    };
    EXPECT_EQ(run(system.Q, 12), 0);
    EXPECT_EQ(system.Value(12), 3) << "the last of two values holds";
    Array<Single> exact(Bounds{1, 14});
    EXPECT_EQ(run(exact, 10), 0);
    EXPECT_EQ(run(exact, 12), 9);
}

// A cancel that arrives at poll number k stops there: the stages of one restraint show.
TEST(Restraints, CancelStopsAtOnce) {
    HostWindow window;
    for (int poll = 1; poll <= 4; ++poll) {
        RandomSystem system;
        int polls = 0;
        const EventSourceToken source = AddEventSource(
            [&] { ExitControlState() = ++polls == poll ? ExitCancelRequested : ExitRunning; });
        EXPECT_TRUE(system.fem.SetBoundaryToMatrix(5, 1, system.A, system.Q,
                                                   ArrayFromOne<Single>({9}),
                                                   ArrayFromOne<Integer>({6}), window.Reference()));
        RemoveEventSource(source);
        ExitControlState() = ExitRunning;
        EXPECT_EQ(window.Take(), "Unload;");
        EXPECT_EQ(polls, poll);
        EXPECT_EQ(system.Value(6) == 9, poll > 1);
        EXPECT_EQ(system.A(6, 2) == 0, poll > 2);
        EXPECT_EQ(system.A(5, 2) == 0, poll > 3);
    }
}

} // namespace
} // namespace torlib::test
