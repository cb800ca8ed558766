// Assembly into the band against a dense assembly, nodal springs.

#include "fem_test_tools.h"

#include <algorithm>
#include <map>
#include <random>
#include <utility>

namespace torlib::test {
namespace {

TEST(Assembly, EqualsDenseAssembly) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> entry(-8, 8); // whole numbers: every sum is exact
    const FEM_Class fem;
    for (const int freedoms : {1, 2, 3}) {
        const int size = 6 * freedoms;
        std::map<std::pair<int, int>, double> dense;
        std::map<int, double> loads;
        Array<Single> A(Bounds{1, size}, Bounds{1, size});
        Array<Single> Q(Bounds{1, size});
        for (const auto& node : {ArrayFromOne<Integer>({6, 1, 3}), ArrayFromOne<Integer>({2, 5, 6}),
                                 ArrayFromOne<Integer>({4}), ArrayFromOne<Integer>({3, 2, 5, 1})}) {
            const int n = node.UBound() * freedoms;
            Array<Single> SK(Bounds{1, n}, Bounds{1, n});
            Array<Single> BE(Bounds{1, n});
            const auto equation = [&](int k) {
                return (node((k - 1) / freedoms + 1) - 1) * freedoms + (k - 1) % freedoms + 1;
            };
            for (int i = 1; i <= n; ++i) {
                BE(i) = entry(random);
                loads[equation(i)] += BE(i).Value();
                for (int j = 1; j <= i; ++j) {
                    SK(i, j) = entry(random);
                    SK(j, i) = SK(i, j);
                    const auto ends = std::minmax({equation(i), equation(j)});
                    dense[ends] += SK(i, j).Value();
                }
            }
            fem.GlobalStiffnessMatrix(A, SK, freedoms, node.UBound(), node);
            fem.GlobalLoadVector(Q, BE, freedoms, node.UBound(), node);
        }
        for (int i = 1; i <= size; ++i) {
            EXPECT_EQ(Q(i).Value(), loads[i]);
            for (int l = 1; l <= size; ++l) {
                const std::pair place{i, i + l - 1};
                EXPECT_EQ(A(i, l).Value(), dense[place]) << i << ", " << place.second;
            }
        }
    }
}

TEST(Assembly, Failures) {
    const FEM_Class fem;
    Array<Single> A(Bounds{1, 12}, Bounds{1, 6}), Q(Bounds{1, 12}), BE(Bounds{1, 3});
    Array<Single> SK(Bounds{1, 6}, Bounds{1, 6});
    const int cases[][3] = {{1, 2, 0}, // nodes, error
                            {1, 3, 9}, // band column beyond Nw
                            {4, 5, 9}, // row beyond the matrix
                            {1, 11000, 6}};
    for (const auto& [n1, n2, error] : cases) {
        const auto nodes = ArrayFromOne<Integer>({n1, n2});
        EXPECT_EQ(ErrorOf([&] { fem.GlobalStiffnessMatrix(A, SK, 3, 2, nodes); }), error) << n2;
    }
    EXPECT_EQ(ErrorOf([&] { fem.GlobalLoadVector(Q, BE, 3, 1, ArrayFromOne<Integer>({5})); }), 9);
}

TEST(Springs, CountsRoundHalvesToEven) {
    const FEM_Class fem;
    const auto KV = ArrayFromOne<Integer>({8, 5}), Node = ArrayFromOne<Integer>({5, 8, 5});
    const auto Fk = ArrayFromOne<Single>({1, 2, 3, 10, 20, 30});
    const struct {
        double freedoms, nodes, springs;
        double diagonal[9];
    } cases[] = {{3, 3, 0.5, {}},
                 {3, 3, 1, {0, 0, 0, 1, 2, 3}},
                 {3, 3, 1.5, {10, 20, 30, 1, 2, 3, 10, 20, 30}},
                 {3, 2.5, 2.5, {10, 20, 30, 1, 2, 3}},
                 {2.5, 3, 2, {3, 10, 1, 2, 3, 10}}};
    for (const auto& c : cases) {
        Array<Single> ST(Bounds{1, 9}, Bounds{1, 9});
        ST(1, 1) = 100;
        fem.AdditionalStiffness(c.freedoms, c.nodes, c.springs, KV, Fk, Node, ST);
        ST(1, 1) -= 100;
        for (int k = 0; k < 81; ++k) {
            EXPECT_EQ(ST(k / 9 + 1, k % 9 + 1), k % 10 == 0 ? c.diagonal[k / 10] : 0)
                << c.springs << " springs, " << c.freedoms << " freedoms: " << k;
        }
    }
    Array<Single> ST(Bounds{1, 9}, Bounds{1, 9});
    EXPECT_EQ(ErrorOf([&] { fem.AdditionalStiffness(3, 3, 32767.6, KV, Fk, Node, ST); }), 6);
    EXPECT_EQ(ErrorOf([&] { fem.AdditionalStiffness(3, 3, 3, KV, Fk, Node, ST); }), 9);
}

} // namespace
} // namespace torlib::test
