#include "torlib/platform/component/variant.h"

#include "torlib/platform/component/nearest_names.h"

#include <cmath>

namespace torlib {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

const char* TypeName(ValueType type) {
    static constexpr const char* names[] = {"nothing", "Integer", "Long",    "Single", "Double",
                                            "Boolean", "String",  "Variant", "Object", "record"};
    return names[static_cast<std::size_t>(type)];
}

} // namespace

const Variant& Variant::Last() const {
    const Variant* last = this;
    const Variant* behind = this; // at half the pace, so that a ring brings both together
    bool step = false;
    while (const auto* next = std::get_if<Variant*>(&last->value_)) {
        if (!*next) {
            break;
        }
        last = *next;
        behind = step ? std::get<Variant*>(behind->value_) : behind;
        step = !step;
        if (last == behind) {
            RaiseError(ErrorNumber::TypeMismatch, "the variant refers to itself");
        }
    }
    if (last->IsReference() && last->IsNullReference()) {
        RaiseError(ErrorNumber::InvalidArgument, "the reference is null");
    }
    return *last;
}

bool Variant::IsNullReference() const {
    return std::visit(
        []<class T>(const T& held) {
            if constexpr (std::is_pointer_v<T>) {
                return held == nullptr;
            } else if constexpr (std::is_same_v<T, RecordReference>) {
                return held.Name == nullptr || held.Address == nullptr;
            } else {
                return false;
            }
        },
        value_);
}

Variant Variant::Dereferenced() const {
    const Variant& last = Last();
    return std::visit(
        [&last]<class T>(const T& held) -> Variant {
            if constexpr (std::is_pointer_v<T> && !std::is_same_v<T, SafeArray*>) {
                return Variant(*held);
            } else {
                return last;
            }
        },
        last.value_);
}

double Variant::ToDouble() const {
    const Variant plain = Dereferenced();
    return std::visit(Overloaded{
                          [](std::monostate) { return 0.0; },
                          [](std::int16_t v) { return static_cast<double>(v); },
                          [](std::int32_t v) { return static_cast<double>(v); },
                          [](float v) { return static_cast<double>(v); },
                          [](double v) { return v; },
                          [](bool v) { return v ? -1.0 : 0.0; },
                          [](const std::u16string& v) { return ParseNumber(v); },
                          [&plain](const auto&) -> double { plain.RaiseMismatch("a number"); },
                      },
                      plain.value_);
}

float Variant::ToSingle() const {
    const double value = ToDouble();
    const auto rounded = static_cast<float>(value);
    if (!std::isfinite(rounded)) {
        RaiseError(ErrorNumber::Overflow,
                   "the value " + ToUtf8(NumberText(value)) + " does not fit a 32-bit float");
    }
    return rounded;
}

std::int16_t Variant::ToInteger() const {
    return RoundToInt16(ToDouble());
}

std::int32_t Variant::ToLong() const {
    return RoundToInt32(ToDouble());
}

bool Variant::ToBoolean() const {
    const Variant plain = Dereferenced();
    if (const auto* flag = std::get_if<bool>(&plain.value_)) {
        return *flag;
    }
    if (const auto* text = std::get_if<std::u16string>(&plain.value_)) {
        if (SameName(*text, u"True") || SameName(*text, u"False")) {
            return SameName(*text, u"True");
        }
    }
    return plain.ToDouble() != 0;
}

std::u16string Variant::ToText() const {
    const Variant plain = Dereferenced();
    return std::visit(
        Overloaded{
            [](std::monostate) { return std::u16string(); },
            [](std::int16_t v) { return FromUtf8(std::to_string(v)); },
            [](std::int32_t v) { return FromUtf8(std::to_string(v)); },
            [](float v) { return NumberText(v); },
            [](double v) { return NumberText(v); },
            [](bool v) { return std::u16string(v ? u"True" : u"False"); },
            [](const std::u16string& v) { return v; },
            [&plain](const auto&) -> std::u16string { plain.RaiseMismatch("a text"); },
        },
        plain.value_);
}

Object Variant::ToObject() const {
    const Variant plain = Dereferenced();
    if (const auto* object = std::get_if<Object>(&plain.value_)) {
        return *object;
    }
    if (plain.IsMissing() || plain.IsEmpty()) {
        return {};
    }
    RaiseError(ErrorNumber::ObjectRequired, "an object is required, not " + plain.KindName());
}

SafeArray& Variant::ToArray() const {
    const Variant plain = Dereferenced();
    if (const auto* reference = std::get_if<SafeArray*>(&plain.value_)) {
        return **reference;
    }
    if (const auto* owned = std::get_if<std::shared_ptr<SafeArray>>(&plain.value_);
        owned && *owned) {
        return **owned;
    }
    plain.RaiseMismatch("an array");
}

void Variant::Assign(const Variant& value) const {
    if (!IsReference()) {
        return;
    }
    const Variant& last = Last();
    if (!last.IsReference()) {
        const_cast<Variant&>(last) = value.Dereferenced(); // reached by a reference, so not const
        return;
    }
    std::visit(Overloaded{
                   [&](std::int16_t* target) { *target = value.ToInteger(); },
                   [&](std::int32_t* target) { *target = value.ToLong(); },
                   [&](float* target) { *target = value.ToSingle(); },
                   [&](double* target) { *target = value.ToDouble(); },
                   [&](bool* target) { *target = value.ToBoolean(); },
                   [&](std::u16string* target) { *target = value.ToText(); },
                   [&](Object* target) { *target = value.ToObject(); },
                   [](const auto&) {},
               },
               last.value_);
}

std::string Variant::KindName() const {
    const Variant plain = Dereferenced();
    return std::visit(
        Overloaded{
            [](std::monostate) -> std::string { return "nothing"; },
            [](Missing) -> std::string { return "a missing argument"; },
            [](const std::u16string& v) { return "text \"" + ToUtf8(v) + "\""; },
            [](const Object& v) -> std::string { return v ? "an object" : "no object"; },
            [](SafeArray* v) -> std::string {
                return std::string("an array of ") + TypeName(v->ElementType());
            },
            [](const std::shared_ptr<SafeArray>& v) -> std::string {
                return std::string("an array of ") +
                       TypeName(v ? v->ElementType() : ValueType::None);
            },
            [](const RecordReference& v) { return "a record " + ToUtf8(v.Name); },
            [&plain](const auto&) { return "the value " + ToUtf8(plain.ToText()); },
        },
        plain.value_);
}

void Variant::RaiseMismatch(const char* wanted) const {
    RaiseError(ErrorNumber::TypeMismatch, std::string(wanted) + " is needed, not " + KindName());
}

} // namespace torlib
