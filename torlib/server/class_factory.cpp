#include "torlib/server/class_factory.h"

#include "torlib/frame/class_object.h"

#include <atomic>

namespace torlib {

namespace {

std::atomic<long> server_holds{0};

class Factory final : public ClassFactory {
  public:
    explicit Factory(const ClassInfo& info) : info_(info) { ++server_holds; }
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;
    virtual ~Factory() { --server_holds; }

    Result QueryInterface(const Guid& interface, void** object) override {
        if (interface != IidUnknown && interface != IidClassFactory) {
            *object = nullptr;
            return Result::NoInterface;
        }
        AddRef();
        *object = static_cast<ClassFactory*>(this);
        return Result::Ok;
    }
    std::uint32_t AddRef() override { return ++references_; }
    std::uint32_t Release() override {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    Result CreateInstance(const Guid& interface, void** object) override {
        *object = nullptr;
        try {
            return NewObject(info_).Pointer()->QueryInterface(interface, object);
        } catch (...) {
            return Result::Exception;
        }
    }
    Result LockServer(bool lock) override {
        server_holds += lock ? 1 : -1;
        return Result::Ok;
    }

  private:
    const ClassInfo& info_;
    std::atomic<std::uint32_t> references_{1};
};

} // namespace

ClassFactory* NewClassFactory(const ClassInfo& info) {
    return new Factory(info);
}

long ServerHolds() {
    return server_holds;
}

} // namespace torlib
