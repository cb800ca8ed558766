#include "torlib/platform/clock.h"

#include <chrono>
#include <ctime>

namespace torlib {

namespace {

std::function<double()>& Replacement() {
    static std::function<double()> clock;
    return clock;
}

} // namespace

double SecondsSinceMidnight() {
    if (Replacement()) {
        return Replacement()();
    }
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t whole = system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&whole, &local);
    const double fraction = duration<double>(now - system_clock::from_time_t(whole)).count();
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + fraction;
}

void ReplaceClock(std::function<double()> clock) {
    Replacement() = std::move(clock);
}

} // namespace torlib
