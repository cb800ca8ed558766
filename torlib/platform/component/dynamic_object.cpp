#include "torlib/platform/component/dynamic_object.h"

#include "torlib/platform/component/counted_object.h"
#include "torlib/platform/component/nearest_names.h"

#include <algorithm>
#include <deque>

namespace torlib {

namespace {

struct Slot {
    std::u16string name;
    Variant value;
    DynamicObject::Method method;
    DynamicObject::Watcher watcher;
};

} // namespace

class DynamicObject::Body final : public CountedObject<Dispatch> {
  public:
    explicit Body(std::string name) : CountedObject(0), name_(std::move(name)) {}

    Result Invoke(std::u16string_view member, InvokeKind kind, std::span<Argument> arguments,
                  Variant* result, ErrorRecord* error) override {
        try {
            Variant value = Run(member, kind, arguments);
            if (result) {
                *result = std::move(value);
            }
            return Result::Ok;
        } catch (const RunTimeError& failure) {
            *error = {static_cast<int>(failure.Number()), name_ + "." + ToUtf8(member),
                      failure.Description()};
        } catch (const std::exception& failure) {
            *error = {static_cast<int>(ErrorNumber::InvalidArgument), name_ + "." + ToUtf8(member),
                      failure.what()};
        }
        return Result::Exception;
    }

    Slot& Ensure(std::u16string_view name) {
        Slot* slot = Find(name);
        return slot ? *slot : slots_.emplace_back(Slot{std::u16string(name), {}, {}, {}});
    }

    Slot& Require(std::u16string_view name) {
        if (Slot* slot = Find(name)) {
            return *slot;
        }
        std::vector<std::string> known;
        for (const Slot& slot : slots_) {
            known.push_back(ToUtf8(slot.name));
        }
        RaiseError(ErrorNumber::NoSuchMember,
                   name_ + " has no member " + ToUtf8(name) + Suggestion(ToUtf8(name), known));
    }

  protected:
    bool Answers(const Guid& interface) const override { return interface == IidDispatch; }

  private:
    Slot* Find(std::u16string_view name) {
        const auto at = std::find_if(slots_.begin(), slots_.end(), [name](const Slot& slot) {
            return SameName(slot.name, name);
        });
        return at == slots_.end() ? nullptr : &*at;
    }

    Variant Run(std::u16string_view member, InvokeKind kind, std::span<Argument> arguments) {
        Slot& slot = Require(member);
        if (slot.method) {
            const Method method = slot.method;
            return method(arguments);
        }
        const bool put = kind == InvokeKind::PropertyPut;
        if (arguments.size() != (put ? 1U : 0U)) {
            RaiseError(ErrorNumber::WrongArgumentCount, "a property takes no arguments");
        }
        if (put) {
            slot.value = arguments[0].Value.Dereferenced();
            if (slot.watcher) {
                const Watcher watcher = slot.watcher;
                watcher(slot.value);
            }
        }
        return slot.value;
    }

    std::string name_;
    std::deque<Slot> slots_; // a watcher may define members while one is being written
};

DynamicObject::DynamicObject(std::string name) : body_(new Body(std::move(name))), object_(body_) {}

DynamicObject& DynamicObject::Define(std::u16string_view property, Variant value) {
    body_->Ensure(property).value = std::move(value);
    return *this;
}

DynamicObject& DynamicObject::DefineMethod(std::u16string_view name, Method method) {
    body_->Ensure(name).method = std::move(method);
    return *this;
}

DynamicObject& DynamicObject::OnPut(std::u16string_view property, Watcher watcher) {
    body_->Ensure(property).watcher = std::move(watcher);
    return *this;
}

Variant DynamicObject::Value(std::u16string_view property) const {
    return body_->Require(property).value;
}

} // namespace torlib
