#pragma once
// From a late-bound argument to a typed parameter and back: conversion with error 13, defaults of
// arguments that were left out, arrays and records without a copy, by-reference scalars written
// back when the member changed them (also when it fails).

#include "torlib/frame/arithmetic.h"
#include "torlib/frame/optional_ref.h"
#include "torlib/platform/component/variant.h"

#include <array>
#include <bit>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace torlib {

/// Marks an optional parameter without a default: it is taken as 0, false, an empty text, no
/// object, or a variant marked as missing.
struct OmittedTag {};
inline constexpr OmittedTag Omitted{};

/// Name and default of a parameter; a bare name is a required parameter.
struct Parameter {
    enum class DefaultKind : std::uint8_t { Required, LeftOut, Boolean, Number };

    constexpr Parameter() = default;
    constexpr Parameter(const char16_t* name) : Name(name) {}
    constexpr Parameter(const char16_t* name, OmittedTag)
        : Name(name), Default(DefaultKind::LeftOut) {}
    constexpr Parameter(const char16_t* name, bool value)
        : Name(name), Default(DefaultKind::Boolean), Value(value) {}
    constexpr Parameter(const char16_t* name, int value)
        : Name(name), Default(DefaultKind::Number), Value(value) {}

    std::u16string_view Name;
    DefaultKind Default = DefaultKind::Required;
    int Value = 0;
};

/// The published name of an enumeration or record type; specialised in frame/enumerations.h.
template <class T>
struct PublishedName {
    static constexpr const char16_t* Name = nullptr;
};

/// How a parameter is typed and passed.
struct ParameterType {
    ValueType Type = ValueType::None;
    const char16_t* TypeName = nullptr; ///< name of a record or enumeration, else nullptr
    bool IsArray = false;
    bool ByReference = false;
    bool Writable = false;
    std::unique_ptr<SafeArray> (*NewArray)() = nullptr; ///< makes an array of such elements
};

/// The argument to convert and the parameter it is for.
struct CastSource {
    const Variant& Value;
    const Parameter& For;
};

/// A record that crosses the library's boundary.
template <class T>
concept PublishedRecord = requires {
    requires ValueTypeOf<T>::Type == ValueType::Record;
};

namespace table {

/// The default of a parameter whose argument was left out; a required one raises 449.
TORLIB_API Variant DefaultOf(const Parameter& parameter);
/// Whether two values are of the same kind and have the same bits.
TORLIB_API bool SameVariant(const Variant& a, const Variant& b);
/// The caller's array when its elements are of this type, kept alive should the variable that holds
/// it be given another value meanwhile; otherwise raises 13 naming the parameter.
TORLIB_API std::shared_ptr<SafeArray> CheckedArray(const CastSource& source, ValueType type,
                                                   const char16_t* recordName);
/// The caller's record of this type; otherwise raises 13 naming the parameter.
TORLIB_API void* CheckedRecord(const CastSource& source, const char16_t* recordName);

template <class T>
T FromVariant(const Variant& value) {
    if constexpr (std::is_same_v<T, Variant>) {
        return value;
    } else if constexpr (std::is_same_v<T, Integer>) {
        return value.ToInteger();
    } else if constexpr (std::is_same_v<T, Single>) {
        return value.ToSingle();
    } else if constexpr (std::is_same_v<T, double>) {
        return value.ToDouble();
    } else if constexpr (std::is_same_v<T, bool>) {
        return value.ToBoolean();
    } else if constexpr (std::is_same_v<T, String>) {
        return value.ToText();
    } else if constexpr (std::is_same_v<T, Object>) {
        return value.ToObject();
    } else {
        static_assert(std::is_same_v<T, Long> || std::is_enum_v<T>);
        return static_cast<T>(value.ToLong());
    }
}

template <class T>
std::unique_ptr<SafeArray> NewArray() {
    return std::make_unique<Array<T>>();
}

template <class T>
struct Description {
    static constexpr ParameterType Value{std::is_enum_v<T>            ? ValueType::Long
                                         : std::is_same_v<T, bool>    ? ValueType::Boolean
                                         : std::is_same_v<T, Object>  ? ValueType::Object
                                         : std::is_same_v<T, Variant> ? ValueType::Variant
                                                                      : ValueType::None,
                                         PublishedName<T>::Name};
};
template <class T>
requires requires {
    ValueTypeOf<T>::Type;
}
struct Description<T> {
    static constexpr ParameterType Value{ValueTypeOf<T>::Type, ValueTypeOf<T>::RecordName};
};
template <class T>
struct Description<Array<T>> {
    static constexpr ParameterType Value{
        Array<T>::ElementTypeCode, Array<T>::ElementRecordName, true, false, false, &NewArray<T>};
};
template <class T>
struct Description<OptionalRef<T>> {
    static constexpr ParameterType Value{Description<T>::Value.Type, Description<T>::Value.TypeName,
                                         false, true, true};
};

template <class P>
constexpr ParameterType TypeOf() {
    ParameterType type = Description<std::remove_cvref_t<P>>::Value;
    if (std::is_reference_v<P>) {
        type.Writable = !std::is_const_v<std::remove_reference_t<P>>;
        type.ByReference = true;
    }
    return type;
}

template <class T>
Variant ToVariant(const T& value) {
    if constexpr (std::is_enum_v<T>) {
        return Variant(static_cast<Long>(value));
    } else {
        return Variant(value);
    }
}

/// Whether two stored values have the same bits: 0 and -0 differ.
template <class T>
bool Same(const T& a, const T& b) {
    if constexpr (std::is_same_v<T, Variant>) {
        return SameVariant(a, b);
    } else if constexpr (std::is_trivially_copyable_v<T>) {
        using Bytes = std::array<std::byte, sizeof(T)>;
        return std::bit_cast<Bytes>(a) == std::bit_cast<Bytes>(b);
    } else {
        return a == b;
    }
}

/// Converts the argument, or the default when it was left out, and names the parameter in the error
/// of a failed conversion. A variant without a default stays missing.
template <class T>
T Convert(const CastSource& source) {
    const bool missing = source.Value.IsMissing();
    try {
        if (!missing ||
            (std::is_same_v<T, Variant> && source.For.Default == Parameter::DefaultKind::LeftOut)) {
            return FromVariant<T>(source.Value);
        }
        return FromVariant<T>(DefaultOf(source.For));
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Number(), error.Member(),
                           ToUtf8(source.For.Name) + ": " + error.Description());
    }
}

} // namespace table

/// A value parameter, or a reference that is only read.
template <class P>
class ArgumentCast {
    using T = std::remove_cvref_t<P>;

  public:
    explicit ArgumentCast(const CastSource& source) : value_(table::Convert<T>(source)) {}
    const T& Get() const { return value_; }
    void Finish() const {}

  private:
    T value_;
};

/// A scalar that the member may change. One that it leaves alone is not written back: a double
/// keeps the digits that a 32-bit parameter cannot hold, an empty variant stays empty. A variant
/// arrives as the value of the caller's variable.
template <class T>
requires(!std::is_const_v<T> && !std::is_base_of_v<SafeArray, T> &&
         !PublishedRecord<T>) class ArgumentCast<T&> {
  public:
    explicit ArgumentCast(const CastSource& source)
        : target_(source.Value), value_(Incoming(source)), before_(value_) {}
    ArgumentCast(const ArgumentCast&) = delete;
    ArgumentCast& operator=(const ArgumentCast&) = delete;
    ~ArgumentCast() {
        if (!handedOut_ || finished_) {
            return;
        }
        try {
            Finish();
        } catch (...) {
            // The member's own error is already on its way to the caller.
        }
    }
    T& Get() {
        handedOut_ = true;
        return value_;
    }
    void Finish() {
        finished_ = true;
        if (!table::Same(value_, before_)) {
            target_.Assign(table::ToVariant(value_));
        }
    }

  private:
    static T Incoming(const CastSource& source) {
        if constexpr (std::is_same_v<T, Variant>) {
            return table::Convert<T>(source).Dereferenced();
        } else {
            return table::Convert<T>(source);
        }
    }

    const Variant& target_;
    T value_;
    T before_;
    bool handedOut_ = false; // a call that never began leaves the variable alone
    bool finished_ = false;
};

/// A scalar output that may be left out.
template <class T>
class ArgumentCast<OptionalRef<T>> {
  public:
    explicit ArgumentCast(const CastSource& source)
        : scalar_(source), present_(!source.Value.IsMissing()) {}
    OptionalRef<T> Get() { return present_ ? OptionalRef<T>(scalar_.Get()) : OptionalRef<T>(); }
    void Finish() { scalar_.Finish(); }

  private:
    ArgumentCast<T&> scalar_;
    bool present_;
};

/// An array, passed on without a copy.
template <class P>
requires std::is_base_of_v<SafeArray, std::remove_cvref_t<P>>
class ArgumentCast<P> {
    using A = std::remove_cvref_t<P>;

  public:
    explicit ArgumentCast(const CastSource& source)
        : array_(table::CheckedArray(source, A::ElementTypeCode, A::ElementRecordName)) {}
    A& Get() const { return static_cast<A&>(*array_); }
    void Finish() const {}

  private:
    std::shared_ptr<SafeArray> array_;
};

/// A record, passed on without a copy.
template <class P>
requires PublishedRecord<std::remove_cvref_t<P>>
class ArgumentCast<P> {
    using Record = std::remove_cvref_t<P>;

  public:
    explicit ArgumentCast(const CastSource& source)
        : record_(*static_cast<Record*>(
              table::CheckedRecord(source, ValueTypeOf<Record>::RecordName))) {}
    Record& Get() const { return record_; }
    void Finish() const {}

  private:
    Record& record_;
};

} // namespace torlib
