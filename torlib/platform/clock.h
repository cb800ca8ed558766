#pragma once
// The time of day, replaceable in tests.

#include "torlib/platform/api.h"

#include <functional>

namespace torlib {

/// Seconds since midnight, local time, with fractions.
TORLIB_API double SecondsSinceMidnight();

/// Replaces the clock; an empty function restores the system's.
TORLIB_API void ReplaceClock(std::function<double()> clock);

} // namespace torlib
