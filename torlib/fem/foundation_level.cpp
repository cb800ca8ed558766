// Foundation levels of the nodes, and node coordinates of a turned and shifted local system.

#include "torlib/fem/fem_class.h"
#include "torlib/frame/elementary.h"

namespace torlib {

void FEM_Class::SetFoundationLevel(const Integer& Nk, const Integer& NE,
                                   const Array<Integer>& I_ElementType,
                                   const Array<Integer>& I_Corner, Single& TF, const Single& Tk,
                                   const String& Ngs, const Array<Integer>& MGRU,
                                   const Array<Single>& pt, Array<Single>& TFV) const {
    const MemberScope scope("FEM_Class.SetFoundationLevel", Named("I_ElementType", I_ElementType),
                            Named("I_Corner", I_Corner), Named("MGRU", MGRU), Named("pt", pt),
                            Named("TFV", TFV));
    TFV.ReDim(Nk);
    if (Ngs != u"J") {
        for (const int i : Range(1, Nk)) {
            TFV(i) = TF;
        }
        return;
    }
    for (const int e : Range(1, NE)) {
        const Real level = pt(MGRU(e)) + Tk;
        TF = level / I_ElementType(e);
        for (const int k : Range(1, I_ElementType(e))) {
            Single& nodeLevel = TFV(I_Corner(e, k));
            nodeLevel = nodeLevel + TF;
        }
    }
}

void FEM_Class::GetGlobalNodeCoordinate(Integer N, Array<Single>& x, Array<Single>& Y, Single Beta,
                                        Single Xo, Single yo) const {
    const MemberScope scope("FEM_Class.GetGlobalNodeCoordinate", Named("x", x), Named("Y", Y));
    if (N < 1) {
        return; // before the angle, which may be one that has no sine
    }
    const Single b = StoredPi * Beta / 180;
    const Real sine = Sin(b);
    const Real cosine = Cos(b);
    for (const int i : Range(1, N)) {
        const Real localX = x(i);
        const Real localY = Y(i);
        x(i) = localX * cosine - localY * sine + Xo;
        Y(i) = localX * sine + localY * cosine + yo;
    }
}

} // namespace torlib
