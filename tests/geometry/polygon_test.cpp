// Polygons and point lists: section properties, angular sort, point in polygon, repeated point.

#include "tests/error_of.h"
#include "torlib/geometry/geometry_class.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace torlib {
namespace {

using test::ErrorOf;

const Geometry_Class geometry;

using Points = std::vector<std::pair<double, double>>;

struct Outline {
    explicit Outline(const Points& points, double dx = 0, double dy = 0)
        : N(points.size()), x(Bounds{1, N}), Y(Bounds{1, N}), Node(Bounds{1, N}) {
        for (int i : Range(1, N)) {
            const auto& point = points[static_cast<std::size_t>(i - 1)];
            x(i) = point.first + dx;
            Y(i) = point.second + dy;
            Node(i) = i;
        }
    }

    Integer N;
    Array<Single> x, Y;
    Array<Integer> Node;
};

TEST(SectionProperties, OfKnownPolygonsInAnyOrderAndPlace) {
    const struct {
        Points Corners;   // counter-clockwise from the lowest direction about the mean point
        double Values[6]; // area, centroid, second moments
    } sections[] = {
        {{{1, 1}, {0, 1}, {0, 0}, {1, 0}}, {1, 0.5, 0.5, 1.0 / 12, 1.0 / 12, 0}},
        {{{0, 3}, {0, 0}, {6, 0}}, {9, 2, 1, 4.5, 18, -4.5}},
        {{{3, 4}, {0, 4}, {1, 0}, {4, 0}}, {12, 2, 2, 16, 10, -4}},
    };
    for (const auto& known : sections) {
        Points corners = known.Corners;
        std::sort(corners.begin(), corners.end());
        do {
            for (const auto& [dx, dy] : Points{{0, 0}, {8, -4}}) {
                Outline outline(corners, dx, dy);
                Single s[6];
                geometry.Querschnittswerte(outline.N, outline.x, outline.Y, s[0], s[1], s[2], s[3],
                                           s[4], s[5]);
                const double shift[] = {0, dx, dy, 0, 0, 0};
                for (int v = 0; v < 6; ++v) {
                    EXPECT_NEAR(s[v].Value(), known.Values[v] + shift[v], 3E-4) << v;
                }
                for (int i : Range(1, outline.N + 1)) {
                    const auto& corner = known.Corners[(i - 1U) % known.Corners.size()];
                    EXPECT_EQ(outline.x(i).Value(), corner.first + dx);
                    EXPECT_EQ(outline.Y(i).Value(), corner.second + dy);
                }
            }
        } while (std::next_permutation(corners.begin(), corners.end()));
    }
}

TEST(SectionProperties, OfDegenerateAndShortInput) {
    Outline line({{1, 1}, {3, 3}, {2, 2}});
    Single area = 9, xs;
    geometry.Querschnittswerte(line.N, line.x, line.Y, area, xs);
    EXPECT_EQ(area.Value(), 0);
    EXPECT_EQ(xs.Value(), line.x(1).Value());

    Outline shortList({{4, 0}, {4, 2}}); // the third corner enters as (0, 0)
    shortList.N = 3;
    geometry.Querschnittswerte(shortList.N, shortList.x, shortList.Y, area);
    EXPECT_FLOAT_EQ(area.Value(), 4);
    Outline huge({{0, 0}, {0x1p70, 0}, {0x1p70, 1}});
    Single sums[] = {9, 9, 9};
    EXPECT_EQ(ErrorOf([&] {
                  geometry.Querschnittswerte(huge.N, huge.x, huge.Y, area, {}, {}, sums[0], sums[1],
                                             sums[2]);
              }),
              6);
    EXPECT_EQ(area.Value(), 0x1p69) << "the caller's variables hold the sums up to the overflow";
    EXPECT_EQ(sums[1].Value(), 0);
    EXPECT_EQ(ErrorOf([&] { geometry.SortingPolygonPoints(-1, line.x, line.Y, line.Node); }), 9);
    for (const int N : {0, 32767}) {
        EXPECT_EQ(ErrorOf([&] { geometry.Querschnittswerte(N, line.x, line.Y, area); }), 6);
    }
}

TEST(AngularSort, GoesCounterClockwiseFromPlusX) {
    // The mean point is (0, 0); equal directions keep their order, the centre is straight below.
    Outline points({{0, -2}, {-1, 0}, {2, 0}, {-2, 0}, {1, 0}, {0, 0}, {-1, -2}, {1, 2}, {0, 2}});
    geometry.SortingPolygonPoints(points.N, points.x, points.Y, points.Node);
    const int order[] = {3, 5, 8, 9, 2, 4, 7, 1, 6};
    for (int i : Range(1, 9)) {
        EXPECT_EQ(points.Node(i), order[i - 1]) << i;
    }
    EXPECT_EQ(points.x(6).Value(), -2);
    EXPECT_EQ(ErrorOf([&] { geometry.SortingPolygonPoints(10, points.x, points.Y, points.Node); }),
              9);
}

TEST(PointInPolygon, ReachesToTheToleranceOfTheCrossProduct) {
    Outline square({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
    const struct {
        double XI, Yi;
        bool Inside;
    } cases[] = {{0.5, 0.5, true},      {0, 0, true},        {0.25, 1, true},
                 {1.00009, 0.5, true},  {1.5, 0.5, false},   {0.5, -0.5, false},
                 {1.00011, 0.5, false}, {-0.5, 0.5, false},  {0.5, 1.5, false},
                 {-0.00009, 1, true},   {-0.00011, 1, false}};
    for (const auto& of : cases) {
        for (const Variant& Yi : {Variant(of.Yi), Variant(Single(of.Yi))}) {
            EXPECT_EQ(geometry.PointInPolygon(4, square.x, square.Y, of.XI, Yi), of.Inside)
                << of.XI << ", " << of.Yi;
        }
    }
    // A cross product of exactly the tolerance is outside.
    EXPECT_FALSE(geometry.PointInPolygon(4, square.x, square.Y, 0.5, Single(-0.0001)));

    Outline clockwise({{0, 0}, {0, 1}, {1, 1}, {1, 0}});
    EXPECT_FALSE(geometry.PointInPolygon(4, clockwise.x, clockwise.Y, 0.5, 0.5));
    EXPECT_TRUE(geometry.PointInPolygon(0, square.x, square.Y, 9, 9.0));
    EXPECT_EQ(ErrorOf([&] { geometry.PointInPolygon(5, square.x, square.Y, 0.5, 0.5); }), 9);
}

TEST(PointInPolygon, TakesAnyKindOfNumber) {
    Outline triangle({{0, 0}, {4099, 4099}, {0, 4099}});
    const auto inside = [&](const Variant& Yi) {
        return geometry.PointInPolygon(triangle.N, triangle.x, triangle.Y, 4095, Yi);
    };
    // On the side; 4099 * 4095 needs 25 bits and is rounded down in 32-bit arithmetic.
    EXPECT_TRUE(inside(4095.0) && inside(std::int32_t{4095}) && inside(u"4095"));
    EXPECT_FALSE(inside(Single(4095)) || inside(std::int16_t{4095}));
    EXPECT_EQ(ErrorOf([&] { inside(u"high"); }), 13);
    // A corner of the polygon; its width 16777217 is rounded down in 32-bit arithmetic.
    Outline wide({{-1, 0}, {16777216, 1}});
    EXPECT_TRUE(geometry.PointInPolygon(2, wide.x, wide.Y, 16777216, 1.0));
    EXPECT_FALSE(geometry.PointInPolygon(2, wide.x, wide.Y, 16777216, Single(1)));
}

TEST(RepeatedNode, FindsWithinTheToleranceOrAppends) {
    const struct {
        double x, Y;
        int Index;
    } cases[] = {{1, 2, 2},      {1.0009, 2.0009, 2}, {0.9991, 1.9991, 2},
                 {0.001, 0, 5},  {0, -0.001, 5},      {1.0005, 7, 5},
                 {7, 2.0005, 5}, {1.0014, 2, 3},      {1.00095, 2.0005, 2}};
    for (const auto& of : cases) {
        Outline list({{0, 0}, {1, 2}, {1.0018, 2}, {5, 5}});
        Integer NN = 4;
        EXPECT_EQ(geometry.RepeatedNode(NN, list.x, list.Y, of.x, of.Y), of.Index)
            << of.x << ", " << of.Y;
        EXPECT_EQ(NN, std::max(of.Index, 4));
        if (of.Index == 5) {
            EXPECT_EQ(list.x.LBound() * 10 + list.x.UBound(), 5);
            EXPECT_EQ(list.x(5).Value(), static_cast<float>(of.x));
            EXPECT_EQ(list.Y(5).Value(), static_cast<float>(of.Y));
            EXPECT_EQ(list.x(4).Value(), 5);
        }
    }
    Outline list({{0, 0}, {3, 4}});
    Integer NN = 1; // the point is an element of the lists themselves
    EXPECT_EQ(geometry.RepeatedNode(NN, list.x, list.Y, list.x(2), list.Y(2)), 2);
    EXPECT_EQ(list.Y(2).Value(), 4);
    NN = 4;
    EXPECT_EQ(ErrorOf([&] { geometry.RepeatedNode(NN, list.x, list.Y, 9, 9); }), 9);
}

} // namespace
} // namespace torlib
