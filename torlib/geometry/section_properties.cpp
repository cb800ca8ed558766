#include "torlib/frame/elementary.h"
#include "torlib/geometry/geometry_class.h"

#include <utility>

namespace torlib {
namespace {

/// Direction of (x, Y) seen from (xc, yc), counter-clockwise from +x, 0..2 pi.
Single Direction(Single x, Single Y, Single xc, Single yc) {
    Single angle = 0;
    if (x != xc) {
        angle = Atan((Y - yc) / (x - xc));
        if (x < xc) {
            angle = Y > yc ? angle + StoredPi : angle - StoredPi;
        }
    } else {
        angle = Y <= yc ? -StoredPi / 2 : StoredPi / 2;
    }
    if (angle < 0) {
        angle = angle + 2 * StoredPi;
    }
    return angle;
}

Single Mean(int N, const Array<Single>& values) {
    Single sum = 0;
    for (int i : Range(1, N)) {
        sum = sum + values(i);
    }
    return Real(sum) / N;
}

/// Running sums over the sides of a polygon: area, first and second moments about the origin. The
/// caller's variables hold them, so that an overflow leaves what was summed before it.
struct Moments {
    Single& A;
    Single& Ix;
    Single& Iy;
    Single& Ixy;
    Single Sx = 0;
    Single Sy = 0;

    void Clear() {
        for (Single* sum : {&A, &Ix, &Iy, &Ixy, &Sx, &Sy}) {
            *sum = 0;
        }
    }
    /// Adds the triangle of the origin and the side from point 1 to point 2.
    void Add(Single x1, Single y1, Single x2, Single y2) {
        const Single a = (x1 * y2 - x2 * y1) / 2;
        A = A + a;
        Sx = Sx + (y1 + y2) * a / 3;
        Sy = Sy + (x1 + x2) * a / 3;
        Ix = Ix + (y1 * y1 + y1 * y2 + y2 * y2) * a / 6;
        Iy = Iy + (x1 * x1 + x1 * x2 + x2 * x2) * a / 6;
        Ixy = Ixy + (x1 * y2 / 2 + x1 * y1 + x2 * y1 / 2 + x2 * y2) * a / 6;
    }
};

} // namespace

void Geometry_Class::SortingPolygonPoints(const Integer& N, Array<Single>& x, Array<Single>& Y,
                                          Array<Integer>& Node) const {
    Array<Single> angle; // a negative count fails here, so its errors bear the count's name
    const MemberScope scope("Geometry_Class.SortingPolygonPoints", Named("x", x), Named("Y", Y),
                            Named("Node", Node), Named("N", angle));
    const Single xc = Mean(N, x);
    const Single yc = Mean(N, Y);
    angle.ReDim(N);
    for (int i : Range(1, N)) {
        angle(i) = Direction(x(i), Y(i), xc, yc);
    }
    for (int i : Range(1, N)) {
        for (int j : Range(1, N - i)) {
            if (angle(j) > angle(j + 1)) {
                std::swap(x(j), x(j + 1));
                std::swap(Y(j), Y(j + 1));
                std::swap(angle(j), angle(j + 1));
                std::swap(Node(j), Node(j + 1));
            }
        }
    }
}

void Geometry_Class::Querschnittswerte(const Integer& N, Array<Single>& x, Array<Single>& Y,
                                       Single& A, OptionalRef<Single> Xs, OptionalRef<Single> Ys,
                                       OptionalRef<Single> Ix, OptionalRef<Single> Iy,
                                       OptionalRef<Single> Ixy) const {
    const MemberScope scope("Geometry_Class.Querschnittswerte", Named("x", x), Named("Y", Y));
    const Integer closed = N + 1;
    x.ReDimPreserve(closed);
    Y.ReDimPreserve(closed);
    Array<Integer> node(Bounds{0, closed});
    SortingPolygonPoints(N, x, Y, node);
    x(closed) = x(1);
    Y(closed) = Y(1);

    Single leftOut[5];
    Single& xCentre = Xs.Or(leftOut[0]);
    Single& yCentre = Ys.Or(leftOut[1]);
    Moments sum{A, Ix.Or(leftOut[2]), Iy.Or(leftOut[3]), Ixy.Or(leftOut[4])};
    sum.Clear();
    for (int i : Range(1, N)) {
        sum.Add(x(i), Y(i), x(i + 1), Y(i + 1));
    }
    if (A != 0) {
        yCentre = sum.Sx / A;
        xCentre = sum.Sy / A;
    } else {
        xCentre = x(1);
        yCentre = Y(1);
    }
    sum.Ix = sum.Ix - yCentre * yCentre * A;
    sum.Iy = sum.Iy - xCentre * xCentre * A;
    sum.Ixy = sum.Ixy - A * xCentre * yCentre;
}

} // namespace torlib
