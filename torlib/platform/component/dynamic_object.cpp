#include "torlib/platform/component/dynamic_object.h"

#include "torlib/platform/component/counted_object.h"
#include "torlib/platform/component/event_point.h"
#include "torlib/platform/component/exception_boundary.h"
#include "torlib/platform/component/nearest_names.h"

#include <algorithm>
#include <deque>

namespace torlib {

namespace {

/// What a property keeps of a value: nothing of the caller's, and of the property's type.
Variant Kept(ValueType type, const Variant& given) {
    switch (type) {
        case ValueType::Integer:
            return given.ToInteger();
        case ValueType::Long:
            return given.ToLong();
        case ValueType::Single:
            return given.ToSingle();
        case ValueType::Double:
            return given.ToDouble();
        case ValueType::Boolean:
            return given.ToBoolean();
        case ValueType::String:
            return given.ToText();
        case ValueType::Object:
            return given.ToObject();
        default:
            break;
    }
    Variant value = given.Dereferenced();
    if (type != ValueType::Variant || value.IsReference()) {
        RaiseError(ErrorNumber::TypeMismatch,
                   "a property cannot keep " + value.KindName() + " of the caller's");
    }
    return value;
}

struct Slot {
    explicit Slot(std::u16string_view named) : name(named) {}

    std::u16string name;
    ValueType type = ValueType::Variant;
    Variant value;
    Variant designed;
    bool written = false;
    DynamicObject::Method method;
    DynamicObject::Watcher watcher;

    void Write(const Variant& given) {
        value = Kept(type, given);
        written = true;
        Tell();
    }
    void Tell() const {
        if (watcher) {
            const DynamicObject::Watcher told = watcher; // it may put another one in its place
            told(value);
        }
    }
};

} // namespace

class DynamicObject::Body final : public CountedObject<Dispatch> {
  public:
    explicit Body(std::string name) : CountedObject(0), name_(std::move(name)) {}

    Result Invoke(std::u16string_view member, InvokeKind kind, std::span<Argument> arguments,
                  Variant* result, ErrorRecord* error) override {
        return Answer(member, result, error, [&] { return Run(Require(member), kind, arguments); });
    }

    std::int32_t ParameterNumberOf(std::int32_t, std::u16string_view) override { return 0; }

    Result InvokeNumber(std::int32_t member, InvokeKind kind, std::span<const Variant> arguments,
                        std::span<const std::int32_t> named, Variant* result,
                        ErrorRecord* error) override {
        const auto place = static_cast<std::size_t>(member) - 1;
        const bool known = place < slots_.size();
        const std::u16string name = known ? slots_[place].name : u"member by number";
        return Answer(name, result, error, [&] {
            if (!known) {
                RaiseError(ErrorNumber::NoSuchMember,
                           name_ + " has no member of the number " + std::to_string(member));
            }
            if (!named.empty()) {
                RaiseError(ErrorNumber::NoSuchNamedArgument, "the parameters have no names");
            }
            std::vector<Argument> values(arguments.begin(), arguments.end());
            return Run(slots_[place], kind, values);
        });
    }

    /// The slots keep their places, so a member's number is its place.
    std::int32_t NumberOf(std::u16string_view member) override {
        const auto at = Place(member);
        return at == slots_.end() ? 0 : static_cast<std::int32_t>(at - slots_.begin()) + 1;
    }

    Slot& Ensure(std::u16string_view name) {
        Slot* slot = Find(name);
        return slot ? *slot : slots_.emplace_back(name);
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

    EventConnections& Events() { return events_; }

    void Reset() {
        std::vector<const Slot*> changed;
        for (Slot& slot : slots_) {
            if (std::exchange(slot.written, false)) {
                slot.value = slot.designed;
                changed.push_back(&slot);
            }
        }
        for (const Slot* slot : changed) {
            slot->Tell();
        }
    }

  protected:
    bool Answers(const Guid& interface) const override { return interface == IidDispatch; }
    void* Companion(const Guid& interface) override {
        if (interface != IidEventPoint) {
            return nullptr;
        }
        events_.Point()->AddRef();
        return events_.Point();
    }

  private:
    std::deque<Slot>::iterator Place(std::u16string_view name) {
        return std::find_if(slots_.begin(), slots_.end(),
                            [name](const Slot& slot) { return SameName(slot.name, name); });
    }

    Slot* Find(std::u16string_view name) {
        const auto at = Place(name);
        return at == slots_.end() ? nullptr : &*at;
    }

    template <class Call>
    Result Answer(std::u16string_view member, Variant* result, ErrorRecord* error,
                  const Call& call) const {
        try {
            Variant value = call();
            if (result) {
                *result = std::move(value);
            }
            return Result::Ok;
        } catch (...) {
            return EndException(error, name_, member, MemberAtWork::Called);
        }
    }

    static Variant Run(Slot& slot, InvokeKind kind, std::span<Argument> arguments) {
        if (slot.method) {
            const Method method = slot.method;
            return method(arguments);
        }
        const bool put = kind == InvokeKind::PropertyPut;
        if (arguments.size() != (put ? 1U : 0U)) {
            RaiseError(ErrorNumber::WrongArgumentCount, "a property takes no arguments");
        }
        if (put) {
            slot.Write(arguments[0].Value);
        }
        return slot.value;
    }

    std::string name_;
    std::deque<Slot> slots_; // a watcher may define members while one is being written
    EventConnections events_{IidDispatch};
};

DynamicObject::DynamicObject(std::string name) : body_(new Body(std::move(name))), object_(body_) {}

DynamicObject& DynamicObject::Define(std::u16string_view property, const Variant& value) {
    return Define(property, ValueType::Variant, value);
}

DynamicObject& DynamicObject::Define(std::u16string_view property, ValueType type,
                                     const Variant& value) {
    const Variant designed = Kept(type, value);
    Slot& slot = body_->Ensure(property);
    slot.type = type;
    slot.value = slot.designed = designed;
    slot.written = false;
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

DynamicObject& DynamicObject::DefineEvent(std::u16string_view event) {
    body_->Events().Define(event);
    return *this;
}

void DynamicObject::Raise(std::u16string_view event, const std::vector<Argument>& arguments) const {
    const Object held = object_; // a handler may end this one
    body_->Events().Raise(event, arguments);
}

void DynamicObject::Reset() const {
    const Object held = object_;
    body_->Reset();
}

Variant DynamicObject::Value(std::u16string_view property) const {
    return body_->Require(property).value;
}

} // namespace torlib
