#include "torlib/frame/elementary.h"
#include "torlib/platform/component/run_time_error.h"
#include "torlib/soil/soil_class.h"

namespace torlib {
namespace {

Real SpatialDistance(Real dx, Real dy, Real z) {
    const Real r = Sqrt(dx * dx + dy * dy);
    return Sqrt(r * r + z * z);
}

Real FifthPower(Real R) {
    return R * R * R * R * R;
}

// Where two divisions can fail, each has its own statement: the first one decides the error number.

/// Horizontal normal stress in the direction of the component d of the distance in plan.
Real HorizontalStress(Real d, Real z, Real R, Real nu) {
    const Real direct = d * d * z / FifthPower(R);
    const Real uniform = 1 / (R * (R + z));
    const Real directed = d * d * (2 * R + z) / (R * R * R * ((R + z) * (R + z)));
    return 3 / (2 * Pi) * (direct + (1 - 2 * nu) / 3 * (uniform - directed - z / (R * R * R)));
}

/// Shear stress on the horizontal plane in the direction of the component d.
Real VerticalShear(Real d, Real z, Real R) {
    return -3 * (z * z) * Abs(d) / (2 * Pi * FifthPower(R)) * Sgn(d);
}

/// Displacement away from the load in the distance r.
Real RadialDisplacement(Real dx, Real dy, Real z, Real nu) {
    const Real r = Sqrt(dx * dx + dy * dy);
    const Real R = Sqrt(r * r + z * z);
    return (1 + nu) * (r * z / (R * R) - (1 - 2 * nu) * r / (z + R)) / (2 * Pi * R);
}

} // namespace

Single Soil_Class::Sz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG) const {
    const MemberScope scope("Soil_Class.Sz_P_ST");
    const Real z = ZG;
    const Real dx = x1 - x2;
    const Real dy = y1 - y2;
    const Real R = Sqrt(dx * dx + dy * dy + z * z);
    return 3 * (z * z * z) / (2 * Pi * FifthPower(R));
}

Single Soil_Class::Sx_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Sx_P_ST");
    const Real dx = x1 - x2;
    return HorizontalStress(dx, ZG, SpatialDistance(dx, y1 - y2, ZG), Anue);
}

Single Soil_Class::Sy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Sy_P_ST");
    const Real dy = y1 - y2;
    return HorizontalStress(dy, ZG, SpatialDistance(x1 - x2, dy, ZG), Anue);
}

Single Soil_Class::Txy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                            const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Txy_P_ST");
    const Real dx = x1 - x2;
    const Real dy = y1 - y2;
    const Real z = ZG;
    if (dx == 0 || dy == 0) {
        return 0;
    }
    const Real R = SpatialDistance(dx, dy, z);
    const Real a = Abs(dx);
    const Real b = Abs(dy);
    const Real direct = a * b * z / FifthPower(R);
    const Real lateral =
        (1 - 2 * Anue) / 3 * a * b * (2 * R + z) / (R * R * R * ((R + z) * (R + z)));
    const Real magnitude = 3 / (2 * Pi) * (direct - lateral);
    return Sgn(dx) == Sgn(dy) ? -magnitude : magnitude;
}

Single Soil_Class::Txz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                            const Single& ZG) const {
    const MemberScope scope("Soil_Class.Txz_P_ST");
    const Real dx = x1 - x2;
    return dx == 0 ? Real(0) : VerticalShear(dx, ZG, SpatialDistance(dx, y1 - y2, ZG));
}

Single Soil_Class::Tyz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                            const Single& ZG) const {
    const MemberScope scope("Soil_Class.Tyz_P_ST");
    const Real dy = y1 - y2;
    return dy == 0 ? Real(0) : VerticalShear(dy, ZG, SpatialDistance(x1 - x2, dy, ZG));
}

Single Soil_Class::Wz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Wz_P_ST");
    const Real z = ZG;
    const Real R = SpatialDistance(x1 - x2, y1 - y2, z);
    const Real direct = z * z / (R * R * R);
    return (1 + Anue) / (2 * Pi) * (direct + 2 * (1 - Anue) / R);
}

Single Soil_Class::Ux_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Ux_P_ST");
    const Real dx = x1 - x2;
    const Real dy = y1 - y2;
    if (dx == 0) {
        return 0;
    }
    return RadialDisplacement(dx, dy, ZG, Anue) * Cos(Atan(Abs(dy) / Abs(dx))) * Sgn(dx);
}

Single Soil_Class::Vy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Vy_P_ST");
    const Real dx = x1 - x2;
    const Real dy = y1 - y2;
    if (dy == 0) {
        return 0;
    }
    const Real along = RadialDisplacement(dx, dy, ZG, Anue) * Sgn(dy);
    return dx == 0 ? along : along * Sin(Atan(Abs(dy) / Abs(dx)));
}

Single Soil_Class::Fxy(const Single& x1, const Single& y1, const Single& x2, const Single& y2,
                       Single ZG, Single Nue, const Integer& I_Par) const {
    const MemberScope scope("Soil_Class.Fxy");
    if (ZG == 0) {
        ZG = 0.1;
    }
    switch (I_Par) {
        case 2:
            return Ux_P_ST(x1, x2, y1, y2, ZG, Nue);
        case 3:
            return Vy_P_ST(x1, x2, y1, y2, ZG, Nue);
        case 4:
            return Wz_P_ST(x1, x2, y1, y2, ZG, Nue);
        case 5:
            return Sx_P_ST(x1, x2, y1, y2, ZG, Nue);
        case 6:
            return Sy_P_ST(x1, x2, y1, y2, ZG, Nue);
        case 7:
            return Sz_P_ST(x1, x2, y1, y2, ZG);
        case 8:
            return Txy_P_ST(x1, x2, y1, y2, ZG, Nue);
        case 9:
            return Txz_P_ST(x1, x2, y1, y2, ZG);
        case 10:
            return Tyz_P_ST(x1, x2, y1, y2, ZG);
        default:
            return 0;
    }
}

} // namespace torlib
