#include "hosts/python/event_handlers.h"

#include "hosts/python/running_call.h"

#include "torlib/platform/component/event_point.h"

namespace torlib::python {

namespace {

/// A reference that may be given back on any thread, with or without Python's lock.
std::shared_ptr<py::object> Shared(py::object object) {
    return {new py::object(std::move(object)), [](py::object* held) {
                const py::gil_scoped_acquire gil;
                delete held;
            }};
}

EventHandler HandlerOf(const py::function& function, const std::string& event) {
    return [held = Shared(function), event](std::span<Argument> arguments) {
        const py::gil_scoped_acquire gil;
        try {
            py::list values;
            for (const Argument& argument : arguments) {
                values.append(ToPython(argument.Value));
            }
            (*held)(*values);
        } catch (const py::error_already_set& failure) {
            const ErrorRecord error = RunningCall::KeepError(failure, event);
            throw RunTimeError(static_cast<ErrorNumber>(error.Number), error.Member,
                               error.Description);
        }
    };
}

std::uint32_t ConnectFunction(const LibraryObject& self, const std::string& event,
                              const py::function& handler) {
    return Connect(self.Held, FromUtf8(event), HandlerOf(handler, event)).Detach();
}

std::uint32_t ConnectObject(const LibraryObject& self, const py::object& handler) {
    return Connect(self.Held, FromPython(handler).ToObject()).Detach();
}

bool EndConnection(const LibraryObject& self, std::uint32_t connection) {
    return Disconnect(self.Held, connection);
}

} // namespace

void BindEvents(py::class_<LibraryObject>& object) {
    object.def("Connect", &ConnectFunction, py::arg("event"), py::arg("handler"),
               "Connect(event, callable): calls it with the event's arguments until Disconnect, or "
               "until the object dies; returns the connection's number.");
    object.def("Connect", &ConnectObject, py::arg("handler"),
               "Connect(object): calls its members that are named after events.");
    object.def("Disconnect", &EndConnection, py::arg("connection"),
               "Ends a connection by its number; False when there is none.");
}

} // namespace torlib::python
