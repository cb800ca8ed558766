#pragma once
// Values between Python and the late-bound door: numbers, texts, objects, arrays and records.
//
// Files in reading order: values (this one), array (torlib.Array and its buffer), borrowed_array
// (NumPy arrays as arguments), records, objects (library objects in Python and Python objects in
// the library), event_handlers, arguments (one call by its row of the class table), running_call
// (errors and Ctrl-C), tables (the class tables as Python data), module.

#include "torlib/frame/argument_cast.h"

#include <pybind11/pybind11.h>

namespace torlib::python {

namespace py = pybind11;

py::str TextToPython(std::u16string_view text);
std::u16string TextFromPython(py::handle text);

/// The Python value of a result; enumerations that have a name become members of theirs.
py::object ToPython(const Variant& value, const char16_t* typeName = nullptr);

/// The value of any Python object: None is empty, and what is neither a number nor a text nor one
/// of torlib's own becomes a late-bound object.
Variant FromPython(py::handle value);

/// A reference to a scalar in memory; raises 13 for a type that is no scalar.
Variant ScalarAt(ValueType type, void* address);

} // namespace torlib::python
