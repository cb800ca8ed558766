#pragma once
// Texts of a project on their way to a reader.

#include <string>

namespace slab {

/// The text with its control characters written out, such as \u001b, so that a title or a name
/// can do nothing to the terminal. With `lines`, ends of lines stay: in a JSON document the rest is
/// then exactly what JSON itself writes.
std::string Printable(const std::string& text, bool lines = false);

} // namespace slab
