#include "torlib/geometry/geometry_class.h"
#include "torlib/geometry/point.h"

namespace torlib {
namespace {

using plane::Point;

/// A segment and, unless it is vertical, its line Y = m x + c.
struct Segment {
    Segment(Point start, Point end) : Start(start), End(end) {
        if (start.x != end.x) {
            m = (start.Y - end.Y) / (start.x - end.x);
            c = start.Y - m * start.x;
        }
    }

    bool IsVertical() const { return Start.x == End.x; }
    /// For a point of the line: whether it lies between the ends.
    bool Reaches(const Point& P) const {
        const Single L = plane::Distance(Start, End);
        const Single fromStart = plane::Distance(P, Start);
        const Single fromEnd = plane::Distance(P, End);
        return fromStart <= L && fromEnd <= L;
    }

    Point Start;
    Point End;
    Single m;
    Single c;
};

/// The points that two lines may share: none, one, or the ends of segment 2 on the same line.
struct Candidates {
    Point Points[2];
    int Count = 0;
};

Candidates EndsOf(const Segment& s) {
    return {{s.Start, s.End}, 2};
}

Candidates AtVertical(const Segment& vertical, const Segment& other) {
    return {{{vertical.Start.x, other.m * vertical.Start.x + other.c}, {}}, 1};
}

Candidates SharedPoints(const Segment& s1, const Segment& s2) {
    if (s1.IsVertical() && s2.IsVertical()) {
        return s1.Start.x == s2.Start.x ? EndsOf(s2) : Candidates();
    }
    if (s1.IsVertical()) {
        return AtVertical(s1, s2);
    }
    if (s2.IsVertical()) {
        return AtVertical(s2, s1);
    }
    if (s1.c != s2.c && s1.m == s2.m) {
        return {};
    }
    if (Abs(s1.c - s2.c) >= 0.001 || Abs(s1.m - s2.m) >= 0.001) {
        const Single x = (s2.c - s1.c) / (s1.m - s2.m);
        const Single Y = (s1.m * s2.c - s2.m * s1.c) / (s1.m - s2.m);
        return {{{x, Y}, {}}, 1};
    }
    return EndsOf(s2);
}

} // namespace

void Geometry_Class::DefiningPoint(const Single& XsL1, const Single& YsL1, const Single& XeL1,
                                   const Single& YeL1, const Single& XsL2, const Single& YsL2,
                                   const Single& XeL2, const Single& YeL2, Integer& N,
                                   Array<Single>& XL, Array<Single>& YL) const {
    const MemberScope scope("Geometry_Class.DefiningPoint", Named("XL", XL), Named("YL", YL));
    const Segment s1({XsL1, YsL1}, {XeL1, YeL1});
    const Segment s2({XsL2, YsL2}, {XeL2, YeL2});
    const Candidates candidates = SharedPoints(s1, s2);
    for (int k = 0; k < candidates.Count; ++k) {
        const Point& P = candidates.Points[k];
        if (s2.Reaches(P) && s1.Reaches(P)) {
            N = N + 1;
            XL.ReDimPreserve(N);
            YL.ReDimPreserve(N);
            XL(N) = P.x;
            YL(N) = P.Y;
        }
    }
}

} // namespace torlib
