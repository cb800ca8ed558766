#include "torlib/numeric/math_class.h"

namespace torlib {
namespace {

void SetCorner(int k, Single x, Single Y, Array<Single>& Coord) {
    Coord(k, 1) = x;
    Coord(k, 2) = Y;
}

} // namespace

void Math_Class::NodalCoordinatesOverQuadRegion(const Array<Single>& x, const Array<Single>& Y,
                                                Array<Single>& Coord) const {
    const MemberScope scope("Math_Class.NodalCoordinatesOverQuadRegion", Named("x", x),
                            Named("Y", Y), Named("Coord", Coord));
    Coord.ReDim(4, 2);
    for (int k : Range(1, 4)) {
        Coord(k, 1) = x(k);
        Coord(k, 2) = Y(k);
    }
}

void Math_Class::NodalCoordinatesDoubleIntegration(const Single& x1, const Single& x2,
                                                   const Single& y1, const Single& y2,
                                                   Array<Single>& Coord) const {
    const MemberScope scope("Math_Class.NodalCoordinatesDoubleIntegration", Named("Coord", Coord));
    // The limits may be elements of the table itself, which are lost when it is re-dimensioned.
    const Single left = x1;
    const Single right = x2;
    const Single lower = y1;
    const Single upper = y2;
    Coord.ReDim(4, 2);
    SetCorner(1, left, lower, Coord);
    SetCorner(2, left, upper, Coord);
    SetCorner(3, right, upper, Coord);
    SetCorner(4, right, lower, Coord);
}

void Math_Class::Bilinear(Array<Single>& Der, Array<Single>& Fun, const Array<Single>& Samp,
                          const Integer& i, const Integer& j) const {
    const MemberScope scope("Math_Class.Bilinear", Named("Der", Der), Named("Fun", Fun),
                            Named("Samp", Samp));
    Fun.ReDim(4);
    Der.ReDim(2, 4);
    const Single xi = Samp(i, 1);
    const Single eta = Samp(j, 1);
    Fun(1) = (1 - xi) * (1 - eta) / 4;
    Fun(2) = (1 - eta) * (1 + xi) / 4;
    Fun(3) = (1 + xi) * (1 + eta) / 4;
    Fun(4) = (1 - xi) * (1 + eta) / 4;

    const Single a = (1 - xi) / 4;
    const Single b = (1 + xi) / 4;
    const Single c = (1 - eta) / 4;
    const Single d = (1 + eta) / 4;
    Der(1, 1) = -a;
    Der(1, 2) = -b;
    Der(1, 3) = b;
    Der(1, 4) = a;
    Der(2, 1) = -c;
    Der(2, 2) = c;
    Der(2, 3) = d;
    Der(2, 4) = -d;
}

} // namespace torlib
