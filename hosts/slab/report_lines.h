#pragma once
// Wordings that report, summary and JSON share.

#include "hosts/slab/model.h"
#include "hosts/slab/results.h"

#include <string>
#include <vector>

namespace slab {

const char* SoilName(SoilKind kind);
const char* SymmetryName(torlib::SymmetricCase symmetry);

/// What rounding cost and what the correction gave back, in a line or two.
std::vector<std::string> DigitLines(const Digits& digits);

/// The text with its first letter in lower case.
std::string LowerFirst(std::string text);

} // namespace slab
