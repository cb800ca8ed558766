// Inside the half-space under the corner of a loaded triangle.

#include "torlib/frame/elementary.h"
#include "torlib/soil/soil_factors.h"

namespace torlib::soil {

Single TriangleStressZ(const Triangle& triangle, Real z, Real area) {
    return triangle.OverEnds<Single>([&](Real sum, Real h, Real d) {
        const Real R = Sqrt(h * h + d * d + z * z);
        const Real term = Atan(h * R / (d * z)) - Atan(h / d) + h * d * z / ((h * h + z * z) * R);
        return sum + term / area / (2 * Pi);
    });
}

Single TriangleSettlement(const Triangle& triangle, Real z, Real area, Real nu) {
    const Single total = triangle.OverEnds<Single>([&](Real sum, Real h, Real d) {
        const Real R = Sqrt(h * h + d * d + z * z);
        const Real term = (1 - nu * nu) * h * Log((R + d) / (R - d)) -
                          (1 - nu - 2 * (nu * nu)) * z * (Atan(d / h) - Atan(d * z / (h * R)));
        return sum + term;
    });
    return total / area / (2 * Pi);
}

Single TriangleShearAcross(const Triangle& triangle, Real z, Real area) {
    const Single total = triangle.OverEnds<Single>([&](Real sum, Real h, Real d) {
        const Real R = Sqrt(h * h + d * d + z * z);
        return sum + h * h * d / (R * (h * h + z * z));
    });
    return -Abs(total) / area / (2 * Pi);
}

Single TriangleShearAlong(const Triangle& triangle, Real z, Real area) {
    const Single total = triangle.OverEnds<Single>([&](Real sum, Real h, Real d) {
        const Real R = Sqrt(h * h + d * d + z * z);
        return sum + Sgn(d) * h * (1 / Sqrt(h * h + z * z) - 1 / R);
    });
    return total / area / (2 * Pi);
}

} // namespace torlib::soil
