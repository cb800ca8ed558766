// Support texts and symmetry lines: exact restraint lists, since their order is part of the result.

#include "fem_test_tools.h"

#include <utility>
#include <vector>

namespace torlib::test {
namespace {

using Entries = std::vector<std::pair<int, double>>;

struct RestraintList {
    Integer NF = 0;
    Array<Integer> NS;
    Array<Single> AufL;

    Entries Read() const {
        Entries entries;
        for (int i = 1; i <= NF; ++i) {
            entries.emplace_back(+NS(i), AufL(i).Value());
        }
        return entries;
    }
};

/// Builds the list of three degrees of freedom a node into one that held something before.
Entries ListOf(const Array<Integer>& KA, Array<String>& De, int NDesp = 1, int more = 0) {
    RestraintList list{3, ArrayFromOne<Integer>({9, 8, 7}), ArrayFromOne<Single>({1, 2, 3})};
    const int error = ErrorOf([&] {
        FEM_Class().SetBoundaryInSystem(3, NDesp, KA.UBound() + more, KA, De, list.NF, list.NS,
                                        list.AufL);
    });
    Entries entries = list.Read();
    if (error != 0) {
        entries.emplace_back(-error, 0.0);
    } else if (list.NF == 0) { // nothing is written
        EXPECT_EQ(list.NS(3), 7);
        EXPECT_EQ(list.AufL(3), 3);
    }
    return entries;
}

TEST(Supports, TextsScaleAndBuildTheList) {
    const auto KA = ArrayFromOne<Integer>({4, 2});
    auto De = ArrayFromOne<String>({u"1.5", u"F", u"1.5", u"0", u"F", u"-0.001"});
    EXPECT_EQ(ListOf(KA, De, 2), (Entries{{10, 0.015F}, {12, 1.5}, {4, 0}, {6, -0.001F}}));
    const auto texts = ArrayFromOne<String>({u"0.015", u"F", u"1.5", u"0", u"F", u"-0.001"});
    EXPECT_TRUE(std::equal(De.Data(), De.Data() + De.Size(), texts.Data()));
    const auto again = static_cast<float>(0.015F / 100.0);
    EXPECT_EQ(ListOf(KA, De, 2), (Entries{{10, again}, {12, 1.5}, {4, 0}, {6, -0.001F}}));
    auto free = ArrayFromOne<String>({u"F", u"F", u"F"});
    EXPECT_EQ(ListOf(ArrayFromOne<Integer>({1}), free), Entries());
}

TEST(Supports, Failures) {
    auto De = ArrayFromOne<String>({u"F", u"0", u"F"});
    const auto at = [](int node) { return ArrayFromOne<Integer>({node}); };
    // Equation 32768: the list grows before the equation is formed.
    EXPECT_EQ(ListOf(at(10923), De), (Entries{{9, 1}, {-6, 0}}));
    EXPECT_EQ(ListOf(at(10922), De), (Entries{{32765, 0}}));
    EXPECT_EQ(ListOf(at(1), De, 1, 1).back().first, -9);
    De(2) = u"none"; // the equation comes before the value
    EXPECT_EQ(ListOf(at(3), De), (Entries{{8, 1}, {-13, 0}}));
}

// Four nodes: 3 in the corner of the symmetry lines, 2 on x = xmax, 4 on y = ymax, 1 on neither
// though closer to both lines than twice the tolerance.
const auto X = ArrayFromOne<Single>({-0.001, 0, -0.0005, -5});
const auto Y = ArrayFromOne<Single>({-0.001, -4, 0, -0.0009});

using enum SymmetricCase;
const struct {
    SymmetricCase Isym;
    std::vector<int> plate, wall, frame; // equations
} SymmetryCases[] = {
    {Unsymmetric, {}, {}, {}},
    {X_symmetric, {9, 12}, {8, 11}, {11, 8, 12, 9}},
    {Y_Symmetric, {5, 8}, {4, 7}, {7, 4, 9, 6}},
    {XY_Symmetric, {9, 12, 5, 8}, {4, 7, 8, 11}, {7, 4, 9, 6, 11, 8, 12}},
    {X_AntiSymmetric, {7, 8, 10, 11}, {7, 10}, {10, 7}},
    {Y_AntiSymmetric, {4, 6, 7, 9}, {5, 8}, {8, 5}},
};

Entries AtZero(const std::vector<int>& equations) {
    Entries entries;
    for (const int equation : equations) {
        entries.emplace_back(equation, 0.0);
    }
    return entries;
}

TEST(Symmetry, ListsInOrder) {
    const FEM_Class fem;
    const auto Np1 = ArrayFromOne<Integer>({4, 2, 4}), Np2 = ArrayFromOne<Integer>({3, 3, 1});
    for (const auto& [Isym, plate, wall, frame] : SymmetryCases) {
        RestraintList p, w, f;
        fem.SymmetricalBoundaryPlate(4, X, Y, Isym, p.NF, p.AufL, p.NS);
        fem.SymmetricalBoundaryWall(4, X, Y, Isym, w.NF, w.AufL, w.NS);
        fem.SymmetricalBoundaryFrame(3, Np1, Np2, X, Y, Isym, f.NF, f.AufL, f.NS);
        EXPECT_EQ(p.Read(), AtZero(plate)) << static_cast<int>(Isym);
        EXPECT_EQ(w.Read(), AtZero(wall)) << static_cast<int>(Isym);
        EXPECT_EQ(f.Read(), AtZero(frame)) << static_cast<int>(Isym);
    }
}

// 0.0010 - 7e-12 in double precision, 0.0010000000475 in 32 bits: not on the line.
TEST(Symmetry, DistanceIsRoundedTo32Bits) {
    RestraintList list;
    FEM_Class().SymmetricalBoundaryPlate(2, ArrayFromOne<Single>({-6.2e-11, 0.00099999993108}), Y,
                                         Y_Symmetric, list.NF, list.AufL, list.NS);
    EXPECT_EQ(list.Read(), (Entries{{5, 0}}));
}

TEST(Symmetry, KeepsSupportValuesAndCompacts) {
    RestraintList list{4, ArrayFromOne<Integer>({9, 8, 9, 2}),
                       ArrayFromOne<Single>({0.5, 0.25, 7, 1})};
    FEM_Class().SymmetricalBoundaryPlate(4, X, Y, XY_Symmetric, list.NF, list.AufL, list.NS);
    EXPECT_EQ(list.Read(), (Entries{{9, 0.5}, {8, 0.25}, {2, 1}, {12, 0}, {5, 0}}));
    EXPECT_EQ(list.NS.UBound() * 10 + list.AufL.UBound(), 55);
    list.NF = 0; // no node, no restraint
    FEM_Class().SymmetricalBoundaryPlate(0, X, Y, XY_Symmetric, list.NF, list.AufL, list.NS);
    EXPECT_EQ(list.NF + list.NS.UBound() + list.AufL.UBound(), 0);
    // Without symmetry the list stays as it is, repeats and all.
    list = {2, ArrayFromOne<Integer>({9, 9}), ArrayFromOne<Single>({1, 2})};
    FEM_Class().SymmetricalBoundaryPlate(4, X, Y, Unsymmetric, list.NF, list.AufL, list.NS);
    EXPECT_EQ(list.Read(), (Entries{{9, 1}, {9, 2}}));
}

TEST(Symmetry, Failures) {
    RestraintList list;
    EXPECT_EQ(ErrorOf([&] {
                  FEM_Class().SymmetricalBoundaryWall(5, X, Y, X_symmetric, list.NF, list.AufL,
                                                      list.NS);
              }),
              9);
    Array<Single> line(Bounds{1, 10923}); // all nodes on the line; the last one's equation is 32769
    EXPECT_EQ(ErrorOf([&] {
                  FEM_Class().SymmetricalBoundaryPlate(10923, line, line, Y_AntiSymmetric, list.NF,
                                                       list.AufL, list.NS);
              }),
              6);
}

} // namespace
} // namespace torlib::test
