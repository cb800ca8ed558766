#include "torlib/numeric/math_class.h"

namespace torlib {

void Math_Class::BestFitting(const Integer& N, const Array<Single>& x, const Array<Single>& Y,
                             Single& C1, Single& C2) const {
    const MemberScope scope("Math_Class.BestFitting", Named("x", x), Named("Y", Y));
    Single sx = 0;
    Single sxx = 0;
    Single sy = 0;
    Single sxy = 0;
    for (int i : Range(1, N)) {
        sx = x(i) + sx;
        sxx = x(i) * x(i) + sxx;
        sy = Y(i) + sy;
        sxy = Y(i) * x(i) + sxy;
    }
    const Single slope = (N * sxy - sx * sy) / (N * sxx - sx * sx);
    C2 = slope;
    C1 = (sy - slope * sx) / N;
}

} // namespace torlib
