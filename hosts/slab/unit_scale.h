#pragma once
// From the units of a project file to metres and kilonewtons.

#include "hosts/slab/key_table.h"
#include "hosts/slab/model.h"

namespace slab {

/// Factors from a value of the file to m and kN, each derived from the units of length and force
/// but for settlements and moduli, which may have units of their own.
struct UnitScale {
    slab::Units Units;
    double Length = 1;
    double Settlement = 0.01;
    double Force = 1;
    double Moment = 1;
    double LineLoad = 1; ///< force per length; also a spring against settlement
    double Pressure = 1;
    double Density = 1; ///< force per volume: unit weight, modulus of subgrade
    double Modulus = 1;
};

/// Reads the table [units], which may be missing.
UnitScale ReadUnits(const KeyTable& root);

} // namespace slab
