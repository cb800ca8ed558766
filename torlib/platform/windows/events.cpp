#include "torlib/platform/windows/events.h"

#include <cstdint>
#include <deque>

namespace torlib {

namespace {

struct PostedEvent {
    std::uint64_t Number;
    std::function<void()> Action;
};

struct EventQueue {
    std::deque<PostedEvent> Pending;
    std::uint64_t Posted = 0;
};

EventQueue& Queue() {
    static EventQueue queue;
    return queue;
}

std::function<void()>& Source() {
    static std::function<void()> source;
    return source;
}

} // namespace

void PostEvent(std::function<void()> event) {
    Queue().Pending.push_back({++Queue().Posted, std::move(event)});
}

void SetEventSource(std::function<void()> source) {
    Source() = std::move(source);
}

void DoEvents() {
    if (Source()) {
        Source()();
    }
    auto& pending = Queue().Pending;
    const std::uint64_t last = Queue().Posted;
    while (!pending.empty() && pending.front().Number <= last) {
        const std::function<void()> action = std::move(pending.front().Action);
        pending.pop_front();
        action();
    }
}

MousePointer& ScreenMousePointer() {
    static MousePointer pointer = MousePointer::Default;
    return pointer;
}

void UnloadForm(const Object& form) {
    form.Invoke(u"Unload");
}

} // namespace torlib
