#pragma once
// Mindlin's point kernel in double precision and its integrals over a line, a shaft, a circle and a
// rectangle by adaptive quadrature: displacements times the modulus of elasticity by a unit load.

#include <algorithm>
#include <cmath>
#include <numbers>

namespace torlib::test {

/// Gauss's rule of eight points, exact to the degree 15.
template <class Function>
double EightPoints(const Function& f, double a, double b) {
    static constexpr double x[] = {0.960289856497536, 0.796666477413627, 0.525532409916329,
                                   0.183434642495650};
    static constexpr double w[] = {0.101228536290376, 0.222381034453374, 0.313706645877887,
                                   0.362683783378362};
    const double half = (b - a) / 2;
    double sum = 0;
    for (int i = 0; i < 4; ++i) {
        sum += w[i] * (f(a + half * (1 - x[i])) + f(b - half * (1 - x[i])));
    }
    return half * sum;
}

/// Halves of halves until they agree with the whole.
template <class Function>
double Halved(const Function& f, double a, double b, double whole, double allowed, int depth) {
    const double middle = (a + b) / 2;
    const double left = EightPoints(f, a, middle);
    const double right = EightPoints(f, middle, b);
    if (std::fabs(left + right - whole) <= allowed || depth == 0) {
        return left + right;
    }
    return Halved(f, a, middle, left, allowed, depth - 1) +
           Halved(f, middle, b, right, allowed, depth - 1);
}

/// The integral to about `share` of itself; 0 where b is not beyond a.
template <class Function>
double Integrate(const Function& f, double a, double b, double share) {
    if (b <= a) {
        return 0;
    }
    const double whole = EightPoints(f, a, b);
    return Halved(f, a, b, whole, share * std::fabs(whole), 40);
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
