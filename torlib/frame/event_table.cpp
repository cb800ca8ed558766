#include "torlib/frame/event_table.h"

namespace torlib {

namespace {

// clang-format off
constexpr Member wait_message_events[] = {
    Event<void()>(u"RunWaitMessage", u"The wait window is active for the first time: do the work now."),
};
// clang-format on

constexpr EventInterfaceInfo event_interfaces[] = {
    {u"__ClsWaitMessage", WaitMessageEventsId, wait_message_events},
};

std::vector<std::u16string_view> NamesOf(std::span<const Member> events) {
    std::vector<std::u16string_view> names;
    for (const Member& event : events) {
        names.push_back(event.Name);
    }
    return names;
}

} // namespace

std::span<const EventInterfaceInfo> EventInterfaces() {
    return event_interfaces;
}

const EventInterfaceInfo* FindEventInterface(std::u16string_view className) {
    for (const EventInterfaceInfo& events : event_interfaces) {
        if (events.Name.substr(2) == className) {
            return &events;
        }
    }
    return nullptr;
}

const EventInterfaceInfo& EventInterfaceOf(std::u16string_view className) {
    if (const EventInterfaceInfo* found = FindEventInterface(className)) {
        return *found;
    }
    RaiseError(ErrorNumber::NoSuchMember, ToUtf8(className) + " has no event interface");
}

ClassEvents::ClassEvents(std::u16string_view className)
    : EventConnections(EventInterfaceOf(className).InterfaceId,
                       NamesOf(EventInterfaceOf(className).Events)) {}

} // namespace torlib
