#include "hosts/python/running_call.h"

#include "hosts/python/tables.h"

#include "torlib/platform/windows/events.h"

namespace torlib::python {

namespace {

thread_local RunningCall* innermost = nullptr;

int NumberOf(const py::error_already_set& failure) {
    if (failure.matches(PublishedClass(u"RunTimeError"))) {
        return failure.value().attr("number").cast<int>();
    }
    static const std::pair<PyObject*, ErrorNumber> numbers[] = {
        {PyExc_AttributeError, ErrorNumber::NoSuchMember},
        {PyExc_TypeError, ErrorNumber::TypeMismatch},
        {PyExc_LookupError, ErrorNumber::OutOfRange},
        {PyExc_OverflowError, ErrorNumber::Overflow},
        {PyExc_ZeroDivisionError, ErrorNumber::DivisionByZero},
        {PyExc_MemoryError, ErrorNumber::OutOfMemory},
    };
    for (const auto& [type, number] : numbers) {
        if (failure.matches(type)) {
            return static_cast<int>(number);
        }
    }
    return static_cast<int>(ErrorNumber::InvalidArgument);
}

} // namespace

RunningCall::RunningCall() : outer_(innermost) {
    innermost = this;
}

RunningCall::~RunningCall() {
    innermost = outer_;
    Long asked = ExitCancelRequested;
    if (interrupt_) {
        ExitControlState().compare_exchange_strong(asked, stateBefore_);
    }
}

ErrorRecord RunningCall::KeepError(const py::error_already_set& failure, std::string member) {
    const std::string text = std::string(Py_TYPE(failure.value().ptr())->tp_name) + ": " +
                             py::str(failure.value()).cast<std::string>();
    if (innermost) {
        innermost->kept_ = failure;
        innermost->keptText_ = text;
    }
    return {NumberOf(failure), std::move(member), text};
}

void RunningCall::WatchSignals() {
    static const EventSourceToken source = AddEventSource(&Poll); // once, however often imported
    static_cast<void>(source);
}

void RunningCall::Poll() {
    RunningCall* const call = innermost;
    if (call && !call->interrupt_ && PyErr_CheckSignals() != 0) {
        call->interrupt_.emplace();
        call->stateBefore_ = ExitControlState();
        ExitControlState() = ExitCancelRequested;
    }
}

void RunningCall::RaiseInterrupt() const {
    if (interrupt_) {
        throw py::error_already_set(*interrupt_);
    }
}

void RunningCall::RaiseKept(const RunTimeError& failure) const {
    if (kept_ && failure.Description() == keptText_) {
        throw py::error_already_set(*kept_);
    }
}

void TranslateErrors() {
    py::register_exception_translator([](std::exception_ptr thrown) {
        try {
            std::rethrow_exception(std::move(thrown));
        } catch (const RunTimeError& failure) {
            const py::object type = PublishedClass(u"RunTimeError");
            const py::object error =
                type(static_cast<int>(failure.Number()), failure.Member(), failure.Description());
            PyErr_SetObject(type.ptr(), error.ptr());
        }
    });
}

} // namespace torlib::python
