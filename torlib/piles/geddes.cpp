// Stress coefficients of a pile load: Mindlin's solution for a load inside the half-space, taken at
// the base or integrated along the shaft (Geddes 1966).

#include "torlib/frame/elementary.h"
#include "torlib/piles/piles_class.h"
#include "torlib/platform/component/run_time_error.h"

namespace torlib {
namespace {

Real Square(Real a) {
    return a * a;
}
Real Cube(Real a) {
    return a * a * a;
}
Real Fifth(Real a) {
    return a * a * a * a * a;
}

/// The point in units of the pile's length, with its distances from the base, from the base's
/// mirror image above the surface, and from the head.
struct Point {
    Real nu, n, m;
    Real A = Sqrt(n * n + Square(m - 1));
    Real B = Sqrt(n * n + Square(m + 1));
    Real F = Sqrt(n * n + m * m);
};

// One statement for each term: the first that fails decides the error number.

Real BaseLoad(const Point& at) {
    const auto [nu, n, m, A, B, F] = at;
    Real K = -(1 - 2 * nu) * (m - 1) / Cube(A);
    K += (1 - 2 * nu) * (m - 1) / Cube(B);
    K -= 3 * Cube(m - 1) / Fifth(A);
    K -= (3 * (3 - 4 * nu) * m * Square(m + 1) - 3 * (m + 1) * (5 * m - 1)) / Fifth(B);
    K -= 30 * m * Cube(m + 1) / (Fifth(B) * Square(B));
    return K / (8 * Pi * (1 - nu));
}

Real UniformFriction(const Point& at) {
    const auto [nu, n, m, A, B, F] = at;
    Real K = -2 * (2 - nu) / A;
    const Real q = m / n;
    K += (2 * (2 - nu) + 2 * (1 - 2 * nu) * q * (q + 1 / n)) / B;
    K -= 2 * (1 - 2 * nu) * Square(q) / F;
    K += n * n / Cube(A);
    K += (4 * (m * m) - 4 * (1 + nu) * Square(q) * (m * m)) / Cube(F);
    K += (4 * m * (1 + nu) * (m + 1) * Square(q + 1 / n) - (4 * (m * m) + n * n)) / Cube(B);
    K += 6 * (m * m) * (Square(m * m) - Square(n * n)) / (n * n * Fifth(F));
    K += 6 * m * (m * (n * n) - Fifth(m + 1) / (n * n)) / Fifth(B);
    return K / (8 * Pi * (1 - nu));
}

Real LinearFriction(const Point& at) {
    const auto [nu, n, m, A, B, F] = at;
    Real K = -2 * (2 - nu) / A;
    const Real q2 = Square(m / n);
    const Real n2 = n * n;
    K += (2 * (2 - nu) * (4 * m + 1) - 2 * (1 - 2 * nu) * q2 * (m + 1)) / B;
    K += (2 * (1 - 2 * nu) * Cube(m) / n2 - 8 * (2 - nu) * m) / F;
    K += (m * n2 + Cube(m - 1)) / Cube(A);
    K += (4 * nu * n2 * m + 4 * Cube(m) - 15 * n2 * m - 2 * (5 + 2 * nu) * q2 * Cube(m + 1) +
          Cube(m + 1)) /
         Cube(B);
    K += (2 * (7 - 2 * nu) * m * n2 - 6 * Cube(m) + 2 * (5 + 2 * nu) * q2 * Cube(m)) / Cube(F);
    K += (6 * m * n2 * (n2 - m * m) + 12 * q2 * Fifth(m + 1)) / Fifth(B);
    K -= (12 * q2 * Fifth(m) + 6 * m * n2 * (n2 - m * m)) / Fifth(F);
    const Real base = (A + m - 1) / (F + m);
    const Real image = (B + m + 1) / (F + m);
    K -= 2 * (2 - nu) * Log(base * image);
    return K / (4 * Pi * (1 - nu));
}

} // namespace

Single Piles_class::Kz(const Single& Nue, const Single& Np, const Single& MP,
                       Integer StressCoefficientCase) const {
    const MemberScope scope("Piles_class.Kz");
    const Point at{Nue, Np, MP};
    switch (StressCoefficientCase) {
        case 1:
            return BaseLoad(at);
        case 2:
            return UniformFriction(at);
        case 3:
            return LinearFriction(at);
        default:
            return 0;
    }
}

} // namespace torlib
