#include "torlib/platform/windows/events.h"

#include <deque>

namespace torlib {

namespace {

std::deque<std::function<void()>>& Queue() {
    static std::deque<std::function<void()>> queue;
    return queue;
}

std::function<void()>& Source() {
    static std::function<void()> source;
    return source;
}

} // namespace

void PostEvent(std::function<void()> event) {
    Queue().push_back(std::move(event));
}

void SetEventSource(std::function<void()> source) {
    Source() = std::move(source);
}

void DoEvents() {
    if (Source()) {
        Source()();
    }
    auto& queue = Queue();
    for (std::size_t left = queue.size(); left > 0 && !queue.empty(); --left) {
        const std::function<void()> event = std::move(queue.front());
        queue.pop_front();
        event();
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
