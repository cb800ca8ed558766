// Support conditions given as texts, turned into the restraint list.

#include "torlib/fem/fem_class.h"
#include "torlib/fem/restraint_list.h"
#include "torlib/frame/companion_services.h"

namespace torlib {

namespace {

bool IsFree(const String& condition) {
    return condition == u"F";
}

} // namespace

void FEM_Class::SetBoundaryInSystem(Integer NFreedom, Integer NDesp, Integer NA,
                                    const Array<Integer>& KA, Array<String>& De, Integer& NF,
                                    Array<Integer>& NS, Array<Single>& AufL) const {
    const MemberScope scope("FEM_Class.SetBoundaryInSystem", Named("KA", KA), Named("De", De),
                            Named("NS", NS), Named("AufL", AufL));
    UtilityServices& utility = Companions().Utility();
    for (const int i : Range(1, NA)) {
        for (const int j : Range(1, NDesp)) {
            String& condition = De(Integer((i - 1) * NFreedom + j));
            if (!IsFree(condition)) {
                const Single value = utility.ConvertToSingle(condition);
                const Single scaled = value / 100;
                condition = NumberText(scaled.Value());
            }
        }
    }
    NF = 0;
    for (const int i : Range(1, NA)) {
        for (const int j : Range(1, NFreedom)) {
            const String& condition = De(Integer((i - 1) * NFreedom + j));
            if (!IsFree(condition)) {
                // In this order, since an error leaves the caller what was done before it.
                GrowRestraints(NF, NS, AufL);
                NS(NF) = (KA(i) - 1) * NFreedom + j;
                AufL(NF) = utility.ConvertToSingle(condition);
            }
        }
    }
}

} // namespace torlib
