// Members of plane frames with hinges at their ends: stiffness, line loads, axes.

#include "torlib/fem/fem_class.h"
#include "torlib/fem/two_node_matrix.h"

namespace torlib {

namespace {

constexpr bool Is(FrameHingedType hinges, Real value) {
    return value == static_cast<int>(hinges);
}

/// Coefficients of the shear, coupling and rotation terms.
struct BendingFactors {
    int Shear;
    int Coupling;
    int Rotation;
};

BendingFactors FactorsOf(Real G) {
    if (Is(FrameHingedType::I_Hinge, G) || Is(FrameHingedType::J_Hinge, G)) {
        return {3, 3, 3};
    }
    return Is(FrameHingedType::IJ_Hinge, G) ? BendingFactors{0, 0, 0} : BendingFactors{12, 6, 4};
}

void ClearRotation(Array<Single>& ST, int equation) {
    for (const int k : Range(1, TwoNodeSize)) {
        ST(equation, k) = 0;
        ST(k, equation) = 0;
    }
}

/// Parts of a line load and of its end moment that go to the six degrees of freedom.
using LoadShares = std::array<Single, TwoNodeSize>;

LoadShares SharesOf(Integer IG) {
    switch (IG) {
        case 0:
            return {1. / 2, 1. / 2, -1. / 12, 1. / 2, 1. / 2, 1. / 12};
        case 1:
            return {3. / 8, 3. / 8, 0, 5. / 8, 5. / 8, 1. / 8};
        case 2:
            return {5. / 8, 5. / 8, -1. / 8, 3. / 8, 3. / 8, 0};
        case 3:
            return {1. / 2, 1. / 2, 0, 1. / 2, 1. / 2, 0};
        default:
            return {};
    }
}

} // namespace

void FEM_Class::BeamPlaneStiffness(Array<Single>& ST, Single G, Single EI, Single EA, Single AL,
                                   Single CO, Single SI) const {
    const MemberScope scope("FEM_Class.BeamPlaneStiffness", Named("ST", ST));
    if (AL == 0) {
        RaiseError(ErrorNumber::DivisionByZero, "the frame member has no length");
    }
    const auto [a, b, r] = FactorsOf(G);
    const Real square = AL * AL;
    const Real cube = square * AL;
    const Single k11 = a * EI * (SI * SI) / cube + EA * (CO * CO) / AL;
    const Single k22 = a * EI * (CO * CO) / cube + EA * (SI * SI) / AL;
    const Single k12 = a * CO * SI * EI / cube - CO * SI * EA / AL;
    const Single m1 = b * SI * EI / square;
    const Single m2 = b * CO * EI / square;
    const Single r1 = r * EI / AL;
    // clang-format off
    constexpr TwoNodePattern pattern = {
        {1, -2,  4, -1,  2,  4},
        {0,  3, -5,  2, -3, -5},
        {0,  0,  6, -4,  5,  7},
        {0,  0,  0,  1, -2, -4},
        {0,  0,  0,  0,  3,  5},
        {0,  0,  0,  0,  0,  6},
    };
    // clang-format on
    FillSymmetric(ST, pattern, std::array<Single, 7>{k11, k12, k22, m1, m2, r1, r1 / 2});
    if (Is(FrameHingedType::I_Hinge, G)) {
        ClearRotation(ST, 3);
    } else if (Is(FrameHingedType::J_Hinge, G)) {
        ClearRotation(ST, 6);
    }
}

void FEM_Class::BeamPlaneLoadVector(Array<Single>& QK, Single Px, Single Py, Single XL, Single YL,
                                    Integer IG) const {
    const MemberScope scope("FEM_Class.BeamPlaneLoadVector", Named("QK", QK));
    const LoadShares f = SharesOf(IG);
    QK.ReDim(TwoNodeSize);
    for (const std::size_t base : {0U, 3U}) {
        const auto first = static_cast<int>(base) + 1;
        QK(first) = Px * f[base] * Abs(YL);
        QK(first + 1) = -f[base + 1] * Py * Abs(XL);
        QK(first + 2) = -f[base + 2] * (Abs(YL) * Px * YL + Abs(XL) * Py * XL);
    }
}

void FEM_Class::PlaneTransformationMatrix(Array<Single>& TR, Single CO, Single SI) const {
    const MemberScope scope("FEM_Class.PlaneTransformationMatrix", Named("TR", TR));
    FillBlocks(TR, {{CO, SI, 0}, {-SI, CO, 0}, {0, 0, 1}});
}

} // namespace torlib
