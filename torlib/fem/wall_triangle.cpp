// The triangle of constant strain in plane stress, of which wall plates are built.

#include "torlib/fem/fem_class.h"

#include <array>

namespace torlib {

void FEM_Class::SetStressElementStiffness(Array<Single>& SK, const Array<Single>& x,
                                          const Array<Single>& Y, Single e, Single T, Single bnu,
                                          Single AL) const {
    const MemberScope scope("FEM_Class.SetStressElementStiffness", Named("SK", SK), Named("x", x),
                            Named("Y", Y));
    constexpr int size = 6;
    SK.ReDim(size, size);
    const Single d = 2 * Sqrt(AL);
    if (d == 0) {
        RaiseError(ErrorNumber::DivisionByZero, "the wall element has no area");
    }
    const Single D11 = e * T / (1 - bnu * bnu);
    const Single D12 = D11 * bnu;
    const Single Gs = e * T / 2 / (1 + bnu);
    const std::array<Single, 3> b = {(Y(2) - Y(3)) / d, (Y(3) - Y(1)) / d, (Y(1) - Y(2)) / d};
    const std::array<Single, 3> c = {(x(3) - x(2)) / d, (x(1) - x(3)) / d, (x(2) - x(1)) / d};
    const auto entry = [&](int i, int j) -> Single {
        const auto p = static_cast<std::size_t>((i - 1) / 2);
        const auto q = static_cast<std::size_t>((j - 1) / 2);
        const bool alongX = i % 2 == 1;
        if (i % 2 == j % 2) {
            return alongX ? D11 * b[p] * b[q] + Gs * c[p] * c[q]
                          : D11 * c[p] * c[q] + Gs * b[p] * b[q];
        }
        return alongX ? D12 * b[p] * c[q] + Gs * c[p] * b[q] : D12 * c[p] * b[q] + Gs * b[p] * c[q];
    };
    for (const int i : Range(1, size)) {
        for (const int j : Range(i, size)) {
            SK(i, j) = entry(i, j);
            SK(j, i) = SK(i, j);
        }
    }
}

} // namespace torlib
