#include "torlib/frame/class_object.h"

#include "torlib/platform/component/counted_object.h"
#include "torlib/platform/component/exception_boundary.h"
#include "torlib/platform/component/nearest_names.h"

#include <algorithm>
#include <array>

namespace torlib {

namespace {

bool Fits(MemberKind member, InvokeKind use) {
    switch (member) {
        case MemberKind::Method:
            return use == InvokeKind::Method || use == InvokeKind::MethodOrGet;
        case MemberKind::PropertyGet:
            return use == InvokeKind::PropertyGet || use == InvokeKind::MethodOrGet;
        case MemberKind::PropertyPut:
            return use == InvokeKind::PropertyPut;
        case MemberKind::Reserved:
            return false;
    }
    return false;
}

[[noreturn]] void RaiseUnknownMember(const ClassInfo& info, std::u16string_view name) {
    std::vector<std::string> known;
    for (const Member& member : info.Members) {
        if (member.Kind != MemberKind::Reserved) {
            known.push_back(ToUtf8(member.Name));
        }
    }
    RaiseError(ErrorNumber::NoSuchMember, ToUtf8(info.Name) + " has no member " + ToUtf8(name) +
                                              " of this use" + Suggestion(ToUtf8(name), known));
}

std::size_t PlaceOf(const Member& member, std::u16string_view name) {
    std::vector<std::string> known;
    for (std::size_t i = 0; i < member.Count; ++i) {
        if (SameName(member.Parameters[i].Name, name)) {
            return i;
        }
        known.push_back(ToUtf8(member.Parameters[i].Name));
    }
    RaiseError(ErrorNumber::NoSuchNamedArgument,
               "there is no parameter " + ToUtf8(name) + Suggestion(ToUtf8(name), known));
}

std::size_t PlaceOf(const Member& member, std::int32_t number) {
    if (number < 1 || static_cast<std::size_t>(number) > member.Count) {
        RaiseError(ErrorNumber::NoSuchNamedArgument,
                   "there is no parameter of the number " + std::to_string(number));
    }
    return static_cast<std::size_t>(number) - 1;
}

/// Where the arguments of one call stand; what is left stays missing. Nothing is copied.
class Places {
  public:
    explicit Places(const Member& member) : member_(member) {
        std::fill_n(places_.begin(), member.Count, &missing);
    }
    void Put(std::size_t place, const Variant& value) {
        if (place >= member_.Count) {
            RaiseError(ErrorNumber::WrongArgumentCount,
                       "at most " + std::to_string(member_.Count) + " arguments are possible");
        }
        if (places_[place] != &missing) {
            RaiseError(ErrorNumber::WrongArgumentCount, "the argument " +
                                                            ToUtf8(member_.Parameters[place].Name) +
                                                            " is given twice");
        }
        places_[place] = &value;
    }
    void Call(void* instance, Variant* result) const {
        Variant ignored;
        member_.Call(instance, places_.data(), member_.Parameters, result ? result : &ignored);
    }

  private:
    static inline const Variant missing{Missing()};

    const Member& member_;
    std::array<const Variant*, MaxParameters> places_;
};

class ClassObject final : public CountedObject<Dispatch> {
  public:
    ClassObject(const ClassInfo& info, void* instance, bool owner)
        : CountedObject(0), hold_(*info.Module), info_(info), instance_(instance), owner_(owner) {}
    ~ClassObject() override {
        if (owner_) {
            info_.Destroy(instance_);
        }
    }

    /// Positional arguments first, then named ones.
    Result Invoke(std::u16string_view member, InvokeKind kind, std::span<Argument> arguments,
                  Variant* result, ErrorRecord* error) override {
        return Answer(member, error, [&] {
            const Member* const row = info_.Find(member, kind);
            if (!row) {
                RaiseUnknownMember(info_, member);
            }
            Places places(*row);
            std::size_t position = 0;
            for (const Argument& argument : arguments) {
                places.Put(argument.Name.empty() ? position++ : PlaceOf(*row, argument.Name),
                           argument.Value);
            }
            places.Call(instance_, result);
        });
    }

    std::int32_t NumberOf(std::u16string_view member) override { return info_.NumberOf(member); }

    std::int32_t ParameterNumberOf(std::int32_t member, std::u16string_view parameter) override {
        // Writing a property has the parameters of reading it and the new value.
        const Member* row = info_.Find(member, InvokeKind::PropertyPut);
        row = row ? row : info_.Find(member, InvokeKind::MethodOrGet);
        for (std::size_t i = 0; row && i < row->Count; ++i) {
            if (SameName(row->Parameters[i].Name, parameter)) {
                return static_cast<std::int32_t>(i) + 1;
            }
        }
        return 0;
    }

    Result InvokeNumber(std::int32_t member, InvokeKind kind, std::span<const Variant> arguments,
                        std::span<const std::int32_t> named, Variant* result,
                        ErrorRecord* error) override {
        const Member* const row = info_.Find(member, kind);
        return Answer(row ? row->Name : u"member by number", error, [&] {
            if (!row) {
                RaiseError(ErrorNumber::NoSuchMember, ToUtf8(info_.Name) +
                                                          " has no member of the number " +
                                                          std::to_string(member) + " of this use");
            }
            if (named.size() > arguments.size()) {
                RaiseError(ErrorNumber::WrongArgumentCount,
                           "more parameters are named than arguments given");
            }
            Places places(*row);
            const std::size_t positional = arguments.size() - named.size();
            for (std::size_t i = 0; i < arguments.size(); ++i) {
                places.Put(i < positional ? i : PlaceOf(*row, named[i - positional]), arguments[i]);
            }
            places.Call(instance_, result);
        });
    }

  protected:
    bool Answers(const Guid& interface) const override {
        return interface == IidDispatch || interface == info_.InterfaceId;
    }
    void* Companion(const Guid& interface) override {
        if (interface != IidEventPoint || !info_.EventsOf) {
            return nullptr;
        }
        EventPoint* const point = info_.EventsOf(instance_).Point();
        point->AddRef();
        return point;
    }

  private:
    /// The one place where exceptions become error records. What fails before the member is at
    /// work bears the name that was called; the text is made only then.
    template <class Call>
    Result Answer(std::u16string_view member, ErrorRecord* error, const Call& call) const {
        try {
            const MemberScope scope("");
            call();
            return Result::Ok;
        } catch (...) {
            return EndException(error, ToUtf8(info_.Name), member, MemberAtWork::Innermost);
        }
    }

    ModuleHold hold_; // the class may be another module's
    const ClassInfo& info_;
    void* instance_;
    bool owner_;
};

} // namespace

void Member::Run(void* instance, std::span<const Variant> arguments, Variant* result) const {
    std::array<const Variant*, MaxParameters> places{};
    for (std::size_t i = 0; i < Count; ++i) {
        places[i] = &arguments[i];
    }
    Call(instance, places.data(), Parameters, result);
}

std::int32_t ClassInfo::NumberOf(std::u16string_view name) const {
    const auto at = std::find_if(Members.begin(), Members.end(), [name](const Member& member) {
        return member.Kind != MemberKind::Reserved && SameName(member.Name, name);
    });
    return at == Members.end() ? 0 : static_cast<std::int32_t>(at - Members.begin()) + 1;
}

const Member* ClassInfo::Find(std::int32_t number, InvokeKind kind) const {
    const auto place = static_cast<std::size_t>(number) - 1;
    if (place >= Members.size()) {
        return nullptr;
    }
    // The row that writes a property stands behind the one that reads it.
    const Member* const first = &Members[place];
    const Member* const second = place + 1 < Members.size() ? first + 1 : nullptr;
    if (Fits(first->Kind, kind)) {
        return first;
    }
    return second && second->Name == first->Name && Fits(second->Kind, kind) ? second : nullptr;
}

const Member* ClassInfo::Find(std::u16string_view name, InvokeKind kind) const {
    for (const Member& member : Members) {
        if (SameName(member.Name, name) && Fits(member.Kind, kind)) {
            return &member;
        }
    }
    return nullptr;
}

Object NewObject(const ClassInfo& info) {
    return Object(new ClassObject(info, info.Create(), true));
}

Object DefaultObject(const ClassInfo& info) {
    return Object(new ClassObject(info, info.DefaultInstance(), false));
}

namespace table {

namespace {

/// What an argument that must be there refers to.
Variant GivenValue(const CastSource& source) {
    const std::string name = ToUtf8(source.For.Name);
    if (source.Value.IsMissing()) {
        RaiseError(ErrorNumber::ArgumentNotOptional, name + ": the argument is not optional");
    }
    try {
        return source.Value.Dereferenced();
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Number(), error.Member(), name + ": " + error.Description());
    }
}

} // namespace

std::shared_ptr<SafeArray> CheckedArray(const CastSource& source, ValueType type,
                                        const char16_t* recordName) {
    const Variant given = GivenValue(source);
    std::shared_ptr<SafeArray> array;
    if (const auto* reference = std::get_if<SafeArray*>(&given.Value())) {
        array = {std::shared_ptr<void>(), *reference};
    } else if (const auto* owned = std::get_if<std::shared_ptr<SafeArray>>(&given.Value())) {
        array = *owned;
    }
    const auto text = [](const char16_t* name) { return std::u16string_view(name ? name : u""); };
    if (!array || array->ElementType() != type || text(array->RecordName()) != text(recordName)) {
        RaiseError(ErrorNumber::TypeMismatch,
                   ToUtf8(source.For.Name) + ": an array of another element type is needed, not " +
                       given.KindName());
    }
    return array;
}

void* CheckedRecord(const CastSource& source, const char16_t* recordName) {
    const Variant given = GivenValue(source);
    const auto* record = std::get_if<RecordReference>(&given.Value());
    if (!record || std::u16string_view(record->Name) != recordName) {
        RaiseError(ErrorNumber::TypeMismatch, ToUtf8(source.For.Name) + ": a record " +
                                                  ToUtf8(recordName) + " is needed, not " +
                                                  given.KindName());
    }
    return record->Address;
}

} // namespace table

} // namespace torlib
