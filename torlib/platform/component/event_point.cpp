#include "torlib/platform/component/event_point.h"

#include "torlib/platform/component/counted_object.h"
#include "torlib/platform/component/dynamic_object.h"
#include "torlib/platform/component/nearest_names.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <memory>
#include <new>

namespace torlib {

namespace {

struct ConnectedHandler {
    std::uint32_t Number;
    Object Target;
    bool Connected = true;
};

/// The event as its source spells it; raises 438 when the source has none of this name.
std::u16string_view KnownEvent(const EventPoint& point, std::u16string_view event) {
    std::vector<std::string> known;
    for (std::int32_t number = 1;; ++number) {
        const std::u16string_view name = point.EventName(number);
        if (name.empty()) {
            break;
        }
        if (SameName(name, event)) {
            return name;
        }
        known.push_back(ToUtf8(name));
    }
    RaiseError(ErrorNumber::NoSuchMember,
               "there is no event " + ToUtf8(event) + Suggestion(ToUtf8(event), known));
}

/// A reference to a point, given back with its holder.
using HeldPoint = std::unique_ptr<EventPoint, void (*)(EventPoint*)>;

HeldPoint Held(EventPoint* point) {
    return {point, [](EventPoint* held) { held->Release(); }};
}

HeldPoint PointOf(const Object& source) {
    if (!source) {
        RaiseError(ErrorNumber::ObjectNotSet, "there is no object whose events are meant");
    }
    void* point = nullptr;
    if (source.Pointer()->QueryInterface(IidEventPoint, &point) != Result::Ok) {
        RaiseError(ErrorNumber::NoSuchMember, "the object raises no events");
    }
    return Held(static_cast<EventPoint*>(point));
}

} // namespace

class EventConnections::Body final : public CountedObject<EventPoint> {
  public:
    Body(const Guid& interface, const std::vector<std::u16string_view>& events)
        : CountedObject(1), interface_(interface), events_(events.begin(), events.end()) {}

    Guid EventInterface() const override { return interface_; }

    std::u16string_view EventName(std::int32_t number) const override {
        const auto count = static_cast<std::int32_t>(events_.size());
        return number < 1 || number > count ? std::u16string_view()
                                            : events_[static_cast<std::size_t>(number) - 1];
    }

    Result Advise(Dispatch* handler, std::uint32_t* connection) override {
        if (!handler || !connection || closed_) {
            return Result::Exception;
        }
        try {
            handlers_.push_back(
                std::make_shared<ConnectedHandler>(ConnectedHandler{last_ + 1, Object(handler)}));
        } catch (const std::bad_alloc&) {
            return Result::Exception;
        }
        *connection = ++last_;
        return Result::Ok;
    }

    Result Unadvise(std::uint32_t connection) override {
        const auto at =
            std::find_if(handlers_.begin(), handlers_.end(), [connection](const auto& handler) {
                return handler->Number == connection;
            });
        if (at == handlers_.end()) {
            return Result::False;
        }
        const std::shared_ptr<ConnectedHandler> ended = *at; // its end may come back here
        ended->Connected = false;
        handlers_.erase(at);
        return Result::Ok;
    }

    void Define(std::u16string_view event) { events_.emplace_back(event); }

    void Raise(std::u16string_view event, const std::vector<Argument>& arguments) const {
        const std::u16string_view name = KnownEvent(*this, event);
        const auto connected = handlers_; // keeps handlers that disconnect while they run
        std::exception_ptr failure;
        for (const auto& handler : connected) {
            try {
                if (handler->Connected && handler->Target.Offers(name)) {
                    handler->Target.Invoke(name, arguments);
                }
            } catch (...) {
                failure = failure ? failure : std::current_exception();
            }
        }
        if (failure) {
            std::rethrow_exception(failure);
        }
    }

    void Close() {
        closed_ = true;
        for (const auto& handler : handlers_) {
            handler->Connected = false;
        }
        const auto ended = std::exchange(handlers_, {}); // their end may come back here
    }

  protected:
    bool Answers(const Guid& interface) const override { return interface == IidEventPoint; }

  private:
    Guid interface_;
    std::deque<std::u16string> events_; // a name stays where it is while others are added
    std::vector<std::shared_ptr<ConnectedHandler>> handlers_;
    std::uint32_t last_ = 0;
    bool closed_ = false;
};

EventConnections::EventConnections(const Guid& interface,
                                   const std::vector<std::u16string_view>& events)
    : body_(new Body(interface, events)) {}

EventConnections::~EventConnections() {
    body_->Close();
    body_->Release();
}

void EventConnections::Define(std::u16string_view event) {
    body_->Define(event);
}

void EventConnections::Raise(std::u16string_view event, const std::vector<Argument>& arguments) {
    Body* const body = body_;
    body->AddRef(); // a handler may end the source
    const HeldPoint held = Held(body);
    body->Raise(event, arguments);
}

EventPoint* EventConnections::Point() const {
    return body_;
}

EventConnection::EventConnection(EventConnection&& other) noexcept
    : point_(std::exchange(other.point_, nullptr)), number_(std::exchange(other.number_, 0)) {}

EventConnection& EventConnection::operator=(EventConnection other) noexcept {
    std::swap(point_, other.point_);
    std::swap(number_, other.number_);
    return *this;
}

bool EventConnection::Disconnect() {
    if (!point_) {
        return false;
    }
    const HeldPoint point = Held(std::exchange(point_, nullptr));
    return point->Unadvise(std::exchange(number_, 0)) == Result::Ok;
}

std::uint32_t EventConnection::Detach() {
    if (point_) {
        std::exchange(point_, nullptr)->Release();
    }
    return std::exchange(number_, 0);
}

EventConnection Connect(const Object& source, const Object& handler) {
    if (!handler) {
        RaiseError(ErrorNumber::ObjectNotSet, "there is no handler to connect");
    }
    EventConnection connection;
    connection.point_ = PointOf(source).release();
    if (connection.point_->Advise(handler.Pointer(), &connection.number_) != Result::Ok) {
        RaiseError(ErrorNumber::OutOfMemory, "the handler cannot be connected");
    }
    return connection;
}

EventConnection Connect(const Object& source, std::u16string_view event, EventHandler handler) {
    DynamicObject single("handler");
    single.DefineMethod(KnownEvent(*PointOf(source), event),
                        [run = std::move(handler)](std::span<Argument> arguments) {
                            run(arguments);
                            return Variant();
                        });
    return Connect(source, single.Reference());
}

bool Disconnect(const Object& source, std::uint32_t connection) {
    return PointOf(source)->Unadvise(connection) == Result::Ok;
}

} // namespace torlib
