#pragma once
// A tagged value: nothing, a number, a truth value, a text, an object, an array, or a reference to
// one of the caller's variables or records.

#include "torlib/platform/component/array.h"
#include "torlib/platform/component/object.h"

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace torlib {

/// Stands for an optional argument that was left out.
struct Missing {};

/// A type of ours that wraps one stored number, such as a 32-bit float with checked assignment.
template <class T>
concept NumberWrapper = requires(const T& value) {
    { value.Value() } -> std::convertible_to<double>;
};

/// The caller's record, known by the name of its type.
struct RecordReference {
    const char16_t* Name;
    void* Address;
};

class TORLIB_API Variant {
  public:
    using Storage = std::variant<std::monostate, Missing, std::int16_t, std::int32_t, float, double,
                                 bool, std::u16string, Object, std::shared_ptr<SafeArray>,
                                 std::int16_t*, std::int32_t*, float*, double*, bool*,
                                 std::u16string*, Object*, Variant*, SafeArray*, RecordReference>;

    Variant() = default;
    Variant(Missing) : value_(Missing()) {}
    Variant(bool value) : value_(value) {}
    Variant(std::int16_t value) : value_(value) {}
    Variant(std::int32_t value) : value_(value) {}
    Variant(float value) : value_(value) {}
    Variant(double value) : value_(value) {}
    Variant(std::u16string value) : value_(std::move(value)) {}
    Variant(const char16_t* value) : value_(std::u16string(value)) {}
    Variant(Object value) : value_(std::move(value)) {}
    Variant(std::shared_ptr<SafeArray> value) : value_(std::move(value)) {}
    Variant(RecordReference record) : value_(record) {}
    template <NumberWrapper T>
    Variant(const T& value) : value_(value.Value()) {}
    /// A reference to the caller's variable; see ByRef.
    template <class T>
    requires std::constructible_from<Storage, T*>
    static Variant Reference(T* target) {
        Variant result;
        result.value_ = target;
        return result;
    }

    bool IsMissing() const { return std::holds_alternative<Missing>(value_); }
    bool IsEmpty() const { return std::holds_alternative<std::monostate>(value_); }
    bool IsReference() const { return value_.index() >= first_reference; }
    const Storage& Value() const { return value_; }

    // Conversions follow references; numbers round halves to the even neighbour. A value that has
    // no meaning in the target type raises 13, one outside its range 6, a null reference 5.
    double ToDouble() const;
    float ToSingle() const;
    std::int16_t ToInteger() const;
    std::int32_t ToLong() const;
    bool ToBoolean() const;
    std::u16string ToText() const;
    Object ToObject() const;
    /// The array held or referred to; anything else raises 13.
    SafeArray& ToArray() const;
    /// The value itself, with a reference replaced by what it refers to.
    Variant Dereferenced() const;
    /// Stores a value in the variable that is referred to, converted to its type; does nothing for
    /// a value that is no reference.
    void Assign(const Variant& value) const;
    /// Name of the kind of value for error messages, such as "text" or "array of Single".
    std::string KindName() const;

  private:
    static constexpr std::size_t first_reference = 10;
    /// The variant at the end of the references between variants; a ring of them raises 13.
    const Variant& Last() const;
    bool IsNullReference() const;
    [[noreturn]] void RaiseMismatch(const char* wanted) const;

    Storage value_;
};

struct Argument {
    Argument() = default;
    // The constraint leaves copies alone: no Variant is made from an Argument.
    template <class T>
    requires std::constructible_from<Variant, T>
    // NOLINTNEXTLINE(bugprone-forwarding-reference-overload)
    Argument(T&& value) : Value(std::forward<T>(value)) {}
    Argument(std::u16string name, Variant value) : Name(std::move(name)), Value(std::move(value)) {}

    std::u16string Name;
    Variant Value;
};

/// Passes a variable or an array by reference to a late-bound call.
template <class T>
requires std::constructible_from<Variant::Storage, T*> Variant ByRef(T& target) {
    return Variant::Reference(&target);
}
inline Variant ByRef(SafeArray& array) {
    return Variant::Reference(&array);
}
template <class T>
requires(ValueTypeOf<T>::Type == ValueType::Record) Variant ByRef(T& record) {
    return RecordReference{ValueTypeOf<T>::RecordName, &record};
}

/// UTF-8 of a counted wide text, and back; broken sequences become U+FFFD.
TORLIB_API std::string ToUtf8(std::u16string_view text);
TORLIB_API std::u16string FromUtf8(std::string_view text);

/// Rounds halves to the even neighbour; outside the target's range raises 6.
TORLIB_API std::int16_t RoundToInt16(double value);
TORLIB_API std::int32_t RoundToInt32(double value);

/// Shortest text that reads back as the same value, with a point as decimal separator.
TORLIB_API std::u16string NumberText(float value);
TORLIB_API std::u16string NumberText(double value);
/// Reads a whole text as a number, with a point as decimal separator and blanks around it allowed;
/// what is too small for a double is 0, what is too large raises 6, anything else 13.
TORLIB_API double ParseNumber(std::u16string_view text);

} // namespace torlib
