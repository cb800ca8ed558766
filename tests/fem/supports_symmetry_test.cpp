// Support texts and symmetry lines: exact restraint lists, since their order is part of the result;
// half and quarter models against the whole plate.

#include "fem_test_tools.h"

#include <functional>
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

TEST(Supports, TextsScaleAndBuildTheList) {
    const auto KA = ArrayFromOne<Integer>({4, 2});
    auto De = ArrayFromOne<String>({u"1.5", u"F", u"1.5", u"0", u"F", u"-0.001"});
    RestraintList list;
    FEM_Class().SetBoundaryInSystem(3, 2, 2, KA, De, list.NF, list.NS, list.AufL);
    const char16_t* texts[] = {u"0.015", u"F", u"1.5", u"0", u"F", u"-0.001"};
    for (int i = 1; i <= 6; ++i) {
        EXPECT_EQ(De(i), texts[i - 1]);
    }
    EXPECT_EQ(list.Read(), (Entries{{10, 0.015F}, {12, 1.5}, {4, 0}, {6, -0.001F}}));
    FEM_Class().SetBoundaryInSystem(3, 2, 2, KA, De, list.NF, list.NS, list.AufL);
    const auto again = static_cast<float>(0.015F / 100.0);
    EXPECT_EQ(list.Read(), (Entries{{10, again}, {12, 1.5}, {4, 0}, {6, -0.001F}}));
}

TEST(Supports, AllFreeLeavesTheArrays) {
    auto De = ArrayFromOne<String>({u"F", u"F", u"F"});
    RestraintList list{3, ArrayFromOne<Integer>({9, 8, 7}), ArrayFromOne<Single>({1, 2, 3})};
    FEM_Class().SetBoundaryInSystem(3, 1, 1, ArrayFromOne<Integer>({1}), De, list.NF, list.NS,
                                    list.AufL);
    EXPECT_EQ(+list.NF, 0);
    EXPECT_EQ(+list.NS(3), 7);
    EXPECT_EQ(list.AufL(3).Value(), 3);
}

TEST(Supports, Failures) {
    auto De = ArrayFromOne<String>({u"F", u"0", u"F"});
    RestraintList list;
    const auto run = [&](int node, int count) {
        return ErrorOf([&] {
            FEM_Class().SetBoundaryInSystem(3, 1, count, ArrayFromOne<Integer>({node}), De, list.NF,
                                            list.NS, list.AufL);
        });
    };
    EXPECT_EQ(run(10923, 1), 6); // equation 32768
    EXPECT_EQ(list.Read(), (Entries{{0, 0}})) << "the list grows before the equation is formed";
    EXPECT_EQ(run(10922, 1), 0); // equation 32765
    EXPECT_EQ(run(1, 2), 9);
    De(2) = u"none";
    EXPECT_EQ(run(3, 1), 13);
    EXPECT_EQ(list.Read(), (Entries{{8, 0}})) << "the equation comes before the value";
}

// Four nodes: 3 in the corner of the symmetry lines, 2 on x = xmax, 4 on y = ymax, 1 on neither
// though closer to both lines than twice the tolerance.
const auto X = ArrayFromOne<Single>({-0.001, 0, -0.0005, -5});
const auto Y = ArrayFromOne<Single>({-0.001, -4, 0, -0.0009});

struct SymmetryCase {
    SymmetricCase Isym;
    std::vector<int> plate;
    std::vector<int> wall;
    std::vector<int> frame;
};
using enum SymmetricCase;
const SymmetryCase SymmetryCases[] = {
    {Unsymmetric, {}, {}, {}},
    {X_symmetric, {9, 12}, {8, 11}, {11, 8, 12, 9}},
    {Y_Symmetric, {5, 8}, {4, 7}, {7, 4, 9, 6}},
    {XY_Symmetric, {9, 12, 5, 8}, {4, 7, 8, 11}, {7, 4, 9, 6, 11, 8, 12}},
    {X_AntiSymmetric, {7, 8, 10, 11}, {7, 10}, {10, 7}},
    {Y_AntiSymmetric, {4, 6, 7, 9}, {5, 8}, {8, 5}},
};

TEST(Symmetry, ListsInOrder) {
    const FEM_Class fem;
    const auto Np1 = ArrayFromOne<Integer>({4, 2, 4});
    const auto Np2 = ArrayFromOne<Integer>({3, 3, 1});
    for (const SymmetryCase& c : SymmetryCases) {
        const auto check = [&](const char* name, const std::vector<int>& equations,
                               const auto& run) {
            RestraintList list;
            run(list);
            Entries expected;
            for (const int equation : equations) {
                expected.emplace_back(equation, 0.0);
            }
            EXPECT_EQ(list.Read(), expected) << name << ", case " << static_cast<int>(c.Isym);
        };
        check("plate", c.plate, [&](RestraintList& list) {
            fem.SymmetricalBoundaryPlate(4, X, Y, c.Isym, list.NF, list.AufL, list.NS);
        });
        check("wall", c.wall, [&](RestraintList& list) {
            fem.SymmetricalBoundaryWall(4, X, Y, c.Isym, list.NF, list.AufL, list.NS);
        });
        check("frame", c.frame, [&](RestraintList& list) {
            fem.SymmetricalBoundaryFrame(3, Np1, Np2, X, Y, c.Isym, list.NF, list.AufL, list.NS);
        });
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

// The loads of each case share its symmetry; the left, lower or lower left part of the whole plate
// must deflect as the model that is cut at the lines.
TEST(Symmetry, PartModelsEqualTheWholePlate) {
    struct Case {
        SymmetricCase Isym;
        int signX; // of the load mirrored to the other side of x = xmax
        int signY;
    };
    const int n = 8;
    for (const Case& c : {Case{X_symmetric, 0, 1},
                          {Y_Symmetric, 1, 0},
                          {XY_Symmetric, 1, 1},
                          {X_AntiSymmetric, 0, -1},
                          {Y_AntiSymmetric, -1, 0}}) {
        const int cutX = c.signX != 0 ? n / 2 : n;
        const int cutY = c.signY != 0 ? n / 2 : n;
        PlateModel whole(n, n, 2, 3);
        PlateModel part(cutX, cutY, 2.0 * cutX / n, 3.0 * cutY / n);
        whole.Assemble(0);
        part.Assemble(0);
        const int i = 2;
        const int j = 3;
        const auto load = [](PlateModel& model, int node, double P) {
            Single& q = model.Q(PlateModel::Equation(node, 1));
            q = q + P;
        };
        load(part, part.Node(i, j), 1);
        load(whole, whole.Node(i, j), 1);
        if (c.signX != 0) {
            load(whole, whole.Node(n - i, j), c.signX);
        }
        if (c.signY != 0) {
            load(whole, whole.Node(i, n - j), c.signY);
        }
        if (c.signX != 0 && c.signY != 0) {
            load(whole, whole.Node(n - i, n - j), c.signX * c.signY);
        }
        whole.SupportEdges(true, true, true, true, false);
        part.SupportEdges(true, cutX == n, true, cutY == n, false);
        part.fem.SymmetricalBoundaryPlate(part.Nk, part.X, part.Y, c.Isym, part.NF, part.AufL,
                                          part.NS);
        whole.Solve();
        part.Solve();
        const double largest = whole.Value(whole.Node(i, j));
        EXPECT_GT(largest, 0.001);
        for (int node = 1; node <= part.Nk; ++node) {
            const int same = whole.Node((node - 1) % (cutX + 1), (node - 1) / (cutX + 1));
            for (int freedom = 1; freedom <= 3; ++freedom) {
                EXPECT_NEAR(part.Value(node, freedom), whole.Value(same, freedom), 2e-4 * largest)
                    << "case " << static_cast<int>(c.Isym) << ", node " << node;
            }
        }
    }
}

} // namespace
} // namespace torlib::test
