#pragma once
// The published event interfaces: one row an event, in the order of the interface.
//
//     class ClsWaitMessage {
//         EventConnections& Events() { return events_; }
//         void RaiseWaitMessage() { events_.Raise(u"RunWaitMessage"); }
//         ClassEvents events_{u"ClsWaitMessage"};
//     };

#include "torlib/frame/class_table.h"

namespace torlib {

TORLIB_API std::span<const EventInterfaceInfo> EventInterfaces();

/// The event interface of a class, by the class's name; nullptr when it has none.
TORLIB_API const EventInterfaceInfo* FindEventInterface(std::u16string_view className);

/// The connections of one instance of a class that raises events.
class TORLIB_API ClassEvents : public EventConnections {
  public:
    explicit ClassEvents(std::u16string_view className);
};

} // namespace torlib
