#pragma once
// Objects in both directions: a late-bound object of the library seen from Python, and any Python
// object seen by the library, which asks for its members by name.

#include "hosts/python/constructed.h"
#include "hosts/python/values.h"

namespace torlib::python {

/// What a Python instance of torlib.Object or of one of the public classes holds.
struct LibraryObject {
    Object Held;
};

/// The Python instance of a library object: the same one while it lives, the Python object itself
/// when it came from Python, None for no object.
py::object WrapObject(const Object& object);

/// A Python object as a late-bound object, the same one while the library holds it.
Object ObjectFromPython(py::handle object);

void BindObject(py::module_& module);

} // namespace torlib::python

template <>
struct pybind11::detail::type_caster<torlib::python::LibraryObject>
    : torlib::python::ConstructedCaster<torlib::python::LibraryObject> {};
