#pragma once
// Mindlin's point kernel in double precision and its integrals over a line, a shaft, a circle and a
// rectangle by adaptive quadrature: displacements times the modulus of elasticity by a unit load.

#include <algorithm>
#include <cmath>
#include <numbers>

namespace torlib::test {

/// Gauss's 7 and Kronrod's 15 points on halves of halves, until both agree to `share` of the whole.
template <class Function>
double Integrate(Function f, double a, double b, double share, double allowed = 0, int depth = 0) {
    static constexpr double x[] = {0.991455371120813, 0.949107912342759, 0.864864423359769,
                                   0.741531185599394, 0.586087235467691, 0.405845151377397,
                                   0.207784955007898};
    static constexpr double kronrod[] = {0.022935322010529, 0.063092092629979, 0.104790010322250,
                                         0.140653259715526, 0.169004726639268, 0.190350578064785,
                                         0.204432940075299, 0.209482141084728};
    static constexpr double gauss[] = {0.129484966168870, 0.279705391489277, 0.381830050505119,
                                       0.417959183673469};
    if (b <= a) {
        return 0;
    }
    const double half = (b - a) / 2;
    const double middle = (a + b) / 2;
    double fine = kronrod[7] * f(middle);
    double coarse = gauss[3] * f(middle);
    for (int i = 0; i < 7; ++i) {
        const double pair = f(middle - half * x[i]) + f(middle + half * x[i]);
        fine += kronrod[i] * pair;
        coarse += i % 2 == 1 ? gauss[i / 2] * pair : 0;
    }
    if (depth == 0) {
        allowed = share * std::fabs(half * fine);
    }
    if (half * std::fabs(fine - coarse) <= allowed || depth == 40) {
        return half * fine;
    }
    return Integrate(f, a, middle, share, allowed, depth + 1) +
           Integrate(f, middle, b, share, allowed, depth + 1);
}

// An outer integral asks for less than the inner ones give, or it would chase their noise.
inline constexpr double Inner = 1E-11;
inline constexpr double Outer = 1E-8;

/// The sum of 1/R terms of the kernel, in the form of Mindlin (1936).
inline double Kernel(double rho, double c, double z, double nu) {
    const double near = 3 - 4 * nu;
    const double h = z - c;
    const double s = z + c;
    const double R1 = std::sqrt(rho * rho + h * h);
    const double R2 = std::sqrt(rho * rho + s * s);
    const double sum = near / R1 + (8 * (1 - nu) * (1 - nu) - near) / R2 + h * h / (R1 * R1 * R1) +
                       (near * s * s - 2 * c * z) / (R2 * R2 * R2) +
                       6 * c * z * s * s / (R2 * R2 * R2 * R2 * R2);
    return sum * (1 + nu) / (8 * std::numbers::pi * (1 - nu));
}

inline double LineReference(double R, double L1, double L2, double z, double nu) {
    const auto at = [&](double c) { return Kernel(R, c, z, nu); };
    const double cut = std::clamp(z, L1, L2);
    return (Integrate(at, L1, cut, Inner) + Integrate(at, cut, L2, Inner)) / (L2 - L1);
}

inline double RingReference(double R, double ro, double L1, double L2, double z, double nu) {
    const auto at = [&](double theta) {
        const double sine = std::sin(theta / 2);
        const double d = std::sqrt((R - ro) * (R - ro) + 4 * R * ro * sine * sine);
        return LineReference(d, L1, L2, z, nu);
    };
    return Integrate(at, 0, std::numbers::pi, Outer) / std::numbers::pi;
}

/// Polar coordinates round the point, where the kernel's singularity vanishes.
inline double CircleReference(double R, double ro, double c, double z, double nu) {
    const auto along = [&](double phi) {
        const double across = R * std::sin(phi);
        const double half = std::sqrt(std::max(0.0, ro * ro - across * across));
        const double from = std::max(0.0, R * std::cos(phi) - half);
        const double to = std::max(0.0, R * std::cos(phi) + half);
        return Integrate([&](double s) { return s * Kernel(s, c, z, nu); }, from, to, Inner);
    };
    const double last = R > ro ? std::asin(ro / R) : std::numbers::pi;
    return 2 * Integrate(along, 0, last, Outer) / (std::numbers::pi * ro * ro);
}

/// Displacement by unit pressure on a rectangle in the depth c, under its corner in the depth z.
inline double CornerReference(double A, double B, double c, double z, double nu) {
    const auto strip = [&](double x) {
        return Integrate([&](double y) { return Kernel(std::sqrt(x * x + y * y), c, z, nu); }, 0, B,
                         Inner);
    };
    return Integrate(strip, 0, A, Outer);
}

} // namespace torlib::test
