#include "torlib/frame/elementary.h"
#include "torlib/geometry/geometry_class.h"
#include "torlib/geometry/point.h"

namespace torlib {
namespace {

constexpr double negligible = 0.001;

void ClearSmall(Single& value) {
    if (Abs(value) < negligible) {
        value = 0;
    }
}

/// Direction of the vector (dx, dy), counter-clockwise from +x, 0..2 pi; 0 for no vector.
Single Direction(Single dx, Single dy) {
    if (dx == 0) {
        return dy == 0 ? Real(0) : dy > 0 ? StoredPi / 2 : 3 * StoredPi / 2;
    }
    const Single slope = Atan(Abs(dy / dx));
    if (dx < 0) {
        return dy > 0 ? StoredPi - slope : StoredPi + slope;
    }
    return dy < 0 ? 2 * StoredPi - slope : Real(slope);
}

} // namespace

void Geometry_Class::TriangularGeometry(const Single& XI, const Single& Yi, const Single& Xj,
                                        const Single& Yj, const Single& XK, const Single& YK,
                                        Single& Dt, Single& ET, Single& FT,
                                        OptionalRef<Single> Theta,
                                        OptionalRef<Integer> Jsign) const {
    const MemberScope scope("Geometry_Class.TriangularGeometry");
    Dt = 0;
    ET = 0;
    FT = 0;
    try {
        const Single Lij = plane::Distance({XI, Yi}, {Xj, Yj});
        const Single Ljk = plane::Distance({Xj, Yj}, {XK, YK});
        const Single Lki = plane::Distance({XK, YK}, {XI, Yi});
        const Single cj = (Lij * Lij + Ljk * Ljk - Lki * Lki) / (2 * Lij * Ljk);
        const Single ck = (Ljk * Ljk + Lki * Lki - Lij * Lij) / (2 * Ljk * Lki);
        Dt = cj * Lij;
        ET = Lki * ck;
        FT = Sqrt(Lij * Lij - Dt * Dt);
        ClearSmall(Dt);
        ClearSmall(ET);
        ClearSmall(FT);
        const Single delta = Abs(Atan(Dt / FT));
        const Single alpha = Direction(Xj - XI, Yj - Yi);
        const int sign = Sgn(ET - Dt);
        Jsign.Set(sign);
        Theta.Set(alpha - sign * delta);
    } catch (const RunTimeError&) {
        FT = 0;
        ClearSmall(Dt);
        ClearSmall(ET);
    }
}

} // namespace torlib
