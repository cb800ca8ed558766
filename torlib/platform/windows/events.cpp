#include "torlib/platform/windows/events.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace torlib {

namespace {

struct PostedEvent {
    std::uint64_t Number;
    std::function<void()> Action;
};

struct EventSource {
    EventSourceToken Token;
    std::function<void()> Bring;
    std::atomic<bool> Removed{false};
};
using EventSources = std::vector<std::shared_ptr<EventSource>>;

/// Actions and sources run and die outside the guard, since they may come back here.
struct EventQueue {
    std::mutex Guard;
    std::deque<PostedEvent> Pending;
    std::uint64_t Posted = 0;
    // Replaced and never changed, so that a poll walks over it without the guard.
    std::shared_ptr<const EventSources> Sources = std::make_shared<EventSources>();
    EventSourceToken LastToken = 0;
};

EventQueue& Queue() {
    static EventQueue queue;
    return queue;
}

// What a poll looks at before it takes the guard.
constinit std::atomic<std::size_t> source_count{0};
constinit std::atomic<std::size_t> pending_count{0};
/// The thread whose polls count; none while any does.
constinit std::atomic<const void*> polling_thread{nullptr};

/// A place that no other living thread has.
const void* ThisThread() {
    static thread_local char place = 0;
    return &place;
}

bool PollsHere() {
    const void* const chosen = polling_thread.load(std::memory_order_relaxed);
    return chosen == nullptr || chosen == ThisThread();
}

std::shared_ptr<const EventSources> CurrentSources() {
    const std::lock_guard lock(Queue().Guard);
    return Queue().Sources;
}

std::uint64_t LastPosted() {
    const std::lock_guard lock(Queue().Guard);
    return Queue().Posted;
}

/// The oldest event, unless it was posted after the one of this number.
std::optional<PostedEvent> TakeEvent(std::uint64_t last) {
    EventQueue& queue = Queue();
    const std::lock_guard lock(queue.Guard);
    if (queue.Pending.empty() || queue.Pending.front().Number > last) {
        return std::nullopt;
    }
    std::optional<PostedEvent> event(std::move(queue.Pending.front()));
    queue.Pending.pop_front();
    --pending_count;
    return event;
}

void CallSources() {
    const std::shared_ptr<const EventSources> sources = CurrentSources();
    for (const auto& source : *sources) {
        if (!source->Removed) {
            source->Bring();
        }
    }
}

void RunPending() {
    const std::uint64_t last = LastPosted();
    while (const std::optional<PostedEvent> event = TakeEvent(last)) {
        event->Action();
    }
}

} // namespace

void PostEvent(std::function<void()> event) {
    EventQueue& queue = Queue();
    const std::lock_guard lock(queue.Guard);
    queue.Pending.push_back({++queue.Posted, std::move(event)});
    ++pending_count;
}

EventSourceToken AddEventSource(std::function<void()> source) {
    auto added = std::make_shared<EventSource>();
    added->Bring = std::move(source);
    EventQueue& queue = Queue();
    const std::lock_guard lock(queue.Guard);
    auto sources = std::make_shared<EventSources>(*queue.Sources);
    added->Token = ++queue.LastToken;
    sources->push_back(added);
    queue.Sources = std::move(sources);
    ++source_count;
    return added->Token;
}

bool RemoveEventSource(EventSourceToken token) {
    EventQueue& queue = Queue();
    std::shared_ptr<const EventSources> old; // dies behind the guard
    const std::lock_guard lock(queue.Guard);
    const auto at = std::find_if(queue.Sources->begin(), queue.Sources->end(),
                                 [token](const auto& source) { return source->Token == token; });
    if (at == queue.Sources->end()) {
        return false;
    }
    (*at)->Removed = true;
    auto sources = std::make_shared<EventSources>();
    std::copy_if(queue.Sources->begin(), queue.Sources->end(), std::back_inserter(*sources),
                 [&at](const auto& source) { return source != *at; });
    old = std::exchange(queue.Sources, std::move(sources));
    --source_count;
    return true;
}

void DoEvents() {
    const auto any = [](const std::atomic<std::size_t>& count) {
        return count.load(std::memory_order_relaxed) != 0;
    };
    if (any(source_count) && PollsHere()) {
        CallSources();
    }
    if (any(pending_count) && PollsHere()) {
        RunPending();
    }
}

UserInterfaceThread::UserInterfaceThread() : before_(polling_thread.exchange(ThisThread())) {}

UserInterfaceThread::~UserInterfaceThread() {
    polling_thread = before_;
}

MousePointer& ScreenMousePointer() {
    static MousePointer pointer = MousePointer::Default;
    return pointer;
}

void UnloadForm(const Object& form) {
    if (!form) {
        RaiseError(ErrorNumber::ObjectNotSet, "there is no form to unload");
    }
    if (form.Offers(u"Unload")) {
        form.Invoke(u"Unload");
    }
}

} // namespace torlib
