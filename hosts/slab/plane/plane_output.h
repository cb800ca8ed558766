#pragma once
// Report, JSON and summary of plane systems.

#include "hosts/slab/plane/plane_results.h"

namespace slab {

/// The report text, laid out with the library's listing lines.
std::string PlaneReport(const PlaneResults& results);

/// All results as a JSON document, numbers in the project's units.
std::string PlaneJson(const PlaneResults& results);

/// A dozen lines for the terminal.
std::string PlaneSummary(const PlaneResults& results);

} // namespace slab
