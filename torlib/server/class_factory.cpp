#include "torlib/server/class_factory.h"

#include "torlib/frame/class_object.h"
#include "torlib/platform/component/counted_object.h"

#include <atomic>

namespace torlib {

namespace {

std::atomic<long> server_holds{0};

class Factory final : public CountedObject<ApplicationFactory> {
  public:
    explicit Factory(const ClassInfo& info) : CountedObject(1), info_(info) { ++server_holds; }
    ~Factory() override { --server_holds; }

    Result CreateInstance(const Guid& interface, void** object) override {
        return HandOut(NewObject, interface, object);
    }
    Result GetDefaultInstance(const Guid& interface, void** object) override {
        return HandOut(DefaultObject, interface, object);
    }
    Result LockServer(bool lock) override {
        server_holds += lock ? 1 : -1;
        return Result::Ok;
    }

  protected:
    bool Answers(const Guid& interface) const override {
        return interface == IidClassFactory || interface == IidApplicationFactory;
    }

  private:
    Result HandOut(Object (*make)(const ClassInfo&), const Guid& interface, void** object) {
        *object = nullptr;
        try {
            return make(info_).Pointer()->QueryInterface(interface, object);
        } catch (...) {
            return Result::Exception;
        }
    }

    const ClassInfo& info_;
};

} // namespace

ClassFactory* NewClassFactory(const ClassInfo& info) {
    return new Factory(info);
}

long ServerHolds() {
    return server_holds;
}

} // namespace torlib
