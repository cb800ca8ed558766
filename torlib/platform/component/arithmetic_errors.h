#pragma once
// The errors of stored numbers and of quotients. They stand apart from the arithmetic types, so
// that a client that has only this layer can use those types and their arrays from the headers
// alone.

#include "torlib/platform/api.h"

namespace torlib {

/// Raises 6 for zero divided by zero, 11 for anything else divided by zero.
[[noreturn]] TORLIB_API void RaiseQuotient(double numerator);
/// Raises 6: the value does not fit a 32-bit float.
[[noreturn]] TORLIB_API void RaiseNotFinite(double value);
/// Raises 6: the value does not fit 16 bits.
[[noreturn]] TORLIB_API void RaiseIntegerOverflow(double value);
/// Raises 5: the function does not exist there.
[[noreturn]] TORLIB_API void RaiseDomain(const char* function, double argument);

} // namespace torlib
