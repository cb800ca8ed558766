#pragma once
// NumPy arrays, and whatever else has a buffer, as arguments: the library works in the caller's
// memory, with the lower bound 0 as everywhere in its 0..n arrays.

#include "hosts/python/values.h"

namespace torlib::python {

/// Lets `fresh`, an array of the element type that is wanted, stand in the memory of `value`. An
/// argument that is only read may lie in memory in any way: it is copied then. Raises 13 for
/// another element type, more than two dimensions, and for a changed argument that is read-only or
/// not stored by columns without gaps.
void BorrowMemory(SafeArray& fresh, py::handle value, bool changed);

/// An array of the buffer's own element type in its memory.
std::unique_ptr<SafeArray> BorrowedAsItIs(py::handle value);

} // namespace torlib::python
