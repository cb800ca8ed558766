#include "torlib/frame/arithmetic.h"

#include "tests/error_text.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>

namespace torlib {
namespace {

using test::ErrorText;

TEST(Arithmetic, ExpressionsAreDoubleAndEveryStoreRoundsOnce) {
    const Single tenth = 0.1;
    EXPECT_EQ(tenth.Value(), 0.1F);
    EXPECT_NE(Real(tenth).Value(), 0.1) << "the stored value is read, not the constant";
    // In 32 bits 2^24 + 1 + 1 would stay 2^24: the sum is formed in double and rounded once.
    const Single large = 16777216;
    Single sum = large + 1 + 1;
    EXPECT_EQ(sum.Value(), 16777218.0F);
    sum = large + 1;
    EXPECT_EQ(sum.Value(), 16777216.0F) << "half way: to the even neighbour";
    sum += 1;
    EXPECT_EQ(sum.Value(), 16777216.0F) << "a running sum is rounded after every term";
    // (1 + e)^2 - 1 - 2 e = e^2 needs the product before it is rounded to 32 bits.
    const Single up = 1.0 + 1.0 / 4096, product = up * up - 1 - 2.0 / 4096;
    EXPECT_EQ(product.Value(), static_cast<float>(1.0 / 4096 / 4096));
}

TEST(Arithmetic, CountsAreIndexArithmeticAndTheirQuotientIsReal) {
    const Integer n = 7, two = 2;
    static_assert(std::is_same_v<decltype(n * 2 + two), int>);
    EXPECT_EQ(n - two * 3, 1);
    EXPECT_EQ((n / two).Value(), 3.5);
    EXPECT_EQ(ToInteger(n / two), 4);
    EXPECT_EQ(ToInteger(Real(2.5)), 2);
    EXPECT_EQ(ToInteger(Real(-3.5)), -4);
    EXPECT_EQ(ToLong(Real(70000.5)), 70000);
    EXPECT_EQ(Int(Real(-1.5)).Value(), -2);
    EXPECT_EQ(Sgn(Real(-0.0)), 0);
}

TEST(Arithmetic, WhatCannotBeStoredOrFormedIsAnError) {
    const Single zero, one = 1;
    const Integer count = 32767, none = 0;
    Single s;
    Integer n;
    const struct {
        std::function<void()> call;
        const char* text;
    } cases[] = {
        {[&] { s = one / zero; }, "1 divided by zero (error 11)"},
        {[&] { s = zero / zero; }, "zero divided by zero (error 6)"},
        {[&] { s = count / none; }, "32767 divided by zero (error 11)"},
        {[&] { s /= Real(0); }, "zero divided by zero (error 6)"},
        {[&] { s = 1e39; }, "the value 1e+39 does not fit a 32-bit float (error 6)"},
        {[&] { s = std::numeric_limits<double>::quiet_NaN(); },
         "the value nan does not fit a 32-bit float (error 6)"},
        {[&] { n = count + 1; },
         "the value 32768 is outside the 16-bit range -32768..32767 (error 6)"},
        {[&] { n = -count - 2; },
         "the value -32769 is outside the 16-bit range -32768..32767 (error 6)"},
        {[&] { n = ToInteger(Real(32767.5)); },
         "the value 32767.5 is outside the 16-bit range -32768..32767 (error 6)"},
        {[&] { ToLong(Real(-3e9)); }, "the value -3e+09 is outside the 32-bit range (error 6)"},
        {[&] { s = Sqrt(Real(-4)); }, "square root of -4 does not exist (error 5)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ErrorText(c.call), c.text);
    }
    EXPECT_EQ(s.Value(), 0.0F) << "a refused value leaves the variable alone";
    EXPECT_EQ(n, 0);
    s = 3.4028235e38;
    EXPECT_EQ(s.Value(), std::numeric_limits<float>::max());
}

TEST(Arithmetic, ACountedLoopEndsInOverflowAtTheEndOfSixteenBits) {
    std::vector<int> seen;
    const auto run = [&seen](int first, int last, int step) {
        seen.clear();
        for (const int k : Range(first, last, step)) {
            seen.push_back(k);
        }
        return seen;
    };
    EXPECT_EQ(run(1, 3, 1), (std::vector{1, 2, 3}));
    EXPECT_EQ(run(3, 1, -1), (std::vector{3, 2, 1}));
    EXPECT_EQ(run(1, 0, 1).size() + run(0, 1, -1).size(), 0U);
    EXPECT_EQ(run(32765, 32766, 1), (std::vector{32765, 32766}));
    for (const auto& c : {std::array{32766, 32767, 1}, {-32767, -32768, -1}}) {
        EXPECT_EQ(test::ErrorOf([&] { run(c[0], c[1], c[2]); }), 6);
        EXPECT_EQ(seen, (std::vector{c[0], c[1]})) << "the body has run for the last value";
    }
}

} // namespace
} // namespace torlib
