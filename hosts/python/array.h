#pragma once
// torlib.Array: an array of the library with any bounds, seen from Python. Its memory is shared
// with NumPy through the buffer protocol; while somebody looks at it the array keeps its bounds.

#include "hosts/python/constructed.h"
#include "hosts/python/values.h"

#include <memory>
#include <string>

namespace torlib::python {

struct PythonArray {
    std::shared_ptr<SafeArray> Held;
};

/// An array that stands in the memory of another one and keeps that memory alive.
std::shared_ptr<SafeArray> SharedView(SafeArray& array);

/// The element of a buffer in the notation of Python's struct module, such as "f"; empty for
/// elements that have none (texts, records with arrays inside).
std::string ElementFormat(ValueType type, const char16_t* recordName);

/// "float32", "Vec3": how Python names the elements of an array.
std::string ElementName(ValueType type, const char16_t* recordName);

void BindArray(py::module_& module);

} // namespace torlib::python

template <>
struct pybind11::detail::type_caster<torlib::python::PythonArray>
    : torlib::python::ConstructedCaster<torlib::python::PythonArray> {};
