#pragma once
// One call from Python into the library: the errors of Python code that the library calls
// meanwhile, and Ctrl-C.

#include "hosts/python/values.h"

#include "torlib/frame/run_state.h"

#include <optional>

namespace torlib::python {

class RunningCall {
  public:
    RunningCall();
    RunningCall(const RunningCall&) = delete;
    RunningCall& operator=(const RunningCall&) = delete;
    /// Takes back the request to cancel that Ctrl-C made.
    ~RunningCall();

    /// Runs the call. What Python code raised on the way comes out as that exception, and Ctrl-C as
    /// KeyboardInterrupt once the library has returned.
    template <class F>
    Variant Run(const F& call) {
        Variant result;
        try {
            result = call();
        } catch (const RunTimeError& failure) {
            RaiseInterrupt();
            RaiseKept(failure);
            throw;
        }
        RaiseInterrupt();
        return result;
    }

    /// Keeps an exception of Python code for the call that is running, and tells the library of it.
    static ErrorRecord KeepError(const py::error_already_set& failure, std::string member);

    /// Makes the library's polls look for signals.
    static void WatchSignals();

  private:
    static void Poll();
    void RaiseInterrupt() const;
    void RaiseKept(const RunTimeError& failure) const;

    RunningCall* outer_;
    std::optional<py::error_already_set> kept_;
    std::string keptText_;
    std::optional<py::error_already_set> interrupt_;
    Long stateBefore_ = ExitRunning;
};

/// Makes RunTimeError of the library the Python exception of that name.
void TranslateErrors();

} // namespace torlib::python
