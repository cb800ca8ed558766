#pragma once
// A measured value beside its reference, printed so that the validation document can quote it.

#include <cmath>
#include <cstdio>

namespace slab {

/// Prints the line and returns the difference relative to the reference.
inline double Quote(const char* what, double value, double reference) {
    const double difference = value / reference - 1;
    std::printf("  | %-58s | %12.6g | %12.6g | %+9.4f %% |\n", what, value, reference,
                100 * difference);
    return std::fabs(difference);
}

} // namespace slab
