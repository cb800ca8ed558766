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
std::vector<std::string> DigitLines(const Digits& digits, const char* displacement = "settlement");

/// The text filled up with blanks to the right, or to the left.
std::string Padded(const std::string& text, std::size_t width);
std::string RightAligned(const std::string& text, std::size_t width);

/// The text with its first letter in lower case.
std::string LowerFirst(std::string text);

} // namespace slab
