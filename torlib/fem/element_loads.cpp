// Consistent load vectors of a uniform pressure on the plate elements.

#include "torlib/fem/fem_class.h"
#include "torlib/fem/triangle_sides.h"

namespace torlib {

void FEM_Class::SetElementLoadVector(Array<Single>& BE, Single P, const Integer& NNode,
                                     const Array<Single>& XE, const Array<Single>& YE) const {
    const MemberScope scope("FEM_Class.SetElementLoadVector", Named("BE", BE), Named("XE", XE),
                            Named("YE", YE));
    BE.ReDim(Integer(3 * NNode));
    if (NNode == 3) {
        SetTriElementLoadVector(BE, P, XE, YE);
    } else if (NNode == 4) {
        const Single A = XE(2) - XE(1);
        const Single B = YE(4) - YE(1);
        SetRecElementLoadVector(BE, P, A, B);
    }
}

void FEM_Class::SetRecElementLoadVector(Array<Single>& BE, Single P, Single A, Single B) const {
    const MemberScope scope("FEM_Class.SetRecElementLoadVector", Named("BE", BE));
    // Signs of the slopes at the corners, counter-clockwise.
    constexpr int signs[4][2] = {{1, 1}, {-1, 1}, {-1, -1}, {1, -1}};
    for (const int node : Range(1, 4)) {
        const auto& sign = signs[node - 1];
        BE(3 * node - 2) = 0.25;
        BE(3 * node - 1) = sign[0] * A / 24;
        BE(3 * node) = sign[1] * B / 24;
    }
    const Single load = P * A * B;
    for (const int i : Range(1, 12)) {
        BE(i) = BE(i) * load;
    }
}

void FEM_Class::SetTriElementLoadVector(Array<Single>& BE, Single P, const Array<Single>& x,
                                        const Array<Single>& Y) const {
    const MemberScope scope("FEM_Class.SetTriElementLoadVector", Named("BE", BE), Named("x", x),
                            Named("Y", Y));
    const TriangleSides sides(x, Y);
    // Integrals of the shape functions in the oblique slopes, in units of area / 24.
    constexpr int shape[9] = {8, 1, 1, 8, -2, 1, 8, 1, -2};
    const Single f = sides.Area2 * P / 48;
    for (const int i : Range(1, 9)) {
        BE(i) = shape[i - 1] * f;
    }
    for (const int slope : {2, 5, 8}) {
        sides.Turn(BE(slope), BE(slope + 1));
    }
}

} // namespace torlib
