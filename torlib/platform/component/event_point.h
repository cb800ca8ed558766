#pragma once
// Events of an object. The source holds its connections and raises; a client connects a handler,
// which is any late-bound object with members named after the events, and knows the connection by
// its number.
//
//     EventConnections events(interface, {u"RunWaitMessage"});   // in the source
//     events.Raise(u"RunWaitMessage");
//
//     EventConnection work =                                      // in a client
//         Connect(wait, u"RunWaitMessage", [&](std::span<Argument>) { Compute(); });
//
// What a handler may do while an event is raised: connect (the new handler gets the next event),
// disconnect itself or others (those whose turn has not come are passed over), raise again, fail
// (the handlers behind it still run, then the first error passes to whoever raised), or let the
// source die (no further handler runs). Sources, like all objects, belong to one thread.

#include "torlib/platform/component/object.h"

#include <functional>
#include <string>

namespace torlib {

/// Where handlers of an object's events are connected. It may outlive its object; then nothing is
/// connected to it any more.
class EventPoint : public Unknown {
  public:
    /// Identifier of the event interface.
    virtual Guid EventInterface() const = 0;
    /// Name of the event of this number, from 1 in the order of the event interface; empty behind
    /// the last one.
    virtual std::u16string_view EventName(std::int32_t number) const = 0;
    /// Connects a handler with a reference of its own and hands out the connection's number, which
    /// is never 0 and never given out twice. Exception when there is no handler, or when the
    /// object has died.
    virtual Result Advise(Dispatch* handler, std::uint32_t* connection) = 0;
    /// Ends a connection; False when there is none of this number.
    virtual Result Unadvise(std::uint32_t connection) = 0;

  protected:
    ~EventPoint() = default;
};

/// An object that raises events hands out its point for this identifier.
inline constexpr Guid IidEventPoint{
    0x7a3c1c03, 0x52d1, 0x4e0e, {0x9d, 0x6b, 0x0c, 0x41, 0x5e, 0x28, 0x70, 0x01}};

/// The source's side: a member of an object that raises events.
class TORLIB_API EventConnections {
  public:
    /// `events` in the order of the event interface.
    explicit EventConnections(const Guid& interface,
                              const std::vector<std::u16string_view>& events = {});
    EventConnections(const EventConnections&) = delete;
    EventConnections& operator=(const EventConnections&) = delete;
    /// Lets all handlers go.
    ~EventConnections();

    /// Adds an event, of a name that is new here, behind the others.
    void Define(std::u16string_view event);
    /// Calls each connected handler that has a member of this name, oldest first. An event that is
    /// not defined raises 438; the first error of a handler passes on after all have run.
    void Raise(std::u16string_view event, const std::vector<Argument>& arguments = {});
    /// What the object hands out; the caller takes a reference if it keeps it.
    EventPoint* Point() const;

  private:
    class Body;

    Body* body_;
};

/// A client's connection, which ends with it; it does not keep the source alive.
class TORLIB_API EventConnection {
  public:
    EventConnection() = default;
    EventConnection(EventConnection&& other) noexcept;
    EventConnection& operator=(EventConnection other) noexcept;
    ~EventConnection() { Disconnect(); }

    /// The connection's number at its source, 0 for none.
    std::uint32_t Number() const { return number_; }
    /// Ends the connection; false when it has ended already or the source is gone.
    bool Disconnect();
    /// Leaves the connection to its source, which keeps it as long as it lives; returns its number.
    std::uint32_t Detach();

  private:
    friend EventConnection Connect(const Object& source, const Object& handler);

    EventPoint* point_ = nullptr;
    std::uint32_t number_ = 0;
};

/// Connects an object whose members are named after events; events that it has no member for pass
/// it by. No source or handler raises 91, a source without events 438.
[[nodiscard]] TORLIB_API EventConnection Connect(const Object& source, const Object& handler);

using EventHandler = std::function<void(std::span<Argument>)>;

/// Connects a function to one event; an event that the source does not have raises 438.
[[nodiscard]] TORLIB_API EventConnection Connect(const Object& source, std::u16string_view event,
                                                 EventHandler handler);

/// Ends a connection by its number; false when the source has none of this number.
TORLIB_API bool Disconnect(const Object& source, std::uint32_t connection);

} // namespace torlib
