#pragma once
// The formulas below the members of Soil_Class, without their names and arguments for messages.
// Units, signs, sources and errors are those of the members, which soil_class.h tells.

#include "torlib/frame/arithmetic.h"

namespace torlib::soil {

/// Where a value is sought, as seen from the point load: in plan and, downward, in depth.
struct Place {
    Place(const Single& x1, const Single& x2, const Single& y1, const Single& y2, const Single& ZG)
        : x(x1 - x2), y(y1 - y2), z(ZG) {}

    Real x;
    Real y;
    Real z;
};

Single PointStressX(const Place& at, Real nu);
Single PointStressY(const Place& at, Real nu);
Single PointStressZ(const Place& at);
Single PointShearXy(const Place& at, Real nu);
Single PointShearXz(const Place& at);
Single PointShearYz(const Place& at);
Single PointDisplacementX(const Place& at, Real nu);
Single PointDisplacementY(const Place& at, Real nu);
Single PointSettlement(const Place& at, Real nu);

/// The triangle as the signed sum of two right triangles, one for each end of the side.
struct Triangle {
    /// Applies sum = step(sum, h, d) for d = Dt, then ET, where h and d both are not zero; the sum
    /// is kept as a Single or a Real.
    template <class Sum, class Step>
    Sum OverEnds(Step step) const {
        const Real h = FT;
        Sum sum = 0;
        for (const Real d : {Real(Dt), Real(ET)}) {
            if (Sgn(h) * Sgn(d) != 0) {
                sum = step(Real(sum), h, d);
            }
        }
        return sum;
    }

    Single FT;
    Single Dt;
    Single ET;
};

Single TriangleStressZ(const Triangle& triangle, Real z, Real area);
Single TriangleSettlement(const Triangle& triangle, Real z, Real area, Real nu);
Single TriangleShearAcross(const Triangle& triangle, Real z, Real area);
Single TriangleShearAlong(const Triangle& triangle, Real z, Real area);

Single SurfaceSettlement(Real r, Real nu);
Single SurfaceSettlement(const Triangle& triangle, Real area, Real nu);
Single SurfaceShiftAcross(const Triangle& triangle, Real area, Real nu);
Single SurfaceShiftAlong(const Triangle& triangle, Real area, Real nu);
/// The depth is raised by the thickness after each of its two uses; `Ho` and `Anue` may be the very
/// variable `ZG`.
Single LayerCompression(Real r, Single& ZG, const Single& Ho, const Single& Anue);
Single LayerCompression(const Triangle& triangle, Single ZG, Real Ho, Real area, Real nu);

} // namespace torlib::soil
