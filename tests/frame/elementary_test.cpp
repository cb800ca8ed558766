// The elementary functions against 80-bit arithmetic, and the promise that their bits never change.

#include "tests/error_of.h"
#include "torlib/frame/elementary.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>

namespace torlib {
namespace {

/// Numbers from..to in a fixed sequence, the same on every machine.
double Draw(std::uint64_t& state, double from, double to) {
    state = state * 6364136223846793005 + 1442695040888963407;
    return from + (to - from) * (static_cast<double>(state >> 11) * 0x1p-53);
}

TEST(Elementary, StaysWithinTheStatedError) {
#if LDBL_MANT_DIG < 64
    GTEST_SKIP() << "no wider arithmetic to compare with";
#endif
    using Wide = long double;
    const struct {
        Real (*Ours)(Real);
        Wide (*Reference)(Wide);
        double From, To; // of the exponent when Logarithmic
        bool Logarithmic;
        double AllowedUlp;
    } cases[] = {{Log, std::log, 0.9, 1.1, false, 0.76}, {Log, std::log, -740, 709, true, 0.76},
                 {Atan, std::atan, -3, 3, false, 0.55},  {Atan, std::atan, -40, 40, true, 0.55},
                 {Sin, std::sin, -7, 7, false, 0.81},    {Sin, std::sin, -1E6, 1E6, false, 0.81},
                 {Cos, std::cos, -7, 7, false, 0.81},    {Cos, std::cos, -1E6, 1E6, false, 0.81}};
    for (const auto& of : cases) {
        std::uint64_t state = 2024;
        Wide worst = 0;
        for (int i = 0; i < 100000; ++i) {
            const double drawn = Draw(state, of.From, of.To);
            const double x = of.Logarithmic ? static_cast<double>(std::exp(Wide(drawn))) : drawn;
            const Wide exact = of.Reference(x);
            const Wide ulp = std::ldexp(Wide(1), std::ilogb(exact) - 52);
            worst = std::fmax(worst, std::fabs((of.Ours(x).Value() - exact) / ulp));
        }
        EXPECT_LT(worst, of.AllowedUlp) << "case " << &of - cases;
    }
}

TEST(Elementary, BitsNeverChange) {
    std::uint64_t hash = 14695981039346656037U;
    std::uint64_t state = 2024;
    for (int i = 0; i < 50000; ++i) {
        const double x = Draw(state, -20, 20);
        for (const Real y : {Log(x * x + 1E-3), Atan(x), Sin(x), Cos(x)}) {
            hash = (hash ^ std::bit_cast<std::uint64_t>(y.Value())) * 1099511628211U;
        }
    }
    EXPECT_EQ(hash, 6687386434067421391U);
}

TEST(Elementary, ExactValuesAndDomain) {
    EXPECT_EQ(Log(1).Value(), 0);
    EXPECT_EQ((4 * Atan(1)).Value(), Pi.Value());
    EXPECT_EQ(Atan(-HUGE_VAL).Value(), -Pi.Value() / 2);
    EXPECT_DOUBLE_EQ(Log(4.9E-324).Value(), -744.44007192138121809);
    EXPECT_EQ(Log(HUGE_VAL).Value(), HUGE_VAL);
    EXPECT_TRUE(std::isnan(Log(std::nan("")).Value()));
    EXPECT_EQ(test::ErrorOf([] { Log(0); }), 5);
    EXPECT_EQ(test::ErrorOf([] { Log(-1E-300); }), 5);
    EXPECT_EQ(test::ErrorOf([] { Sin(0x1p51); }), 5);
    EXPECT_EQ(test::ErrorOf([] { Cos(-HUGE_VAL); }), 5);
    EXPECT_EQ(test::ErrorOf([] { Sin(0x1p50); }), 0);
}

} // namespace
} // namespace torlib
