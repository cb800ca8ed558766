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

using Places = std::array<Variant, MaxParameters>;

/// Positional arguments first, then named ones; what is left stays missing.
void PlaceArguments(const Member& member, std::span<Argument> arguments, Places& places) {
    std::array<bool, MaxParameters> given{};
    std::size_t position = 0;
    for (const Argument& argument : arguments) {
        const bool positional = argument.Name.empty();
        if (positional && position >= member.Count) {
            RaiseError(ErrorNumber::WrongArgumentCount,
                       "at most " + std::to_string(member.Count) + " arguments are possible");
        }
        const std::size_t place = positional ? position++ : PlaceOf(member, argument.Name);
        if (given[place]) {
            RaiseError(ErrorNumber::WrongArgumentCount,
                       "the argument " + ToUtf8(member.Parameters[place].Name) + " is given twice");
        }
        given[place] = true;
        places[place] = argument.Value;
    }
}

class ClassObject final : public CountedObject<Dispatch> {
  public:
    ClassObject(const ClassInfo& info, void* instance, bool owner)
        : CountedObject(0), hold_(*info.Module), info_(info), instance_(instance), owner_(owner) {}
    ~ClassObject() override {
        if (owner_) {
            info_.Destroy(instance_);
        }
    }

    Result Invoke(std::u16string_view member, InvokeKind kind, std::span<Argument> arguments,
                  Variant* result, ErrorRecord* error) override {
        try {
            const std::string label = ToUtf8(info_.Name) + "." + ToUtf8(member);
            const MemberScope scope(label.c_str());
            Variant ignored;
            Run(member, kind, arguments, result ? result : &ignored);
            return Result::Ok;
        } catch (...) {
            return EndException(error, ToUtf8(info_.Name), member, MemberAtWork::Innermost);
        }
    }

    std::int32_t NumberOf(std::u16string_view member) override { return info_.NumberOf(member); }

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
    void Run(std::u16string_view name, InvokeKind kind, std::span<Argument> arguments,
             Variant* result) {
        const Member* member = info_.Find(name, kind);
        if (!member) {
            RaiseUnknownMember(info_, name);
        }
        Places places;
        places.fill(Missing());
        PlaceArguments(*member, arguments, places);
        member->Call(instance_, std::span(places).first(member->Count),
                     std::span(member->Parameters).first(member->Count), result);
    }

    ModuleHold hold_; // the class may be another module's
    const ClassInfo& info_;
    void* instance_;
    bool owner_;
};

} // namespace

const Member* ClassInfo::Find(std::u16string_view name, InvokeKind kind) const {
    for (const Member& member : Members) {
        if (SameName(member.Name, name) && Fits(member.Kind, kind)) {
            return &member;
        }
    }
    return nullptr;
}

std::int32_t ClassInfo::NumberOf(std::u16string_view name) const {
    const auto at = std::find_if(Members.begin(), Members.end(), [name](const Member& member) {
        return member.Kind != MemberKind::Reserved && SameName(member.Name, name);
    });
    return at == Members.end() ? 0 : static_cast<std::int32_t>(at - Members.begin()) + 1;
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

Variant Effective(const CastSource& source) {
    const Parameter& parameter = source.For;
    if (!source.Value.IsMissing()) {
        return source.Value;
    }
    switch (parameter.Default) {
        case Parameter::DefaultKind::Boolean:
            return Variant(parameter.Value != 0);
        case Parameter::DefaultKind::Number:
            return Variant(std::int32_t{parameter.Value});
        case Parameter::DefaultKind::LeftOut:
            return {};
        case Parameter::DefaultKind::Required:
            break;
    }
    RaiseError(ErrorNumber::ArgumentNotOptional, "the argument is not optional");
}

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
