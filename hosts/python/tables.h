#pragma once
// The class, record and enumeration tables as Python data, from which torlib/classes.py builds the
// Python classes; and the register of those classes.

#include "hosts/python/values.h"

#include "torlib/platform/component/object.h"

namespace torlib::python {

/// The Python class of a published class, record or enumeration, or of RunTimeError; None when
/// there is none.
py::object PublishedClass(std::u16string_view name);

/// The Python class for a library object: that of its public class, else torlib.Object.
py::object ClassOf(const Object& object);

/// A new instance of a public class; raises 429 when it has no code in this build.
Object NewInstance(std::u16string_view className);

/// An array that is not allocated, of the record or enumeration of this name; nothing when no
/// array of such elements occurs in any table.
std::unique_ptr<SafeArray> NewNamedArray(std::u16string_view name);

void BindTables(py::module_& module);

} // namespace torlib::python
