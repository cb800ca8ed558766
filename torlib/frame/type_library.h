#pragma once
// The type library as readable text: every class with its identifiers and its members in interface
// order, the event interface, the enumerations and the records. It is made from the class tables at
// build time and carried inside the library file as its resource "TYPELIB" number 1:
//
//     typelib /usr/lib/libtorlib.so

#include "torlib/frame/class_table.h"

#include <span>
#include <string>

namespace torlib {

/// The listing in UTF-8. Classes of the catalogue that are not among those given appear with their
/// identifiers alone.
TORLIB_API std::string TypeLibraryText(std::span<const ClassInfo* const> classes);

/// The version resource: one "name = value" a line.
TORLIB_API std::string VersionText();

} // namespace torlib
