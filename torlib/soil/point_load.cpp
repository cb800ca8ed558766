// Inside the half-space under a point load at its surface.

#include "torlib/frame/elementary.h"
#include "torlib/soil/soil_factors.h"

namespace torlib::soil {
namespace {

Real SpatialDistance(const Place& at) {
    const Real r = Sqrt(at.x * at.x + at.y * at.y);
    return Sqrt(r * r + at.z * at.z);
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
Real RadialDisplacement(const Place& at, Real nu) {
    const Real z = at.z;
    const Real r = Sqrt(at.x * at.x + at.y * at.y);
    const Real R = SpatialDistance(at);
    return (1 + nu) * (r * z / (R * R) - (1 - 2 * nu) * r / (z + R)) / (2 * Pi * R);
}

} // namespace

Single PointStressZ(const Place& at) {
    const Real z = at.z;
    const Real R = Sqrt(at.x * at.x + at.y * at.y + z * z);
    return 3 * (z * z * z) / (2 * Pi * FifthPower(R));
}

Single PointStressX(const Place& at, Real nu) {
    return HorizontalStress(at.x, at.z, SpatialDistance(at), nu);
}

Single PointStressY(const Place& at, Real nu) {
    return HorizontalStress(at.y, at.z, SpatialDistance(at), nu);
}

Single PointShearXy(const Place& at, Real nu) {
    if (at.x == 0 || at.y == 0) {
        return 0;
    }
    const Real z = at.z;
    const Real R = SpatialDistance(at);
    const Real a = Abs(at.x);
    const Real b = Abs(at.y);
    const Real direct = a * b * z / FifthPower(R);
    const Real lateral = (1 - 2 * nu) / 3 * a * b * (2 * R + z) / (R * R * R * ((R + z) * (R + z)));
    const Real magnitude = 3 / (2 * Pi) * (direct - lateral);
    return Sgn(at.x) == Sgn(at.y) ? -magnitude : magnitude;
}

Single PointShearXz(const Place& at) {
    return at.x == 0 ? Real(0) : VerticalShear(at.x, at.z, SpatialDistance(at));
}

Single PointShearYz(const Place& at) {
    return at.y == 0 ? Real(0) : VerticalShear(at.y, at.z, SpatialDistance(at));
}

Single PointSettlement(const Place& at, Real nu) {
    const Real R = SpatialDistance(at);
    const Real direct = at.z * at.z / (R * R * R);
    return (1 + nu) / (2 * Pi) * (direct + 2 * (1 - nu) / R);
}

Single PointDisplacementX(const Place& at, Real nu) {
    if (at.x == 0) {
        return 0;
    }
    return RadialDisplacement(at, nu) * Cos(Atan(Abs(at.y) / Abs(at.x))) * Sgn(at.x);
}

Single PointDisplacementY(const Place& at, Real nu) {
    if (at.y == 0) {
        return 0;
    }
    const Real along = RadialDisplacement(at, nu) * Sgn(at.y);
    return at.x == 0 ? along : along * Sin(Atan(Abs(at.y) / Abs(at.x)));
}

} // namespace torlib::soil
