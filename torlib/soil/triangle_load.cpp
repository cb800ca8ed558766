#include "torlib/frame/elementary.h"
#include "torlib/platform/component/run_time_error.h"
#include "torlib/soil/soil_class.h"
#include "torlib/soil/triangle_ends.h"

namespace torlib {

Single Soil_Class::Sz_q_ST(const Single& FT, const Single& Dt, const Single& ET, Single ZG,
                           const Single& AreaNode) const {
    const MemberScope scope("Soil_Class.Sz_q_ST");
    if (ZG == 0) {
        ZG = 1E-10;
    }
    return SumOverEnds<Single>(FT, Dt, ET,
                               [z = Real(ZG), area = Real(AreaNode)](Real sum, Real h, Real d) {
                                   const Real R = Sqrt(h * h + d * d + z * z);
                                   const Real term = Atan(h * R / (d * z)) - Atan(h / d) +
                                                     h * d * z / ((h * h + z * z) * R);
                                   return sum + term / area / (2 * Pi);
                               });
}

Single Soil_Class::Wz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Wz_q_ST");
    const Single total =
        SumOverEnds<Single>(FT, Dt, ET, [z = Real(ZG), nu = Real(Anue)](Real sum, Real h, Real d) {
            const Real R = Sqrt(h * h + d * d + z * z);
            const Real term = (1 - nu * nu) * h * Log((R + d) / (R - d)) -
                              (1 - nu - 2 * (nu * nu)) * z * (Atan(d / h) - Atan(d * z / (h * R)));
            return sum + term;
        });
    return total / AreaNode / (2 * Pi);
}

Single Soil_Class::Txz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                            const Single& AreaNode) const {
    const MemberScope scope("Soil_Class.Txz_q_ST");
    const Single total = SumOverEnds<Single>(FT, Dt, ET, [z = Real(ZG)](Real sum, Real h, Real d) {
        const Real R = Sqrt(h * h + d * d + z * z);
        return sum + h * h * d / (R * (h * h + z * z));
    });
    return -Abs(total) / AreaNode / (2 * Pi);
}

Single Soil_Class::Tyz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                            const Single& AreaNode) const {
    const MemberScope scope("Soil_Class.Tyz_q_ST");
    const Single total = SumOverEnds<Single>(FT, Dt, ET, [z = Real(ZG)](Real sum, Real h, Real d) {
        const Real R = Sqrt(h * h + d * d + z * z);
        return sum + Sgn(d) * h * (1 / Sqrt(h * h + z * z) - 1 / R);
    });
    return total / AreaNode / (2 * Pi);
}

} // namespace torlib
