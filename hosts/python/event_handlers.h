#pragma once
// Events of library objects in Python: callables and objects as handlers, connections by number.

#include "hosts/python/objects.h"

namespace torlib::python {

void BindEvents(py::class_<LibraryObject>& object);

} // namespace torlib::python
