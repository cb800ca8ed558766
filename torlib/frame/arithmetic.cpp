#include "torlib/frame/arithmetic.h"

#include <cmath>
#include <sstream>

namespace torlib {

namespace {

std::string Text(double value) {
    std::ostringstream out;
    out.precision(9);
    out << value;
    return out.str();
}

/// std::nearbyint depends on the rounding mode that a host may have changed.
double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5 || (rest == 0.5 && std::fmod(below, 2) == 0)) {
        return below;
    }
    return below + 1;
}

} // namespace

void RaiseQuotient(double numerator) {
    if (numerator == 0) {
        RaiseError(ErrorNumber::Overflow, "zero divided by zero");
    }
    RaiseError(ErrorNumber::DivisionByZero, Text(numerator) + " divided by zero");
}

void RaiseNotFinite(double value) {
    RaiseError(ErrorNumber::Overflow, "the value " + Text(value) + " does not fit a 32-bit float");
}

void RaiseIntegerOverflow(double value) {
    RaiseError(ErrorNumber::Overflow,
               "the value " + Text(value) + " is outside the 16-bit range -32768..32767");
}

void RaiseLongOverflow(double value) {
    RaiseError(ErrorNumber::Overflow, "the value " + Text(value) + " is outside the 32-bit range");
}

void RaiseDomain(const char* function, double argument) {
    RaiseError(ErrorNumber::InvalidArgument,
               std::string(function) + " of " + Text(argument) + " does not exist");
}

Integer ToInteger(Real value) {
    const double rounded = RoundHalfEven(value.Value());
    if (!(rounded >= -32768 && rounded <= 32767)) {
        RaiseIntegerOverflow(value.Value());
    }
    return static_cast<int>(rounded);
}

Long ToLong(Real value) {
    const double rounded = RoundHalfEven(value.Value());
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) {
        RaiseLongOverflow(value.Value());
    }
    return static_cast<Long>(rounded);
}

} // namespace torlib
