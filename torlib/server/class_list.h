#pragma once
// The public classes that have code in this build.

#include "torlib/frame/class_table.h"

#include <span>

namespace torlib {

/// In the order of the catalogue.
TORLIB_API std::span<const ClassInfo* const> BuiltClasses();

/// The class with this identifier, or nullptr.
TORLIB_API const ClassInfo* FindClass(const Guid& classId);

} // namespace torlib
