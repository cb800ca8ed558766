// Foundation levels, turned coordinates, and the failures of single elements.

#include "fem_test_tools.h"

namespace torlib::test {
namespace {

const FEM_Class Fem;

TEST(NodeServices, FoundationLevels) {
    // Two squares beside each other, of groups 2 and 1, and a triangle of group 2.
    auto types = ArrayFromOne<Integer>({4, 4, 3});
    const int corner[] = {1, 2, 5, 4, 2, 3, 6, 5, 5, 6, 7, 0};
    Array<Integer> corners(Bounds{1, 3}, Bounds{1, 4});
    for (int k = 0; k < 12; ++k) {
        corners(k / 4 + 1, k % 4 + 1) = corner[k];
    }
    Single TF = 9;
    const auto levels = [&](const String& Ngs, Integer Nk, Integer NE) {
        Array<Single> TFV(Bounds{3, 4});
        Fem.SetFoundationLevel(Nk, NE, types, corners, TF, 0.5, Ngs,
                               ArrayFromOne<Integer>({2, 1, 2}), ArrayFromOne<Single>({1.5, 5.5}),
                               TFV);
        return std::vector<Single>(TFV.Data(), TFV.Data() + TFV.Size());
    };
    EXPECT_EQ(levels(u"j", 3, 3), (std::vector<Single>{0, 9, 9, 9}));
    EXPECT_EQ(levels(u"J", 7, 3), (std::vector<Single>{0, 1.5, 2, 0.5, 1.5, 4, 2.5, 2}));
    EXPECT_EQ(TF, 2);
    EXPECT_EQ(levels(u"J", 0, 0), std::vector<Single>{0});
    EXPECT_EQ(ErrorOf([&] { levels(u"J", 6, 3); }), 9);
    types(2) = 0;
    EXPECT_EQ(ErrorOf([&] { levels(u"J", 7, 3); }), 11);
}

TEST(NodeServices, LocalToGlobalCoordinates) {
    const double s = std::sqrt(3.);
    const double cases[][5] = {{90, 0, 0, -1, 2}, // angle, origin, where the point (2, 1) goes
                               {30, 10, -4, s + 9.5, s / 2 - 3},
                               {-60, 0, 1, 1 + s / 2, 1.5 - s}};
    for (const auto& [Beta, Xo, yo, X, Y] : cases) {
        auto x = ArrayFromOne<Single>({7, 2}), y = ArrayFromOne<Single>({7, 1});
        Fem.GetGlobalNodeCoordinate(0, x, y, Beta, Xo, yo);
        EXPECT_EQ(x(2), 2);
        Fem.GetGlobalNodeCoordinate(2, x, y, Beta, Xo, yo);
        EXPECT_NEAR(x(2).Value(), X, 1e-6);
        EXPECT_NEAR(y(2).Value(), Y, 1e-6);
    }
}

TEST(NodeServices, NoNodesDoNothingWhateverTheAngle) {
    Array<Single> x, y;
    for (const Single Beta : {Single(3E38), Single(-3.4E38), Single(90)}) {
        for (const int N : {0, -1, -32768}) {
            EXPECT_EQ(ErrorOf([&] { Fem.GetGlobalNodeCoordinate(N, x, y, Beta, 1, 1); }), 0);
        }
    }
    x = y = ArrayFromOne<Single>({1});
    EXPECT_NE(ErrorOf([&] { Fem.GetGlobalNodeCoordinate(1, x, y, 3.4E38, 1, 1); }), 0);
}

TEST(ElementFailures, LengthAndAreaZero) {
    const auto x = ArrayFromOne<Single>({0, 1, 2}), y = ArrayFromOne<Single>({0, 0, 0});
    Array<Single> K;
    const auto wall = [&](Single nu, Single AL) {
        return ErrorOf([&] { Fem.SetStressElementStiffness(K, x, y, 1, 1, nu, AL); });
    };
    EXPECT_EQ(wall(0.3, 0), 11);
    EXPECT_EQ(wall(1, 1), 11);
    EXPECT_EQ(wall(0.3, -1), 5);
    EXPECT_EQ(ErrorOf([&] { Fem.BeamPlaneStiffness(K, 3, 1, 1, 0, 1, 0); }), 11);
}

} // namespace
} // namespace torlib::test
