#include "torlib/piles/piles_class.h"

#include "torlib/frame/class_table.h"

namespace torlib {
namespace {

// clang-format off
constexpr Member pileMembers[] = {
    Method<&Piles_class::SinglePile>(u"SinglePile",
        u"Load-settlement curve of a bored pile, with the working load read off it.",
        {u"CalculationAccording", u"D", u"DF", u"QV", u"SZV", u"QSSU", u"CUU", u"ANSCH",
         u"SIG", u"SIG1", u"SIGGR", u"L1", u"Qss", u"CU", u"Tau", u"SkinFrictionInput",
         u"SV", u"QSP", u"QMA", u"SUMTAU1", u"Qp", u"Sp", u"QZV", u"QSD"}),
    Method<&Piles_class::Kz>(u"Kz",
        u"Coefficient of the vertical stress from a pile load in the half-space, tension positive.",
        {u"Nue", u"Np", u"MP", u"StressCoefficientCase"}),
    Method<&Piles_class::PileStiffness>(u"PileStiffness", u"Axial stiffness of a pile element.",
        {u"ST", u"Eep", u"Aep", u"Lep"}),
};
// clang-format on

} // namespace

void Piles_class::PileStiffness(Array<Single>& ST, Single Eep, Single Aep, Single Lep) const {
    const MemberScope scope("Piles_class.PileStiffness", Named("ST", ST));
    ST.ReDim(2, 2);
    const Single k = Eep * Aep / Lep;
    ST(1, 1) = k;
    ST(1, 2) = -k;
    ST(2, 1) = -k;
    ST(2, 2) = k;
}

Piles_class& Piles_class::DefaultInstance() {
    static Piles_class instance;
    return instance;
}

const ClassInfo& Piles_class::Info() {
    static const ClassInfo info = DescribeClass<Piles_class>(
        u"Piles_class", u"Resistance, stresses and stiffness of a single pile.", pileMembers);
    return info;
}

} // namespace torlib
