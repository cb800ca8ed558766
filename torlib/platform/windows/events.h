#pragma once
// The event queue of the user-interface thread in its smallest form, the screen's mouse pointer,
// and the unloading of forms. No screen is needed: whoever owns real windows adds a source of
// events.
//
// Threads: posting, and adding or removing a source, may happen on any thread at any time. DoEvents
// belongs to the user-interface thread. Long routines poll on the thread that runs them; a host
// that has windows and computes on other threads as well says which thread is the user interface's:
//
//     const UserInterfaceThread here;   // from now on, polls of other threads run nothing
//
// Until a thread is named so, whichever thread polls runs the events, each of them once.

#include "torlib/platform/component/object.h"

#include <cstdint>
#include <functional>

namespace torlib {

/// Appends an event; it runs at the next DoEvents. Any thread may post.
TORLIB_API void PostEvent(std::function<void()> event);

/// Names a source of events; never 0, and never given out twice.
using EventSourceToken = std::uint64_t;

/// Adds a function that DoEvents calls first, to bring in what a window system or an interpreter
/// holds. Sources are called in the order of their adding, one added by a source from the next call
/// on. An exception of a source passes to the caller of DoEvents.
TORLIB_API EventSourceToken AddEventSource(std::function<void()> source);

/// Takes a source out; false when it is out already. A source may take itself or others out while
/// it runs: they are not called again. On another thread a call that has begun may still be running
/// when this returns.
TORLIB_API bool RemoveEventSource(EventSourceToken token);

/// Yields to the pending events: calls the sources, then runs the events that were posted before,
/// oldest first. Events may post others (they wait for the next call) and may call DoEvents
/// themselves. An exception of an event passes to the caller; the events behind it stay pending.
/// Costs two relaxed atomic loads while there are no sources and no events.
TORLIB_API void DoEvents();

/// While it lives, only the thread that made it runs events and sources. When it dies, what was
/// said before holds again.
class TORLIB_API UserInterfaceThread {
  public:
    UserInterfaceThread();
    UserInterfaceThread(const UserInterfaceThread&) = delete;
    UserInterfaceThread& operator=(const UserInterfaceThread&) = delete;
    ~UserInterfaceThread();

  private:
    const void* before_;
};

enum class MousePointer { Default = 0, Hourglass = 11 };

/// The shape of the screen's mouse pointer.
TORLIB_API MousePointer& ScreenMousePointer();

/// Unloads a form: asks it to, where it has a member "Unload", and errors of that member pass to
/// the caller. No form raises 91.
TORLIB_API void UnloadForm(const Object& form);

} // namespace torlib
