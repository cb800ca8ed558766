// All grid beams of a system into the band matrix and the load vector.

#include "torlib/fem/fem_class.h"
#include "torlib/frame/error_routine.h"
#include "torlib/frame/run_state.h"

namespace torlib {

bool FEM_Class::SetBeamStiffnessMatrix(
    const Array<Integer>& NodeStart, const Array<Integer>& NodeEnd, const Array<Integer>& NTy,
    const Array<Single>& EmGrid, const Array<Single>& GridInertia, const Array<Single>& GModul,
    const Array<Single>& GridTorsion, const Array<Single>& XGriD, const Array<Single>& YGriD,
    Integer NEGrid, const Array<Single>& QL, Array<Single>& Q, Array<Single>& A,
    const Object& FrmShow, bool PrograssBarMode, const Object& ObjStbar) {
    const MemberScope scope("FEM_Class.SetBeamStiffnessMatrix", Named("NodeStart", NodeStart),
                            Named("NodeEnd", NodeEnd), Named("NTy", NTy), Named("QL", QL));
    try {
        Array<Integer> node(Bounds{1, 2});
        Array<Single> TR;
        Array<Single> ST;
        Array<Single> UG;
        for (const int e : Range(1, NEGrid)) {
            node(1) = NodeStart(e);
            node(2) = NodeEnd(e);
            if (PrograssBarMode) {
                ProgressBarValue(FrmShow, e, ObjStbar);
            }
            if (CheckCancelRequest(FrmShow)) {
                return true;
            }
            Single EI, GJ, XD, YD;
            BeamData(node(1), node(2), NTy(e), EmGrid, GridInertia, GModul, GridTorsion, XGriD,
                     YGriD, EI, GJ, XD, YD);
            Single F1, F2, ALE, SI, CO, S2, C2, CS;
            TransformationMatrix(TR, XD, YD, EI, GJ, F1, F2, ALE, SI, CO, S2, C2, CS);
            BeamStiffness(ST, F1, F2, ALE, SI, CO, S2, C2, CS);
            BeamLoadVector(UG, TR, QL(e), ALE);
            GlobalStiffnessMatrix(A, ST, 3, 2, node);
            GlobalLoadVector(Q, UG, 3, 2, node);
        }
        return CheckCancelRequest(FrmShow);
    } catch (...) {
        HandleCurrentError(); // also of a handler of the host, which may throw anything
    }
    return true; // not assembled to the end, so the host must not go on
}

} // namespace torlib
