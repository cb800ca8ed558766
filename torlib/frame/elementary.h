#pragma once
// Logarithm, arc tangent, sine and cosine in plain double arithmetic of our own. A system's
// mathematical library picks other code where the machine has a fused multiply-add, and its last
// bit then differs from machine to machine; these give the same bits everywhere:
//
//     Real angle = Atan(dy / dx);
//     Real term = h * Log((R + d) / (R - d));     // a ratio that is not positive raises 5
//
// The errors stated below were measured against 80-bit arithmetic, in units in the last place
// (ulp).

#include "torlib/frame/arithmetic.h"

namespace torlib {

/// The double nearest to the circle's ratio; the same bits as 4 * Atan(1).
inline constexpr Real Pi = 3.14159265358979323846;

/// The circle's ratio as a stored number, where a formula holds it in 32 bits.
inline constexpr Single StoredPi = Pi;

/// Natural logarithm of a positive argument; error below 0.76 ulp. Zero or less raises 5.
///
/// Source: P. T. P. Tang, Table-driven implementation of the logarithm function in IEEE
/// floating-point arithmetic, 1990. Deviation: the series of ln(1 + r) is Taylor's.
TORLIB_API Real Log(Real a);

/// Arc tangent in radians, -Pi/2..Pi/2; error below 0.55 ulp.
///
/// Source: addition theorem, atan t = atan c + atan((t - c) / (1 + t c)), with c from a table.
TORLIB_API Real Atan(Real a);

/// Sine of an angle in radians; error below 0.81 ulp up to 1e6 radians. An angle of 2^51 or more,
/// which has no digit left within the circle, raises 5.
///
/// Source: W. J. Cody and W. Waite, Software manual for the elementary functions, 1980 (argument
/// reduction). Deviation: the product that is subtracted is formed without error (Dekker 1971).
TORLIB_API Real Sin(Real a);

/// Cosine of an angle in radians; accuracy, errors and source as for Sin.
TORLIB_API Real Cos(Real a);

} // namespace torlib
