// Points of lines, meeting points, and the mesh lines of beams, in any order of the input.

#include "tests/error_of.h"
#include "torlib/geometry/geometry_class.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <random>

namespace torlib {
namespace {

using test::ErrorOf;
using Points = std::vector<std::pair<float, float>>;

const Geometry_Class geometry;
std::mt19937 generator(7);

struct PointList {
    PointList(const Points& points) : N(points.size()), XL(Bounds{1, N}), YL(Bounds{1, N}) {
        for (int i : Range(1, N)) {
            std::tie(XL(i), YL(i)) = points[i - 1U];
        }
    }
    Points All() const {
        Points all;
        for (int i : Range(1, XL.UBound())) {
            all.emplace_back(XL(i).Value(), YL(i).Value());
        }
        return all;
    }

    Integer N;
    Array<Single> XL, YL;
};

TEST(DuplicatePoints, LeaveTheLastOfEqualOnes) {
    const float next = std::nextafter(1.0F, 2.0F); // no tolerance
    PointList list({{1, 1}, {2, 2}, {1, next}, {1, 1}, {2, 2}, {1, 2}});
    geometry.DeletingDuplicatePoints(list.N, list.XL, list.YL);
    EXPECT_EQ(list.N, 4);
    EXPECT_EQ(list.All(), (Points{{1, next}, {1, 1}, {2, 2}, {1, 2}, {2, 2}, {1, 2}}));
    list.N = 7;
    EXPECT_EQ(ErrorOf([&] { geometry.DeletingDuplicatePoints(list.N, list.XL, list.YL); }), 9);
}

TEST(SortingLine, IsTheSameForAnyOrderOfThePoints) {
    const struct {
        Points Given, Sorted; // from (1, -2) towards (10, 10)
        int NL, Error;
    } cases[] = {
        {{{4, 2}, {10, 10}, {5.5F, 4}, {1, -2}, {4, 2}},
         {{1, -2}, {4, 2}, {5.5F, 4}, {10, 10}},
         4,
         0},
        {{{1, 8}, {-2, -6}, {1, -2}},
         {{1, -2}, {4, 2}, {7, 6}},
         3,
         0},                                                         // beside and behind the line
        {{{4, 2}, {7, 6}, {4, 2}}, {{1, -2}, {4, 2}, {7, 6}}, 2, 0}, // without its start: one more
        {{{4, 2}, {7, 6}}, {{1, -2}, {4, 2}}, 2, 9},                 // and no place for it
    };
    for (const auto& of : cases) {
        Points given = of.Given;
        for (int round = 0; round < 20; ++round) {
            PointList list(given);
            EXPECT_EQ(
                ErrorOf([&] { geometry.SortingLine(list.N, list.XL, list.YL, 1, -2, 10, 10); }),
                of.Error);
            EXPECT_EQ(list.N, of.NL);
            const Points all = list.All();
            EXPECT_TRUE(std::equal(of.Sorted.begin(), of.Sorted.end(), all.begin()));
            EXPECT_EQ(ErrorOf([&] { geometry.SortingLine(list.N, list.XL, list.YL, 1, 1, 1, 1); }),
                      6);
            std::shuffle(given.begin(), given.end(), generator);
        }
    }
}

struct Segment {
    double Xs, Ys, XE, YE;
};

Points Meeting(const Segment& a, const Segment& b) {
    PointList list(Points{{77, 78}}); // what is there stays
    geometry.DefiningPoint(a.Xs, a.Ys, a.XE, a.YE, b.Xs, b.Ys, b.XE, b.YE, list.N, list.XL,
                           list.YL);
    Points all = list.All();
    EXPECT_EQ(all.at(list.N - 1U), all.back());
    return all;
}

TEST(MeetingPoint, IsTheSameFromAllSides) {
    const struct {
        Segment s1, s2;
        Points Found;
    } cases[] = {
        {{0, 0, 2, 2}, {0, 2, 2, 0}, {{1, 1}}},
        {{0, 1, 4, 3}, {0, 4, 4, 0}, {{2, 2}}},
        {{0, 0, 1, 1}, {2, 0, 3, -1}, {}},
        {{0, 0, 4, 0}, {4, 0, 4, 3}, {{4, 0}}},    // at an end, one vertical
        {{0, 0, 4, 0}, {4.001, -1, 4.001, 3}, {}}, // beyond it by a thousandth
        {{3, -1, 3, 5}, {0, 0, 4, 2}, {{3, 1.5}}},
        {{3, 2, 3, 5}, {0, 0, 4, 2}, {}},
        {{1, 0, 1, 9}, {2, 0, 2, 9}, {}}, // parallel
        {{0, 0, 4, 2}, {0, 0.0005, 4, 2.0005}, {}},
        {{1, 0, 1, 9}, {1, 2, 1, 7}, {{1, 2}, {1, 7}}}, // on one line: ends of segment 2 only
        {{1, 0, 1, 9}, {1, 7, 1, 12}, {{1, 7}}},
        {{1, 2, 1, 7}, {1, 0, 1, 9}, {}},
        {{0, 0, 4, 2}, {3, 1.5, 7, 3.5}, {{3, 1.5}}},
        {{0, 0, 4, 2}, {1, 0.50025F, 3, 1.5}, {{1, 0.50025F}, {3, 1.5}}}, // nearly on one line
        {{0, 0, 4, 2}, {0, 1 / 512.0, 4, 2 - 1 / 512.0}, {{2, 1}}}, // no longer, by the intercept
        {{0, 0, 4, 2}, {0, 0, 2, 1 + 1 / 256.0}, {{0, 0}}},         // or the slope
    };
    for (const auto& [s1, s2, found] : cases) {
        Points wanted = {{77, 78}};
        wanted.insert(wanted.end(), found.begin(), found.end());
        EXPECT_EQ(Meeting(s1, s2), wanted);
        EXPECT_EQ(Meeting({s1.XE, s1.YE, s1.Xs, s1.Ys}, s2), wanted);
        std::reverse(wanted.begin() + 1, wanted.end());
        EXPECT_EQ(Meeting(s1, {s2.XE, s2.YE, s2.Xs, s2.Ys}), wanted);
    }
}

using Line = std::array<int, 3>; // end nodes, type

Array<Integer> Column(const std::vector<Line>& lines, std::size_t c) {
    Array<Integer> column(Bounds{1, static_cast<int>(lines.size())});
    for (std::size_t i = 0; i < lines.size(); ++i) {
        column(static_cast<int>(i) + 1) = lines[i][c];
    }
    return column;
}

TEST(BeamPieces, AreTheSameForAnyOrderAndDirectionOfTheMeshLines) {
    const auto x = ArrayFromOne<Single>({0, 1, 3, 6, 10, 0, 0, 4, 0});
    const auto Y = ArrayFromOne<Single>({0, 0, 0, 0, 0, 5, 8, 3, 9});
    // Two that are not listed: in one piece, and with a gap at its end.
    std::vector<Line> beams = {{1, 6, 11}, {1, 9, 12}, {1, 5, 13}, {7, 1, 14}, {5, 6, 15}};
    std::vector<Line> lines = {{1, 2}, {2, 3}, {3, 4}, {4, 5}, {1, 6},
                               {6, 7}, {5, 8}, {8, 6}, {2, 8}};
    const std::map<int, std::vector<Line>> rows = {
        // by the beam's type
        {13, {{1, 2, 13}, {2, 3, 13}, {3, 4, 13}, {4, 5, 13}}},
        {14, {{7, 6, 14}, {6, 1, 14}}},
        {15, {{5, 8, 15}, {8, 6, 15}}}};
    for (int round = 0; round < 60; ++round) {
        std::shuffle(beams.begin(), beams.end(), generator);
        std::shuffle(lines.begin(), lines.end(), generator);
        std::swap(lines[0][0], lines[0][1]);
        const Array<Integer> NTy = Column(beams, 2);
        Array<Integer> IME, KME, LT1, LT2, Mp1 = Column(lines, 0), Mp2 = Column(lines, 1), MTy;
        Integer NME = 5, NM = lines.size(); // what NME holds before does not count
        geometry.Sortingbeamelements(NME, IME, KME, LT1, LT2, 9, x, Y, beams.size(), 5,
                                     Column(beams, 0), Column(beams, 1), NTy, NM, Mp1, Mp2, MTy);
        ASSERT_EQ(NME, 3);
        EXPECT_EQ(LT1.UBound() * 10 + LT2.UBound(2), 34);
        EXPECT_EQ(NM, 8);
        EXPECT_EQ(Mp1.UBound() * 100 + Mp2.UBound() * 10 + MTy.UBound(), 888);
        int k = 0;
        for (int r : Range(1, NME)) {
            EXPECT_TRUE(r == 1 || IME(r) > IME(r - 1));
            const std::vector<Line>& row = rows.at(NTy(IME(r)));
            ASSERT_EQ(KME(r), static_cast<int>(row.size()));
            for (int j : Range(1, KME(r))) {
                ++k;
                EXPECT_EQ((Line{LT1(r, j), LT2(r, j), MTy(k)}), row[j - 1U]);
                EXPECT_EQ((Line{Mp1(k), Mp2(k), MTy(k)}), row[j - 1U]);
            }
        }
    }
}

// Lengths that add up to the beam's are not enough: lines that are doubled or overlap and leave a
// gap, or have no length, make no beam, and no line of node 0.
TEST(BeamPieces, WithoutAChainAreLeftOut) {
    const auto nodes = ArrayFromOne<Single>({0, 2, 4, 6, 8, 10}),
               zero = Array<Single>(Bounds{1, 6});
    const struct {
        std::vector<Line> Lines;
        int NME;
    } cases[] = {{{{1, 4}, {4, 6}}, 1},
                 {{{1, 2}, {2, 3}, {1, 3}, {5, 6}}, 0}, // 2 + 2 + 4 + 2
                 {{{1, 3}, {3, 1}, {5, 6}}, 0},         // 4 + 4 + 2
                 {{{1, 4}, {3, 5}}, 0},                 // 6 + 4
                 {{{1, 3}, {3, 3}, {3, 6}}, 0}};        // 4 + 0 + 6
    for (const bool vertical : {false, true}) {
        for (const auto& [lines, listed] : cases) {
            Array<Integer> IME, KME, LT1, LT2, MTy, Mp1 = Column(lines, 0), Mp2 = Column(lines, 1);
            Integer NME, NM = lines.size();
            geometry.Sortingbeamelements(NME, IME, KME, LT1, LT2, 6, vertical ? zero : nodes,
                                         vertical ? nodes : zero, 1, 1, ArrayFromOne<Integer>({1}),
                                         ArrayFromOne<Integer>({6}), ArrayFromOne<Integer>({7}), NM,
                                         Mp1, Mp2, MTy);
            // Only on a vertical beam does a line without length have two points.
            const bool pointAlone = lines.size() == 3 && lines[1][0] == lines[1][1];
            const int expected = pointAlone && !vertical ? 1 : listed;
            EXPECT_EQ(NME, expected);
            EXPECT_EQ(NM, 2 * expected);
            EXPECT_EQ(IME.Dimensions(), expected) << "lists without a row stay as they are";
            for (int k : Range(1, NM)) {
                EXPECT_TRUE(Mp1(k) > 0 && Mp2(k) > 0);
            }
        }
    }
}

// The first mesh line starts near the beam's start, the second where the first ends, or near it.
TEST(BeamPieces, MeetWithinTheTolerance) {
    for (const int second : {4, 5}) {
        const std::vector<Line> lines = {{3, 4}, {second, 2}};
        Array<Integer> IME, KME, LT1, LT2, MTy, Mp1 = Column(lines, 0), Mp2 = Column(lines, 1);
        Integer NME, NM = 2;
        geometry.Sortingbeamelements(
            NME, IME, KME, LT1, LT2, 5, ArrayFromOne<Single>({0, 10, 0.0004, 5, 5.0004}),
            Array<Single>(Bounds{1, 5}), 1, 1, ArrayFromOne<Integer>({1}),
            ArrayFromOne<Integer>({2}), ArrayFromOne<Integer>({7}), NM, Mp1, Mp2, MTy);
        ASSERT_EQ(NM, 2);
        EXPECT_EQ((Line{Mp1(1), Mp2(1), MTy(1)}), (Line{3, 4, 7}));
        EXPECT_EQ((Line{Mp1(2), Mp2(2), MTy(2)}), (Line{second, 2, 7}));
    }
}

} // namespace
} // namespace torlib
