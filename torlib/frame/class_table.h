#pragma once
// The table of a public class: one row a member, in interface order. From it come late-bound calls,
// names and identifiers, the type library and the reference listing. A row looks like this; types,
// directions and the number of parameters are deduced from the member pointer:
//
//     constexpr Member members[] = {
//         Method<&FEM_Class::SolveMatrix>(u"SolveMatrix", u"Solves the banded system in place.",
//             {u"Nw", u"N3", u"A", u"Q", {u"FrmShow", Omitted}, {u"PrograssBarMode", false},
//              {u"ObjStbar", Omitted}}),
//         PropertyGet<&TORVAClass::ReadExitcontrol>(u"Exitcontrol", u"..."),
//         PropertyPut<&TORVAClass::WriteExitcontrol>(u"Exitcontrol", u"...", {u"NewValue"}),
//         Reserved(u"BeamData"),   // keeps the number of a member that has no code yet
//     };
//     const ClassInfo& FEM_Class::Info() {
//         static const ClassInfo info = DescribeClass<FEM_Class>(u"FEM_Class", u"...", members);
//         return info;
//     }

#include "torlib/frame/argument_cast.h"
#include "torlib/frame/class_catalogue.h"
#include "torlib/platform/component/event_point.h"
#include "torlib/platform/component/module_count.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <utility>

namespace torlib {

enum class MemberKind : std::uint8_t { Method, PropertyGet, PropertyPut, Reserved };

inline constexpr std::size_t MaxParameters = 24;

/// One row of a class table.
struct Member {
    using Thunk = void (*)(void* instance, const Variant* const* arguments,
                           const Parameter* parameters, Variant* result);

    std::u16string_view Name;
    std::u16string_view Doc;
    MemberKind Kind = MemberKind::Reserved;
    std::size_t Count = 0;
    Parameter Parameters[MaxParameters] = {};
    ParameterType Types[MaxParameters] = {};
    ParameterType Return = {};
    Thunk Call = nullptr;

    /// Calls the member of an instance with one argument for each parameter.
    TORLIB_API void Run(void* instance, std::span<const Variant> arguments, Variant* result) const;
};

/// The events that a class raises, in the order of the event interface; the rows have no code.
struct EventInterfaceInfo {
    std::u16string_view Name;
    Guid InterfaceId;
    std::span<const Member> Events;
};

/// A public class: names, identifiers, members in interface order, and how instances are made.
struct ClassInfo {
    std::u16string_view Name;
    std::u16string_view Doc;
    Guid ClassId;
    Guid InterfaceId;
    std::span<const Member> Members;
    void* (*Create)() = nullptr;
    void (*Destroy)(void*) = nullptr;
    void* (*DefaultInstance)() = nullptr;
    /// The events of the class and the connections of an instance; nothing for a class without.
    const EventInterfaceInfo* Events = nullptr;
    EventConnections& (*EventsOf)(void*) = nullptr;
    std::atomic<long>* Module = &live_in_module; ///< of the code of the class

    /// The number of a member: the row of its name's first, from 1; 0 when there is no member.
    TORLIB_API std::int32_t NumberOf(std::u16string_view name) const;
    /// The row of a member by name (case-blind) and kind of use, or nullptr.
    TORLIB_API const Member* Find(std::u16string_view name, InvokeKind kind) const;
    /// The row of a member by number and kind of use, or nullptr.
    TORLIB_API const Member* Find(std::int32_t number, InvokeKind kind) const;
};

namespace table {

template <std::size_t I, class P>
struct CastSlot {
    explicit CastSlot(const CastSource& source) : Cast(source) {}
    ArgumentCast<P> Cast;
};

/// All casts of one call, built left to right, so that the first bad argument is the one named.
template <class Indices, class... Args>
struct CastPack;
template <std::size_t... I, class... Args>
struct CastPack<std::index_sequence<I...>, Args...> : CastSlot<I, Args>... {
    CastPack([[maybe_unused]] const Variant* const* arguments,
             [[maybe_unused]] const Parameter* parameters)
        : CastSlot<I, Args>(CastSource{*arguments[I], parameters[I]})... {}

    template <class Function>
    auto Apply(Function function) {
        return function(static_cast<CastSlot<I, Args>&>(*this).Cast...);
    }
};

/// Refuses at compile time a default that a parameter of this type cannot take.
template <class P>
constexpr void CheckDefault(const Parameter& parameter) {
    using T = std::remove_cvref_t<P>;
    using Kind = Parameter::DefaultKind;
    const Kind kind = parameter.Default;
    if (IsOptionalRef<T> && kind != Kind::LeftOut) {
        throw "an optional output has no default and cannot be required";
    }
    if ((std::is_base_of_v<SafeArray, T> || PublishedRecord<T>)&&kind != Kind::Required) {
        throw "an array or a record cannot be left out";
    }
    if (kind == Kind::Boolean && !std::is_same_v<T, bool> && !std::is_same_v<T, Variant>) {
        throw "the default is a truth value, the parameter is not";
    }
    constexpr bool number = std::is_same_v<T, Integer> || std::is_same_v<T, Single> ||
                            std::is_same_v<T, Variant> || std::is_enum_v<T> ||
                            (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>);
    if (kind == Kind::Number && !number) {
        throw "the default is a number, the parameter is not";
    }
    if (std::is_same_v<T, Integer> && (parameter.Value < -32768 || parameter.Value > 32767)) {
        throw "the default does not fit its 16-bit parameter";
    }
}

constexpr char16_t LowerCase(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

/// Whether two names of a table are the same to a caller, who writes them in either case.
constexpr bool SameTableName(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return LowerCase(x) == LowerCase(y); });
}

/// Refuses at compile time what the parameters of a row cannot be together.
constexpr void CheckParameters(const Member& row) {
    const bool put = row.Kind == MemberKind::PropertyPut;
    for (std::size_t i = 0; i < row.Count; ++i) {
        const Parameter& parameter = row.Parameters[i];
        const bool required = parameter.Default == Parameter::DefaultKind::Required;
        if (parameter.Name.empty()) {
            throw "a parameter has no name";
        }
        for (std::size_t k = 0; k < i; ++k) {
            if (SameTableName(row.Parameters[k].Name, parameter.Name)) {
                throw "two parameters bear one name";
            }
        }
        const bool newValue = put && i + 1 == row.Count;
        if (newValue ? !required
                     : i > 0 && required &&
                           row.Parameters[i - 1].Default != Parameter::DefaultKind::Required) {
            throw "a required parameter stands behind an optional one, or a new value is optional";
        }
    }
    const bool result = row.Return.Type != ValueType::None;
    if ((row.Kind == MemberKind::PropertyGet && !result) || (put && (result || row.Count == 0))) {
        throw "reading a property has a result, writing it a new value and no result";
    }
}

/// A row with the types of a member or an event.
template <class Result, class... Args>
constexpr Member DescribedRow(std::u16string_view name, std::u16string_view doc, MemberKind kind,
                              std::initializer_list<Parameter> parameters, Member::Thunk call) {
    static_assert(sizeof...(Args) <= MaxParameters);
    Member row{name, doc, kind, sizeof...(Args), {}, {}, {}, call};
    if (parameters.size() != sizeof...(Args)) {
        throw "the row names another number of parameters than the member has";
    }
    std::size_t i = 0;
    for (const Parameter& parameter : parameters) {
        row.Parameters[i++] = parameter;
    }
    i = 0;
    ((row.Types[i++] = TypeOf<Args>()), ...);
    if constexpr (!std::is_void_v<Result>) {
        row.Return = TypeOf<Result>();
    }
    i = 0;
    (CheckDefault<Args>(row.Parameters[i++]), ...);
    CheckParameters(row);
    return row;
}

template <auto Pointer, class Class, class Result, class... Args>
struct Caller {
    static void Call(void* instance, const Variant* const* arguments, const Parameter* parameters,
                     Variant* result) {
        CastPack<std::index_sequence_for<Args...>, Args...> casts(arguments, parameters);
        auto* object = static_cast<Class*>(instance);
        if constexpr (std::is_void_v<Result>) {
            casts.Apply([object](auto&... cast) { (object->*Pointer)(cast.Get()...); });
        } else {
            *result = ToVariant(casts.Apply(
                [object](auto&... cast) -> Result { return (object->*Pointer)(cast.Get()...); }));
        }
        casts.Apply([](auto&... cast) { (cast.Finish(), ...); });
    }

    static constexpr Member Row(std::u16string_view name, std::u16string_view doc, MemberKind kind,
                                std::initializer_list<Parameter> parameters) {
        return DescribedRow<Result, Args...>(name, doc, kind, parameters, &Call);
    }
};

template <auto Pointer, class Class, class Result, class... Args>
Caller<Pointer, Class, Result, Args...> CallerOf(Result (Class::*)(Args...));
template <auto Pointer, class Class, class Result, class... Args>
Caller<Pointer, const Class, Result, Args...> CallerOf(Result (Class::*)(Args...) const);

template <auto Pointer>
using CallerFor = decltype(CallerOf<Pointer>(Pointer));

template <class Signature>
struct EventRow;
template <class... Args>
struct EventRow<void(Args...)> {
    static constexpr Member Row(std::u16string_view name, std::u16string_view doc,
                                std::initializer_list<Parameter> parameters) {
        return DescribedRow<void, Args...>(name, doc, MemberKind::Method, parameters, nullptr);
    }
};

/// Whether the function's own name, as the compiler spells it, ends with the published name; a
/// whole name stands right behind its class.
template <auto Pointer>
consteval bool IsNamed(std::u16string_view name, bool whole) {
    constexpr std::string_view key = "Pointer = &";
    std::string_view text = __PRETTY_FUNCTION__;
    text.remove_prefix(text.find(key) + key.size());
    text = text.substr(0, text.find_first_of(";]"));
    text.remove_prefix(text.rfind("::") + 2);
    if (text.size() < name.size() || (whole && text.size() > name.size())) {
        return false;
    }
    text.remove_prefix(text.size() - name.size());
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] != static_cast<char16_t>(text[i])) {
            return false;
        }
    }
    return true;
}

/// The row of a function that bears the row's name, so that no row can call another's function.
template <auto Pointer>
consteval Member NamedRow(std::u16string_view name, std::u16string_view doc, MemberKind kind,
                          std::initializer_list<Parameter> parameters) {
    if (!IsNamed<Pointer>(name, kind == MemberKind::Method)) {
        throw "the row's name is not that of its function";
    }
    return CallerFor<Pointer>::Row(name, doc, kind, parameters);
}

} // namespace table

template <auto Pointer>
consteval Member Method(std::u16string_view name, std::u16string_view doc,
                        std::initializer_list<Parameter> parameters = {}) {
    return table::NamedRow<Pointer>(name, doc, MemberKind::Method, parameters);
}

template <auto Pointer>
consteval Member PropertyGet(std::u16string_view name, std::u16string_view doc,
                             std::initializer_list<Parameter> parameters = {}) {
    return table::NamedRow<Pointer>(name, doc, MemberKind::PropertyGet, parameters);
}

template <auto Pointer>
consteval Member PropertyPut(std::u16string_view name, std::u16string_view doc,
                             std::initializer_list<Parameter> parameters) {
    return table::NamedRow<Pointer>(name, doc, MemberKind::PropertyPut, parameters);
}

/// A row of an event interface: Event<void(Long)>(u"Moved", u"...", {u"Distance"}).
template <class Signature>
consteval Member Event(std::u16string_view name, std::u16string_view doc,
                       std::initializer_list<Parameter> parameters = {}) {
    return table::EventRow<Signature>::Row(name, doc, parameters);
}

/// Keeps the number of a published member that has no code yet; calling it is an unknown member.
consteval Member Reserved(std::u16string_view name) {
    Member row;
    row.Name = name;
    return row;
}

/// The event interface of a class, by the class's name; raises 438 when it has none.
TORLIB_API const EventInterfaceInfo& EventInterfaceOf(std::u16string_view className);

/// A class whose instances raise events: Events() hands out the connections of the instance.
template <class Class>
concept RaisesEvents = requires(Class& source) {
    { source.Events() } -> std::convertible_to<EventConnections&>;
};

/// The rows of a class; a table that contradicts itself does not compile.
class MemberTable {
  public:
    consteval MemberTable() = default;
    template <std::size_t N>
    consteval MemberTable(const Member (&rows)[N]) : Rows(rows) {
        for (std::size_t i = 0; i < N; ++i) {
            for (std::size_t k = 0; k < i; ++k) {
                CheckPair(rows[k], rows[i], k + 1 == i);
            }
        }
    }

    std::span<const Member> Rows;

  private:
    static constexpr void CheckPair(const Member& first, const Member& second, bool neighbours) {
        if (!table::SameTableName(first.Name, second.Name)) {
            return;
        }
        const bool property =
            first.Kind == MemberKind::PropertyGet && second.Kind == MemberKind::PropertyPut;
        if (!property || !neighbours || first.Name != second.Name) {
            throw "one name stands on two rows that do not read and write one property";
        }
        const ParameterType& value = second.Types[second.Count - 1];
        if (second.Count != first.Count + 1 || value.Type != first.Return.Type ||
            value.TypeName != first.Return.TypeName) {
            throw "a property is written in another type than it is read, or with other indices";
        }
    }
};

/// Puts a table together with the class's fixed identifiers and, when it raises events, with its
/// event interface.
template <class Class>
ClassInfo DescribeClass(std::u16string_view name, std::u16string_view doc, MemberTable members) {
    const CatalogueEntry& entry = CatalogueEntryOf(name);
    ClassInfo info{entry.Name,
                   doc,
                   entry.ClassId,
                   entry.InterfaceId,
                   members.Rows,
                   []() -> void* { return new Class; },
                   [](void* instance) { delete static_cast<Class*>(instance); },
                   []() -> void* { return &Class::DefaultInstance(); }};
    if constexpr (RaisesEvents<Class>) {
        info.Events = &EventInterfaceOf(name);
        info.EventsOf = [](void* source) -> EventConnections& {
            return static_cast<Class*>(source)->Events();
        };
    }
    return info;
}

/// The one implicit default instance of a class.
template <class Class>
Class& Default() {
    return Class::DefaultInstance();
}

} // namespace torlib
