#pragma once
// What every object behind an interface shares: it counts its references, deletes itself with the
// last one, keeps its module loaded, and hands out the interfaces that it answers to.

#include "torlib/platform/component/module_count.h"
#include "torlib/platform/component/unknown.h"

#include <atomic>

namespace torlib {

template <class Interface>
class CountedObject : public Interface {
  public:
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    Result QueryInterface(const Guid& interface, void** object) final {
        if (!object) {
            return Result::InvalidPointer;
        }
        if (interface != IidUnknown && !Answers(interface)) {
            *object = Companion(interface);
            return *object ? Result::Ok : Result::NoInterface;
        }
        AddRef();
        *object = static_cast<Interface*>(this);
        return Result::Ok;
    }
    std::uint32_t AddRef() final { return ++references_; }
    std::uint32_t Release() final {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

  protected:
    explicit CountedObject(std::uint32_t references) : references_(references) {}
    virtual ~CountedObject() = default;
    virtual bool Answers(const Guid& interface) const = 0;
    /// An interface that another object answers for this one, with a reference of its own; nullptr
    /// for none.
    virtual void* Companion(const Guid& /*interface*/) { return nullptr; }

  private:
    ModuleHold hold_;
    std::atomic<std::uint32_t> references_;
};

} // namespace torlib
