#pragma once
// A late-bound object made of a class table and an instance: finds the member by name, puts named
// and left-out arguments in their places, calls it, and turns errors into records.

#include "torlib/frame/class_table.h"

namespace torlib {

/// A new instance of the class behind a late-bound object.
TORLIB_API Object NewObject(const ClassInfo& info);

/// The implicit default instance of the class behind a late-bound object.
TORLIB_API Object DefaultObject(const ClassInfo& info);

} // namespace torlib
