#include "torlib/server/class_factory.h"

#include "torlib/frame/class_object.h"
#include "torlib/platform/component/counted_object.h"

#include <atomic>
#include <new>

namespace torlib {

namespace {

std::atomic<long> server_locks{0};

class Factory final : public CountedObject<ApplicationFactory> {
  public:
    explicit Factory(const ClassInfo& info) : CountedObject(1), info_(info) {}

    Result CreateInstance(const Guid& interface, void** object) override {
        return HandOut(NewObject, interface, object);
    }
    Result GetDefaultInstance(const Guid& interface, void** object) override {
        return HandOut(DefaultObject, interface, object);
    }
    Result LockServer(bool lock) override {
        if (lock) {
            ++server_locks;
            return Result::Ok;
        }
        long locks = server_locks;
        while (locks > 0 && !server_locks.compare_exchange_weak(locks, locks - 1)) {
        }
        return locks > 0 ? Result::Ok : Result::NotLocked;
    }

  protected:
    bool Answers(const Guid& interface) const override {
        return interface == IidClassFactory || interface == IidApplicationFactory;
    }

  private:
    Result HandOut(Object (*make)(const ClassInfo&), const Guid& interface, void** object) {
        if (!object) {
            return Result::InvalidPointer;
        }
        *object = nullptr;
        try {
            return make(info_).Pointer()->QueryInterface(interface, object);
        } catch (const std::bad_alloc&) {
            return Result::OutOfMemory;
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

long ServerLocks() {
    return server_locks;
}

} // namespace torlib
