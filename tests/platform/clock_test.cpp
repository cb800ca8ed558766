// The time of day, of the system and of a replacement.

#include "torlib/platform/clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>

namespace torlib {
namespace {

/// The time of day 5 h 30 min 20 s ahead of universal time.
double SystemTime() {
    using namespace std::chrono;
    return std::fmod(duration<double>(system_clock::now().time_since_epoch()).count() + 19820,
                     86400);
}

/// Seconds from one time of day to a later one.
double Later(double from, double to) {
    return to < from ? to - from + 86400 : to - from;
}

TEST(Clock, IsTheLocalTimeOfDayWithItsFraction) {
    setenv("TZ", "XYZ-05:30:20", 1);
    tzset();
    for (int i = 0; i < 20; ++i) {
        const double before = SystemTime();
        const double now = SecondsSinceMidnight();
        const double after = SystemTime();
        EXPECT_GE(now, 0);
        EXPECT_LT(now, 86400);
        // Seconds since 1970 keep less than a microsecond.
        EXPECT_LE(Later(before, now + 1e-5), Later(before, after) + 2e-5) << before << ' ' << now;
    }
    unsetenv("TZ");
    tzset();
    ReplaceClock([] { return 12.5; });
    EXPECT_EQ(SecondsSinceMidnight(), 12.5);
    ReplaceClock({});
}

} // namespace
} // namespace torlib
