// The elementary functions against 80-bit arithmetic, and the promise that their bits never change.

#include "tests/error_of.h"
#include "torlib/frame/elementary.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

namespace torlib {
namespace {

using test::ErrorOf;

/// Numbers 0..1 from a fixed sequence, the same on every machine.
class Sequence {
  public:
    double Next() {
        state_ = state_ * 6364136223846793005 + 1442695040888963407;
        return static_cast<double>(state_ >> 11) * 0x1p-53;
    }

  private:
    std::uint64_t state_ = 2024;
};

struct Case {
    const char* Name;
    Real (*Ours)(Real);
    long double (*Reference)(long double);
    double From; // the exponent's range when Logarithmic
    double To;
    bool Logarithmic;
    double AllowedUlp;
};

const Case cases[] = {
    {"Log near 1", Log, std::log, 0.9, 1.1, false, 0.76},
    {"Log of any size", Log, std::log, -740, 709, true, 0.76},
    {"Atan", Atan, std::atan, -3, 3, false, 0.55},
    {"Atan of any size", Atan, std::atan, -40, 40, true, 0.55},
    {"Sin of one turn", Sin, std::sin, -7, 7, false, 0.81},
    {"Sin of many turns", Sin, std::sin, -1E6, 1E6, false, 0.81},
    {"Cos of one turn", Cos, std::cos, -7, 7, false, 0.81},
    {"Cos of many turns", Cos, std::cos, -1E6, 1E6, false, 0.81},
};

double Draw(const Case& of, Sequence& sequence) {
    const double x = of.From + (of.To - of.From) * sequence.Next();
    return of.Logarithmic ? static_cast<double>(std::exp(static_cast<long double>(x))) : x;
}

TEST(Elementary, StaysWithinTheStatedError) {
#if LDBL_MANT_DIG < 64
    GTEST_SKIP() << "no wider arithmetic to compare with";
#endif
    for (const Case& of : cases) {
        Sequence sequence;
        double worst = 0;
        for (int i = 0; i < 100000; ++i) {
            const double x = Draw(of, sequence);
            const long double exact = of.Reference(x);
            const long double ulp = std::ldexp(1.0L, std::ilogb(exact) - 52);
            const auto error = std::fabs((of.Ours(x).Value() - exact) / ulp);
            worst = std::fmax(worst, static_cast<double>(error));
        }
        EXPECT_LT(worst, of.AllowedUlp) << of.Name;
    }
}

TEST(Elementary, BitsNeverChange) {
    std::uint64_t hash = 14695981039346656037U;
    Sequence sequence;
    for (int i = 0; i < 50000; ++i) {
        const double x = -20 + 40 * sequence.Next();
        for (const Real y : {Log(x * x + 1E-3), Atan(x), Sin(x), Cos(x)}) {
            hash = (hash ^ std::bit_cast<std::uint64_t>(y.Value())) * 1099511628211U;
        }
    }
    EXPECT_EQ(hash, 6687386434067421391U);
}

TEST(Elementary, ExactValuesAndDomain) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Log(1).Value(), 0);
    EXPECT_EQ((4 * Atan(1)).Value(), Pi.Value());
    EXPECT_EQ(Atan(infinity).Value(), Pi.Value() / 2);
    EXPECT_EQ(Atan(-infinity).Value(), -Pi.Value() / 2);
    EXPECT_EQ(Cos(0).Value(), 1);
    EXPECT_DOUBLE_EQ(Log(4.9E-324).Value(), -744.44007192138121809);
    EXPECT_EQ(Log(infinity).Value(), infinity);
    EXPECT_TRUE(std::isnan(Log(std::nan("")).Value()));
    EXPECT_EQ(ErrorOf([] { Log(0); }), 5);
    EXPECT_EQ(ErrorOf([] { Log(-1E-300); }), 5);
    EXPECT_EQ(ErrorOf([] { Sin(0x1p51); }), 5);
    EXPECT_EQ(ErrorOf([=] { Cos(-infinity); }), 5);
    EXPECT_EQ(ErrorOf([] { Sin(0x1p50); }), 0);
}

} // namespace
} // namespace torlib
