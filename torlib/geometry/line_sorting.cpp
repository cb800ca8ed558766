#include "torlib/geometry/geometry_class.h"
#include "torlib/geometry/point.h"

#include <algorithm>
#include <vector>

namespace torlib {
namespace {

bool RepeatsLater(int i, int N, const Array<Single>& XL, const Array<Single>& YL) {
    for (int j : Range(i + 1, N)) {
        if (XL(i) == XL(j) && YL(i) == YL(j)) {
            return true;
        }
    }
    return false;
}

} // namespace

void Geometry_Class::DeletingDuplicatePoints(Integer& N, Array<Single>& XL,
                                             Array<Single>& YL) const {
    const MemberScope scope("Geometry_Class.DeletingDuplicatePoints", Named("XL", XL),
                            Named("YL", YL));
    std::vector<plane::Point> kept;
    for (int i : Range(1, N)) {
        if (!RepeatsLater(i, N, XL, YL)) {
            kept.push_back({XL(i), YL(i)});
        }
    }
    N = kept.size();
    int i = 0;
    for (const plane::Point& point : kept) {
        ++i;
        XL(i) = point.x;
        YL(i) = point.Y;
    }
}

void Geometry_Class::SortingLine(Integer& NL, Array<Single>& XL, Array<Single>& YL, Single Xs,
                                 Single Ys, Single XE, Single YE) const {
    const MemberScope scope("Geometry_Class.SortingLine", Named("XL", XL), Named("YL", YL));
    const Single L = plane::Distance({Xs, Ys}, {XE, YE});
    DeletingDuplicatePoints(NL, XL, YL);
    std::vector<Single> distances{0}; // the start comes first, whether it is in the list or not
    for (int i : Range(1, NL)) {
        if (XL(i) != Xs || YL(i) != Ys) {
            distances.emplace_back(plane::Distance({Xs, Ys}, {XL(i), YL(i)}));
        }
    }
    std::sort(distances.begin() + 1, distances.end());
    int k = 0;
    for (const Single D : distances) {
        ++k;
        XL(k) = (XE - Xs) * D / L + Xs;
        YL(k) = (YE - Ys) * D / L + Ys;
    }
}

} // namespace torlib
