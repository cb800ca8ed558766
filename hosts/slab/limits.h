#pragma once
// What the numbers of a project may make of loads and stiffness, so that the 32 bits of the solver
// hold them. In metres and kilonewtons; far beyond any structure.

#include "hosts/slab/unit_scale.h"

namespace slab {

/// Of a force, a moment, and a load or unit weight per length, area or volume: kN, m.
constexpr double LargestLoad = 1e9;
/// Of a prescribed displacement, m, or rotation.
constexpr double LargestDisplacement = 1000;
/// Of springs and moduli of subgrade, kN/m and kN/m3.
constexpr double LargestSpring = 1e15;
/// Of E t3 / 12 (1 - nu2), EI, GJ: kNm and kNm2; of EA and the E t of a wall, kN and kN/m.
constexpr AllowedRange Rigidity{1e-3, 1e15, false};

/// The value times its unit, refused beyond a size.
double Within(const Entry& entry, const AllowedRange& bounds, double unit, double largest);

/// The same of a key that may be missing, then 0.
double WithinOrZero(const KeyTable& table, const char* key, const AllowedRange& bounds, double unit,
                    double largest);

/// Refuses a key whose table makes a rigidity out of range: `what` and `unitName` are its names in
/// messages, `unit` what one of it is in metres and kilonewtons.
void CheckRigidity(const Entry& entry, const char* what, double value, double unit,
                   const std::string& unitName);

} // namespace slab
