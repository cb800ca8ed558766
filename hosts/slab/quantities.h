#pragma once
// The values at the nodes as a table: key for machines, name and symbol for readers, unit, and
// where the value stands. Report, JSON, summary and picture walk over the same rows.

#include "hosts/slab/model.h"
#include "hosts/slab/results.h"

#include <span>
#include <string>

namespace slab {

enum class Dimension { Settlement, Slope, Pressure, Force, MomentPerLength, Angle };

struct Quantity {
    const char* Key;
    const char* Name;
    const char* Symbol;
    Dimension Kind;
    double NodeResult::*Member;
    bool OnSoilOnly;      ///< has no meaning for a slab without soil
    bool WithSoilSurface; ///< only where the soil surface is computed: half-space and layers
};

/// The rows that have a meaning for this model, in the order of the report.
std::vector<const Quantity*> QuantitiesOf(const Model& model);

/// Name of the unit of a quantity, such as "kN/m2".
std::string UnitName(const Units& units, Dimension kind);

/// A value in the project's units.
double InUnits(const Units& units, Dimension kind, double value);

/// Smallest and largest value of a quantity with their nodes.
struct Extremes {
    Extreme Least;
    Extreme Greatest;
};
Extremes ExtremesOf(const Results& results, const Quantity& quantity);

/// The value with this many significant digits, without an exponent for everyday sizes.
std::string NumberText(double value, int digits = 4);

} // namespace slab
