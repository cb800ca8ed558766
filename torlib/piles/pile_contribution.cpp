// Weights of points on symmetry lines, and flexibilities condensed to one for each raft node.

#include "torlib/frame/large_output.h"
#include "torlib/piles/pile_geometry_class.h"
#include "torlib/platform/component/run_time_error.h"

#include <algorithm>
#include <utility>

namespace torlib {
namespace {

/// The value in hundredths as its text with two decimals shows it; exact for every 32-bit value.
Real ShownHundredths(Single value) {
    const Real hundredths = 100 * Abs(value);
    constexpr double allWhole = 4503599627370496; // 2^52
    return Sgn(value) * (hundredths < allWhole ? Int(hundredths + 0.5) : hundredths);
}

bool ShowEqual(Single a, Single b) {
    return ShownHundredths(a) == ShownHundredths(b);
}

/// Raises 9 for lists that do not reach over all nodes of Nk groups.
void RequireGroups(int Nk, const Array<Single>& kij, const Array<Integer>& NK_PR) {
    RequireList(NK_PR, Nk);
    int total = 0;
    for (const int i : Range(1, Nk)) {
        total += std::max(+NK_PR(i), 0);
    }
    if (total > 0) {
        RequireSquare(kij, total);
    }
}

} // namespace

void PileGeometry_Class::ResolveContributedFactor(Integer NC, Array<Single>& Cf) const {
    const MemberScope scope("PileGeometry_Class.ResolveContributedFactor", Named("Cf", Cf));
    Cf.ReDim(NC);
    for (const int i : Range(1, NC)) {
        Cf(i) = 1;
    }
}

void PileGeometry_Class::ContributedFactor(SymmetricCase Isym, Integer NC, Array<Single>& Cf,
                                           Single XMax, Single YMax, const Array<Single>& Xc,
                                           const Array<Single>& Yc) const {
    const MemberScope scope("PileGeometry_Class.ContributedFactor", Named("Cf", Cf),
                            Named("Xc", Xc), Named("Yc", Yc));
    ResolveContributedFactor(NC, Cf);
    const bool both = Isym == SymmetricCase::XY_Symmetric;
    const bool xLine = both || Isym == SymmetricCase::Y_Symmetric;
    const bool yLine = both || Isym == SymmetricCase::X_symmetric;
    for (const int i : Range(1, NC)) {
        const Single x = Xc(i);
        const Single y = Yc(i);
        const bool onX = xLine && ShowEqual(x, XMax);
        const bool onY = yLine && ShowEqual(y, YMax);
        Cf(i) = (onX ? 2 : 1) * (onY ? 2 : 1);
    }
}

void PileGeometry_Class::GlobalContributedFactor(Integer Npf, Integer NkPG,
                                                 const Array<Single>& XGN, const Array<Single>& YGN,
                                                 const Array<Single>& XPl, const Array<Single>& YPl,
                                                 Array<Single>& Cf) const {
    const MemberScope scope("PileGeometry_Class.GlobalContributedFactor", Named("XGN", XGN),
                            Named("YGN", YGN), Named("XPl", XPl), Named("YPl", YPl),
                            Named("Cf", Cf));
    Array<Single> T;
    T.ReDim(NkPG);
    for (const int n : Range(1, NkPG)) {
        T(n) = 1;
        for (const int j : Range(1, Npf)) {
            const Single x = XGN(n);
            const Single y = YGN(n);
            if (x == XPl(j) && y == YPl(j)) {
                T(n) = Cf(j);
                break;
            }
        }
    }
    Cf = std::move(T);
}

void PileGeometry_Class::ComposedCoefficients(Integer Nk, const Array<Single>& kij,
                                              Array<Single>& Gk,
                                              const Array<Integer>& NK_PR) const {
    const MemberScope scope("PileGeometry_Class.ComposedCoefficients", Named("kij", kij),
                            Named("Gk", Gk), Named("NK_PR", NK_PR));
    if (IsLargeSquare(Nk)) {
        RequireGroups(Nk, kij, NK_PR);
    }
    Gk.ReDim(Nk, Nk);
    int oi = 0;
    for (const int i : Range(1, Nk)) {
        int oj = 0;
        for (const int j : Range(1, Nk)) {
            for (const int a : Range(1, NK_PR(i))) {
                for (const int b : Range(1, NK_PR(j))) {
                    Gk(i, j) = Gk(i, j) + kij(oi + a, oj + b);
                }
            }
            oj += NK_PR(j);
        }
        oi += NK_PR(i);
    }
}

} // namespace torlib
