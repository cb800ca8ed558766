#include "torlib/platform/component/arithmetic_errors.h"

#include "torlib/platform/component/variant.h"

namespace torlib {

namespace {

std::string Text(double value) {
    return ToUtf8(NumberText(value));
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

void RaiseDomain(const char* function, double argument) {
    RaiseError(ErrorNumber::InvalidArgument,
               std::string(function) + " of " + Text(argument) + " does not exist");
}

} // namespace torlib
