// A component server that itself creates objects of another server, while it is loaded and while it
// makes an object of its own; for create_object_test.cpp.

#include "torlib/frame/class_object.h"
#include "torlib/platform/component/counted_object.h"
#include "torlib/platform/component/create_object.h"
#include "torlib/platform/component/server_entry_points.h"

namespace torlib {
namespace {

const bool created_while_loading = static_cast<bool>(CreateObject(u"TORVALib.Math_Class"));

class Nest {
  public:
    static Nest& DefaultInstance() {
        static Nest instance;
        return instance;
    }
    String Blanks(Integer count) const { return torva_.Invoke(u"Private_Space", {count}).ToText(); }
    bool CreatedWhileLoading() const { return created_while_loading; }

  private:
    Object torva_ = CreateObject(u"TORVALib.TORVAClass");
};

constexpr Member members[] = {
    Method<&Nest::Blanks>(u"Blanks", u"", {u"count"}),
    Method<&Nest::CreatedWhileLoading>(u"CreatedWhileLoading", u""),
};

const ClassInfo& Info() {
    static const ClassInfo info{u"Nest",
                                u"",
                                {0x51d3a011, 0, 0, {}},
                                {0x51d3a012, 0, 0, {}},
                                members,
                                []() -> void* { return new Nest; },
                                [](void* nest) { delete static_cast<Nest*>(nest); },
                                []() -> void* { return &Nest::DefaultInstance(); }};
    return info;
}

/// Makes objects and has no default instance to offer.
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
    return LiveInModule() == 0 ? Result::Ok : Result::False;
}
