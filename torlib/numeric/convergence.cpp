#include "torlib/numeric/math_class.h"

namespace torlib {

bool Math_Class::CheckConvergence(Integer N, const Array<Single>& E_New, Array<Single>& E_Old,
                                  Single Tolerance, OptionalRef<Single> Big) const {
    const MemberScope scope("Math_Class.CheckConvergence", Named("E_New", E_New),
                            Named("E_Old", E_Old));
    Single largest = 0;
    Big.Set(largest);
    for (int i : Range(1, N)) {
        const Single change = Abs(E_New(i) - E_Old(i));
        if (change > largest) {
            largest = change;
            Big.Set(largest);
        }
        E_Old(i) = E_New(i);
    }
    return !(largest > Tolerance);
}

} // namespace torlib
