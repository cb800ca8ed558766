// The compiled half of the Python package torlib; torlib/__init__.py is the other.

#include "hosts/python/arguments.h"
#include "hosts/python/array.h"
#include "hosts/python/objects.h"
#include "hosts/python/records.h"
#include "hosts/python/running_call.h"
#include "hosts/python/tables.h"

#include "torlib/platform/clock.h"

#include <pybind11/stl.h>

namespace {

using namespace torlib;
using namespace torlib::python;

void BindVariable(py::module_& module) {
    py::class_<Variable>(module, "ByRef",
                         "ByRef(value): a variable that a call by name may change; read .value.")
        .def(py::init([](const py::object& value) { return Variable{FromPython(value)}; }),
             py::arg("value") = py::none())
        .def_property(
            "value", [](const Variable& self) { return ToPython(self.Value); },
            [](Variable& self, const py::object& value) { self.Value = FromPython(value); });
}

void SetClock(const std::optional<double>& seconds) {
    ReplaceClock(seconds ? [at = *seconds] { return at; } : std::function<double()>());
}

} // namespace

PYBIND11_MODULE(_torlib, module) {
    TranslateErrors();
    BindObject(module);
    BindArray(module);
    BindRecord(module);
    BindVariable(module);
    BindTables(module);
    module.def("set_clock", &SetClock, "Stops the time of day at these seconds, for tests.");
    RunningCall::WatchSignals();
}
