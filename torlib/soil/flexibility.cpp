// Settlement and shift of the surface, and compression of a layer.

#include "torlib/frame/elementary.h"
#include "torlib/soil/soil_factors.h"

namespace torlib::soil {

Single SurfaceSettlement(Real r, Real nu) {
    return (1 - nu * nu) / (Pi * r);
}

Single SurfaceSettlement(const Triangle& triangle, Real area, Real nu) {
    return triangle.OverEnds<Single>([&](Real sum, Real h, Real d) {
        const Real rho = Sqrt(h * h + d * d);
        return sum + (1 - nu * nu) * h * Log((rho + d) / (rho - d)) / area / (2 * Pi);
    });
}

Single LayerCompression(Real r, Single& ZG, const Single& Ho, const Single& Anue) {
    Real S = 0;
    for (int pass = 1; pass <= 2; ++pass) {
        const Real z = ZG;
        const Real R = Sqrt(r * r + z * z);
        // One statement for each division: the first that fails decides the error number.
        const Real surface = 2 * (1 - Anue) / r;
        const Real inside = 2 * (1 - Anue) / R;
        const Real A = surface - inside - z * z / (R * R * R);
        S = (1 + Anue) * A - S;
        ZG = ZG + Ho;
    }
    return S / (2 * Pi);
}

Single LayerCompression(const Triangle& triangle, Single ZG, Real Ho, Real area, Real nu) {
    Real C = 0;
    for (int pass = 1; pass <= 2; ++pass) {
        const Real z = ZG;
        Real S = 0;
        if (z != 0) {
            // Settlement of the surface less that in the depth z.
            S = triangle.OverEnds<Real>([&](Real sum, Real h, Real d) {
                const Real rho = Sqrt(h * h + d * d);
                const Real R = Sqrt(h * h + d * d + z * z);
                const Real L = h * Log(((d + rho) * (R - d)) / ((d + R) * (rho - d)));
                const Real V = z * (Atan(d / h) - Atan(z * d / (h * R)));
                return sum + (1 - nu * nu) * L + (1 - nu - 2 * (nu * nu)) * V;
            });
        }
        C = S - C;
        ZG = ZG + Ho;
    }
    return C / area / (2 * Pi);
}

Single SurfaceShiftAcross(const Triangle& triangle, Real area, Real nu) {
    const Single total = triangle.OverEnds<Single>(
        [&](Real sum, Real h, Real d) { return sum + (1 - 2 * nu) * (1 + nu) * h * Atan(d / h); });
    return total / area / (2 * Pi);
}

Single SurfaceShiftAlong(const Triangle& triangle, Real area, Real nu) {
    const Single total = triangle.OverEnds<Single>([&](Real sum, Real h, Real d) {
        const Real rho = Sqrt(h * h + d * d);
        return sum + (1 + nu) * Sgn(d) * (1 - 2 * nu) * h * Log(h / rho);
    });
    return total / area / (2 * Pi);
}

} // namespace torlib::soil
