#include "torlib/piles/pile_geometry_class.h"
#include "torlib/platform/component/run_time_error.h"

namespace torlib {
namespace {

void SetIdentity(Array<Integer>& numbers, Integer n) {
    numbers.ReDim(n);
    for (const int i : Range(1, n)) {
        numbers(i) = i;
    }
}

/// The largest of values(1..N), not below the start.
template <class T>
T Largest(Integer N, const Array<T>& values, T start) {
    for (const int i : Range(1, N)) {
        if (values(i) > start) {
            start = values(i);
        }
    }
    return start;
}

} // namespace

Integer PileGeometry_Class::MaxDim(Integer N, const Array<Integer>& NN) const {
    const MemberScope scope("PileGeometry_Class.MaxDim", Named("NN", NN));
    return Largest(N, NN, Integer(0));
}

void PileGeometry_Class::MaxCoordinates(Integer N, const Array<Single>& XG, const Array<Single>& YG,
                                        Single& XMax, Single& YMax) const {
    const MemberScope scope("PileGeometry_Class.MaxCoordinates", Named("XG", XG), Named("YG", YG));
    XMax = Largest(N, XG, XG(1));
    YMax = Largest(N, YG, YG(1));
}

void PileGeometry_Class::SetPileNo(const Array<Integer>& Nak_Pile, Array<Integer>& NakPP,
                                   Integer Nk, Integer Np) const {
    const MemberScope scope("PileGeometry_Class.SetPileNo", Named("Nak_Pile", Nak_Pile),
                            Named("NakPP", NakPP));
    NakPP.ReDim(Nk);
    for (const int n : Range(1, Nk)) {
        for (const int j : Range(1, Np)) {
            if (Nak_Pile(j) == n) {
                NakPP(n) = j;
            }
        }
    }
}

void PileGeometry_Class::SetRaftNodeNo(const Array<Integer>& Nak_Raft, Array<Integer>& NakRF,
                                       Integer NkPG) const {
    const MemberScope scope("PileGeometry_Class.SetRaftNodeNo", Named("Nak_Raft", Nak_Raft),
                            Named("NakRF", NakRF));
    NakRF.ReDim(NkPG);
    for (const int i : Range(1, NkPG)) {
        NakRF(i) = Nak_Raft(i);
    }
}

void PileGeometry_Class::ResolveNodeNumber(Array<Integer>& NakRF, Integer Nk) const {
    const MemberScope scope("PileGeometry_Class.ResolveNodeNumber", Named("NakRF", NakRF));
    SetIdentity(NakRF, Nk);
}

void PileGeometry_Class::ResolveSymmetryNode(Integer NkPG, Array<Integer>& NakPP) const {
    const MemberScope scope("PileGeometry_Class.ResolveSymmetryNode", Named("NakPP", NakPP));
    SetIdentity(NakPP, NkPG);
}

} // namespace torlib
