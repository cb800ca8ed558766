#pragma once
// Texts and numbers inside an SVG document.

#include <string>

namespace slab {

/// The text with the characters escaped that mean something to XML or a terminal.
std::string Escaped(const std::string& text);

/// A coordinate to a tenth of a pixel.
std::string Short(double value);

} // namespace slab
