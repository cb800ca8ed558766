// Grid beams, bent and twisted by loads normal to their plane: data, axes, stiffness, loads.

#include "torlib/fem/fem_class.h"
#include "torlib/fem/two_node_matrix.h"

namespace torlib {

void FEM_Class::BeamData(Integer StartNode, Integer EndNode, Integer ElementType,
                         const Array<Single>& EmGrid, const Array<Single>& GridInertia,
                         const Array<Single>& GModul, const Array<Single>& GridTorsion,
                         const Array<Single>& XGriD, const Array<Single>& YGriD, Single& EI,
                         Single& GJ, Single& XD, Single& YD, OptionalRef<Integer> i,
                         OptionalRef<Integer> j) const {
    const MemberScope scope("FEM_Class.BeamData", Named("EmGrid", EmGrid),
                            Named("GridInertia", GridInertia), Named("GModul", GModul),
                            Named("GridTorsion", GridTorsion), Named("XGriD", XGriD),
                            Named("YGriD", YGriD));
    i.Set(StartNode);
    j.Set(EndNode);
    EI = EmGrid(ElementType) * GridInertia(ElementType);
    GJ = GModul(ElementType) * GridTorsion(ElementType);
    XD = XGriD(EndNode) - XGriD(StartNode);
    YD = YGriD(EndNode) - YGriD(StartNode);
}

void FEM_Class::TransformationMatrix(Array<Single>& TR, Single XD, Single YD, Single EI, Single GJ,
                                     Single& F1, Single& F2, Single& ALE, Single& SI, Single& CO,
                                     Single& S2, Single& C2, Single& CS) const {
    const MemberScope scope("FEM_Class.TransformationMatrix", Named("TR", TR));
    ALE = Sqrt(XD * XD + YD * YD);
    if (ALE == 0) {
        RaiseError(ErrorNumber::DivisionByZero, "the beam has no length");
    }
    CO = YD / ALE;
    SI = -XD / ALE;
    C2 = CO * CO;
    S2 = SI * SI;
    CS = SI * CO;
    F1 = EI / ALE;
    F2 = GJ / ALE;
    FillBlocks(TR, {{1, 0, 0}, {0, CO, -SI}, {0, SI, CO}});
}

void FEM_Class::BeamStiffness(Array<Single>& ST, Single F1, Single F2, Single ALE, Single SI,
                              Single CO, Single S2, Single C2, Single CS) const {
    const MemberScope scope("FEM_Class.BeamStiffness", Named("ST", ST));
    // clang-format off
    constexpr TwoNodePattern pattern = {
        {1, 2, 3, -1,  2,  3},
        {0, 4, 5, -2,  7,  8},
        {0, 0, 6, -3,  8,  9},
        {0, 0, 0,  1, -2, -3},
        {0, 0, 0,  0,  4,  5},
        {0, 0, 0,  0,  0,  6},
    };
    // clang-format on
    FillSymmetric(ST, pattern,
                  std::array<Single, 9>{
                      12 * F1 / (ALE * ALE),
                      -6 * F1 / ALE * SI,
                      6 * F1 / ALE * CO,
                      4 * F1 * S2 + F2 * C2,
                      -(4 * F1 - F2) * CS,
                      4 * F1 * C2 + F2 * S2,
                      2 * F1 * S2 - F2 * C2,
                      (-2 * F1 - F2) * CS,
                      2 * F1 * C2 - F2 * S2,
                  });
}

void FEM_Class::BeamLoadVector(Array<Single>& UG, const Array<Single>& TR, Single PP,
                               Single ALE) const {
    const MemberScope scope("FEM_Class.BeamLoadVector", Named("UG", UG), Named("TR", TR));
    UG.ReDim(TwoNodeSize);
    const Single force = PP * ALE / 2;
    const Single moment = PP * (ALE * ALE) / 12;
    const std::array<Single, TwoNodeSize> F = {force, 0, moment, force, 0, -moment};
    for (const int i : Range(1, TwoNodeSize)) {
        for (const int j : Range(1, TwoNodeSize)) {
            UG(i) = F[static_cast<std::size_t>(j - 1)] * TR(i, j) + UG(i);
        }
    }
}

} // namespace torlib
