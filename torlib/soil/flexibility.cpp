#include "torlib/frame/elementary.h"
#include "torlib/platform/component/run_time_error.h"
#include "torlib/soil/soil_class.h"
#include "torlib/soil/triangle_ends.h"

namespace torlib {
namespace {

Real DistanceInPlan(const Single& x1, const Single& x2, const Single& y1, const Single& y2) {
    const Real dx = x1 - x2;
    const Real dy = y1 - y2;
    return Sqrt(dy * dy + dx * dx);
}

} // namespace

Single Soil_Class::Co_P_HS(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_P_HS");
    return (1 - Anue * Anue) / (Pi * DistanceInPlan(x1, x2, y1, y2));
}

Single Soil_Class::Co_q_HS(const Single& FT, const Single& Dt, const Single& ET,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_q_HS");
    const Real nu = Anue;
    return SumOverEnds<Single>(FT, Dt, ET, [&](Real sum, Real h, Real d) {
        const Real rho = Sqrt(h * h + d * d);
        return sum + (1 - nu * nu) * h * Log((rho + d) / (rho - d)) / AreaNode / (2 * Pi);
    });
}

Single Soil_Class::Co_P_LM(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           Single& ZG, const Single& Ho, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_P_LM");
    const Real r = DistanceInPlan(x1, x2, y1, y2);
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

Single Soil_Class::Co_q_LM(const Single& FT, const Single& Dt, const Single& ET, Single ZG,
                           const Single& Ho, const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_q_LM");
    const Real nu = Anue;
    Real C = 0;
    for (int pass = 1; pass <= 2; ++pass) {
        const Real z = ZG;
        Real S = 0;
        if (z != 0) {
            // Settlement of the surface less that in the depth z.
            S = SumOverEnds<Real>(FT, Dt, ET, [&](Real sum, Real h, Real d) {
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
    return C / AreaNode / (2 * Pi);
}

Single Soil_Class::Ux_q_Tr(const Single& FT, const Single& Dt, const Single& ET,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Ux_q_Tr");
    const Real nu = Anue;
    const Single total = SumOverEnds<Single>(FT, Dt, ET, [nu](Real sum, Real h, Real d) {
        return sum + (1 - 2 * nu) * (1 + nu) * h * Atan(d / h);
    });
    return total / AreaNode / (2 * Pi);
}

Single Soil_Class::Uy_q_Tr(const Single& FT, const Single& Dt, const Single& ET,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Uy_q_Tr");
    const Real nu = Anue;
    const Single total = SumOverEnds<Single>(FT, Dt, ET, [nu](Real sum, Real h, Real d) {
        const Real rho = Sqrt(h * h + d * d);
        return sum + (1 + nu) * Sgn(d) * (1 - 2 * nu) * h * Log(h / rho);
    });
    return total / AreaNode / (2 * Pi);
}

} // namespace torlib
