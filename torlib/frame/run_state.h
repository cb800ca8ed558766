#pragma once
// The library-wide run/cancel state and the poll of the long routines. One copy per loaded library,
// shared by all instances of all classes: one run at a time.

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/object.h"

#include <atomic>

namespace torlib {

/// Values of the run/cancel state; a host may use 5 and 6 for end states of its own.
enum ExitControlValue : Long {
    ExitRunning = 0,         ///< a run is in progress
    ExitCancelRequested = 3, ///< the user asked to stop
    ExitFinished = 4,        ///< the run has ended
    ExitHostEnd1 = 5,
    ExitHostEnd2 = 6,
};

/// The state itself. Atomic, so that a signal handler or a watching thread of the host may ask for
/// a cancel; the poll is a relaxed load.
TORLIB_API std::atomic<Long>& ExitControlState();

/// Yields to pending user-interface events; then, when a cancel has been requested, resets the
/// mouse pointer and unloads the form (when one is given) and returns true.
TORLIB_API bool CheckCancelRequest(const Object& FrmShow);

/// The action of a cancel button: unloads the form when the run has ended (states 4, 5, 6), else
/// asks for a cancel.
TORLIB_API void RequestCancel(const Object& FrmShow);

} // namespace torlib
