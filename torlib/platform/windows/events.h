#pragma once
// The event queue of the user-interface thread in its smallest form, the screen's mouse pointer,
// and the unloading of forms. No screen is needed: whoever owns real windows adds a source of
// events.

#include "torlib/platform/component/object.h"

#include <functional>

namespace torlib {

/// Appends an event; it runs at the next DoEvents.
TORLIB_API void PostEvent(std::function<void()> event);

/// A function that DoEvents calls first, to bring in what a window system holds; empty for none.
TORLIB_API void SetEventSource(std::function<void()> source);

/// Yields to the pending events: runs those that were posted before the call, oldest first. Events
/// may post others (they wait for the next call) and may call DoEvents themselves. An exception of
/// an event passes to the caller; the events behind it stay pending.
TORLIB_API void DoEvents();

enum class MousePointer { Default = 0, Hourglass = 11 };

/// The shape of the screen's mouse pointer.
TORLIB_API MousePointer& ScreenMousePointer();

/// Unloads a form by its member "Unload"; errors of the form pass to the caller.
TORLIB_API void UnloadForm(const Object& form);

} // namespace torlib
