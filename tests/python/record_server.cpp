// A component server of another maker, for module_test.py: one class whose members take records and
// raise events.

#include "torlib/frame/class_object.h"
#include "torlib/frame/records.h"
#include "torlib/platform/component/counted_object.h"
#include "torlib/platform/component/server_entry_points.h"
#include "torlib/platform/windows/events.h"

namespace torlib {
namespace {

class Mirror {
  public:
    static Mirror& DefaultInstance() {
        static Mirror instance;
        return instance;
    }

    void Flip(const Vec3& From, Vec3& To, Array<Vec3>& Points, Integer& count) {
        To = {From.x, From.Y, -From.Z};
        Points(1) = To;
        count = count + 1;
    }
    void AddCorner(FVertex& Surface, Integer node) {
        Surface.Count = Surface.Count + 1;
        Surface.Vert.ReDimPreserve(Surface.Count);
        Surface.Vert(Surface.Count) = node;
    }
    /// Asks the host's object for a function of a place and hands an array to it.
    Single Visit(const Object& Host, Array<Single>& A) {
        return Host.Invoke(u"Visited", {ByRef(A), {u"Place", 2}}).ToSingle();
    }
    Object Same(const Object& Host) { return Host; }
    void Turn(Integer count) {
        for (const int i : Range(1, count)) {
            events_.Raise(u"Turned", {i, u"left"});
        }
    }
    /// Counts the polls that pass from now on.
    void WatchPolls() {
        source_ = AddEventSource([this] { polls_ = polls_ + 1; });
    }
    Long EndWatch() {
        RemoveEventSource(source_);
        return polls_;
    }
    EventConnections& Events() { return events_; }

  private:
    EventConnections events_{{0x51d3a003, 0, 0, {}}, {u"Turned", u"Stopped"}};
    EventSourceToken source_ = 0;
    Long polls_ = 0;
};

constexpr Member members[] = {
    Method<&Mirror::Flip>(u"Flip", u"", {u"From", u"To", u"Points", u"count"}),
    Method<&Mirror::AddCorner>(u"AddCorner", u"", {u"Surface", u"node"}),
    Method<&Mirror::Visit>(u"Visit", u"", {u"Host", u"A"}),
    Method<&Mirror::Same>(u"Same", u"", {u"Host"}),
    Method<&Mirror::Turn>(u"Turn", u"", {u"count"}),
    Method<&Mirror::WatchPolls>(u"WatchPolls", u""),
    Method<&Mirror::EndWatch>(u"EndWatch", u""),
};

const ClassInfo& Info() {
    static const ClassInfo info{
        u"Mirror",
        u"",
        {0x51d3a001, 0, 0, {}},
        {0x51d3a002, 0, 0, {}},
        members,
        []() -> void* { return new Mirror; },
        [](void* mirror) { delete static_cast<Mirror*>(mirror); },
        []() -> void* { return &Mirror::DefaultInstance(); },
        nullptr,
        [](void* mirror) -> EventConnections& { return static_cast<Mirror*>(mirror)->Events(); }};
    return info;
}

class Factory final : public CountedObject<ClassFactory> {
  public:
    Factory() : CountedObject(1) {}
    Result CreateInstance(const Guid& interface, void** object) override {
        return NewObject(Info()).Pointer()->QueryInterface(interface, object);
    }
    Result LockServer(bool /*lock*/) override { return Result::Ok; }

  protected:
    bool Answers(const Guid& interface) const override { return interface == IidClassFactory; }
};

} // namespace
} // namespace torlib

using namespace torlib;

Result DllGetClassObject(const Guid& classId, const Guid& /*interface*/, void** object) noexcept {
    if (classId != Info().ClassId) {
        return Result::ClassNotAvailable;
    }
    *object = static_cast<ClassFactory*>(new (std::nothrow) Factory);
    return Result::Ok;
}

Result DllCanUnloadNow() noexcept {
    return Result::False;
}
