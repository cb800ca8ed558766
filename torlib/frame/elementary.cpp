#include "torlib/frame/elementary.h"

#include <array>
#include <bit>
#include <cstdint>

namespace torlib {
namespace {

// A value of about 106 bits as the sum of two doubles; the tables are computed with it when the
// library is compiled, so that no table of digits has to be trusted.
struct Pair {
    double hi;
    double lo;
};

constexpr Pair Sum(double a, double b) {
    const double s = a + b;
    const double t = s - a;
    return {s, (a - (s - t)) + (b - t)};
}

constexpr Pair Product(double a, double b) {
    constexpr double split = 134217729; // 2^27 + 1
    const double ah = split * a - (split * a - a);
    const double bh = split * b - (split * b - b);
    const double al = a - ah;
    const double bl = b - bh;
    const double p = a * b;
    return {p, ((ah * bh - p) + ah * bl + al * bh) + al * bl};
}

constexpr Pair operator+(Pair a, Pair b) {
    const Pair s = Sum(a.hi, b.hi);
    return Sum(s.hi, s.lo + (a.lo + b.lo));
}
constexpr Pair operator*(Pair a, Pair b) {
    const Pair p = Product(a.hi, b.hi);
    return Sum(p.hi, p.lo + (a.hi * b.lo + a.lo * b.hi));
}
constexpr Pair operator/(Pair a, Pair b) {
    const double q = a.hi / b.hi;
    const Pair p = Pair{q, 0} * b;
    const Pair rest = a + Pair{-p.hi, -p.lo};
    return Sum(q, rest.hi / b.hi);
}

// Sum of sign^k u^(2k+1) / (2k+1): the arc tangent for sign = -1, its hyperbolic twin for +1.
constexpr Pair OddSeries(Pair u, double sign, int terms) {
    const Pair square = u * u * Pair{sign, 0};
    Pair sum{0, 0};
    for (int k = terms - 1; k >= 0; --k) {
        sum = sum * square + Pair{1, 0} / Pair{2.0 * k + 1, 0};
    }
    return sum * u;
}

constexpr std::uint64_t Bits(double value) {
    return std::bit_cast<std::uint64_t>(value);
}
constexpr double FromBits(std::uint64_t bits) {
    return std::bit_cast<double>(bits);
}
/// The nearest whole number, for magnitudes below 2^51.
constexpr double Nearest(double value) {
    constexpr double shift = 6755399441055744; // 1.5 * 2^52
    return (value + shift) - shift;
}

// ---- logarithm: a = 2^k z with z in [11/16, 11/8), ln a = k ln 2 - ln(inverse) + ln(1 + r),
// ---- r = z inverse - 1; the cell of z is known from its leading bits.

struct LogCell {
    double inverse;      // m / 512, so that the upper half of z times it is exact
    double logarithm;    // -ln(inverse) in multiples of 2^-42, exact when k ln 2 is added
    double logarithmLow; // what that leaves
};

constexpr int logCells = 128;
constexpr std::uint64_t logStart = 0x3FE6000000000000; // 11/16
constexpr std::uint64_t logCellWidth = 1ULL << (52 - 7);

constexpr Pair ToMultiple(Pair value) {
    constexpr double unit = 4398046511104; // 2^42
    const double high = Nearest(value.hi * unit) / unit;
    return {high, (value.hi - high) + value.lo};
}

constexpr LogCell MakeLogCell(int i) {
    const double from = FromBits(logStart + static_cast<std::uint64_t>(i) * logCellWidth);
    const double to = FromBits(logStart + static_cast<std::uint64_t>(i + 1) * logCellWidth);
    // Next to 1 the logarithm is small, and keeps its digits only if nothing is subtracted.
    const double m = from == 1 || to == 1 ? 512 : Nearest(1024 / (from + to));
    const Pair s = Pair{512 - m, 0} / Pair{512 + m, 0};
    const Pair logarithm = ToMultiple(OddSeries(s, 1, 24) * Pair{2, 0});
    return {m / 512, logarithm.hi, logarithm.lo};
}

constexpr auto logTable = [] {
    std::array<LogCell, logCells> table{};
    for (int i = 0; i < logCells; ++i) {
        table[static_cast<std::size_t>(i)] = MakeLogCell(i);
    }
    return table;
}();
constexpr Pair ln2 = ToMultiple(OddSeries(Pair{1, 0} / Pair{3, 0}, 1, 36) * Pair{2, 0});

// ---- arc tangent: t in [1/64, 64) lies in one of 16 cells of its octave, c in the cell's middle,
// ---- so that |u| = |t - c| / (1 + t c) stays below 1/64.

constexpr int atanCells = 12 * 16;
constexpr std::uint64_t atanStart = 0x3F90000000000000; // 1/64
constexpr std::uint64_t atanCellWidth = 1ULL << (52 - 4);

constexpr double AtanMiddle(std::uint64_t cell) {
    return FromBits(atanStart + cell * atanCellWidth + atanCellWidth / 2);
}

constexpr auto atanTable = [] {
    std::array<Pair, atanCells> table{};
    double c = 0;
    Pair angle{0, 0};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double next = AtanMiddle(i);
        const Pair u = Pair{next - c, 0} / (Pair{1, 0} + Product(next, c));
        angle = angle + OddSeries(u, -1, 10);
        table[i] = angle;
        c = next;
    }
    return table;
}();

// Machin 1706: Pi/4 = 4 atan(1/5) - atan(1/239).
constexpr Pair halfPi = Pair{8, 0} * OddSeries(Pair{1, 0} / Pair{5, 0}, -1, 26) +
                        Pair{-2, 0} * OddSeries(Pair{1, 0} / Pair{239, 0}, -1, 8);
static_assert(2 * halfPi.hi == Pi.Value());

constexpr double AtanSeries(double u) {
    const double s = u * u;
    return u * s * (-1.0 / 3 + s * (1.0 / 5 + s * (-1.0 / 7 + s * (1.0 / 9))));
}

// ---- sine and cosine: the angle less n quarter turns, as a value and its rounding error.

struct Reduced {
    int quarter;
    double r;
    double low;
};

Reduced Reduce(const char* function, double a) {
    if (a >= -halfPi.hi / 2 && a <= halfPi.hi / 2) {
        return {0, a, 0};
    }
    if (!(a < 2251799813685248 && a > -2251799813685248)) { // 2^51
        RaiseDomain(function, a);
    }
    const double n = Nearest(a / halfPi.hi);
    const Pair p = Product(n, halfPi.hi);
    const Pair r = Pair{a - p.hi, 0} + Sum(-p.lo, -n * halfPi.lo);
    return {static_cast<int>(static_cast<std::int64_t>(n) & 3), r.hi, r.lo};
}

/// The first Count Taylor coefficients sign / first!, -sign / (first + 2)!, ...
template <std::size_t Count>
constexpr auto TaylorCoefficients(int first, double sign) {
    std::array<double, Count> coefficients{};
    double factorial = 1;
    for (int i = 2; i <= first; ++i) {
        factorial *= i;
    }
    for (double& coefficient : coefficients) {
        coefficient = sign / factorial;
        factorial *= (first + 1.0) * (first + 2.0);
        sign = -sign;
        first += 2;
    }
    return coefficients;
}
constexpr auto sine = TaylorCoefficients<8>(3, -1);
constexpr auto cosine = TaylorCoefficients<7>(4, 1);

template <std::size_t Count>
constexpr double Horner(const std::array<double, Count>& coefficients, double s) {
    double sum = coefficients.back();
    for (std::size_t i = Count - 1; i-- > 0;) {
        sum = sum * s + coefficients[i];
    }
    return sum;
}

double SineNearZero(const Reduced& angle) {
    const double s = angle.r * angle.r;
    return angle.r + (angle.r * s * Horner(sine, s) + angle.low * (1 - 0.5 * s));
}

double CosineNearZero(const Reduced& angle) {
    const double s = angle.r * angle.r;
    const double leading = 1 - 0.5 * s;
    const double rest = (1 - leading) - 0.5 * s;
    return leading + (rest + (s * s * Horner(cosine, s) - angle.r * angle.low));
}

/// The sine after so many further quarter turns.
double Turned(const Reduced& angle, int quarters) {
    const int q = (angle.quarter + quarters) & 3;
    const double value = (q & 1) != 0 ? CosineNearZero(angle) : SineNearZero(angle);
    return (q & 2) != 0 ? -value : value;
}

} // namespace

Real Log(Real a) {
    double x = a.Value();
    if (x <= 0) {
        RaiseDomain("logarithm", x);
    }
    if (!(x - x == 0)) {
        return a;
    }
    double exponent = 0;
    if (x < 0x1p-1022) {
        x *= 0x1p52;
        exponent = -52;
    }
    const std::uint64_t offset = Bits(x) - logStart;
    const LogCell& cell = logTable[(offset / logCellWidth) % logCells];
    exponent += static_cast<double>(static_cast<std::int64_t>(offset) >> 52);
    const double z = FromBits(Bits(x) - (offset & 0xFFF0000000000000));

    const double zHigh = FromBits(Bits(z) & 0xFFFFFFFFFFE00000);
    const double r = (zHigh * cell.inverse - 1) + (z - zHigh) * cell.inverse;
    const double s = r * r;
    const double upper = (-1.0 / 6 + r * (1.0 / 7)) + s * (-1.0 / 8 + r * (1.0 / 9));
    const double lower = (-1.0 / 4 + r * (1.0 / 5)) + s * upper;
    const double series = s * ((-1.0 / 2 + r * (1.0 / 3)) + s * lower);

    const double known = exponent * ln2.hi + cell.logarithm;
    const double high = known + r;
    const double low = (known - high) + r;
    return high + (low + (exponent * ln2.lo + cell.logarithmLow) + series);
}

Real Atan(Real a) {
    const double x = a.Value();
    const double t = x < 0 ? -x : x;
    if (t < 0x1p-6) {
        return x + AtanSeries(x);
    }
    Pair middle = halfPi;
    double u = 0;
    if (t < 64) {
        const std::uint64_t cell = (Bits(t) - atanStart) / atanCellWidth;
        const double c = AtanMiddle(cell);
        middle = atanTable[cell];
        u = (t - c) / (1 + t * c);
    } else {
        u = -1 / t;
    }
    const double angle = middle.hi + (u + (middle.lo + AtanSeries(u)));
    return x < 0 ? -angle : angle;
}

Real Sin(Real a) {
    return Turned(Reduce("sine", a.Value()), 0);
}

Real Cos(Real a) {
    return Turned(Reduce("cosine", a.Value()), 1);
}

} // namespace torlib
