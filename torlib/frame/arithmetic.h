#pragma once
// The library's arithmetic: every expression in double precision, every stored value rounded to 32
// bits, counts of 16 bits that overflow with an error. The types carry these rules:
//
//     Single s = 0;                          // stored: 32-bit float
//     for (int k : Range(1, N)) {            // a 16-bit loop counter
//         s = A(i, k) * B(k, j) + s;         // evaluated in double, rounded when stored
//     }
//     Real d = s / x;                        // inside an expression: division is checked
//
// Real, Single and Integer vanish under optimisation; none of them is ever contracted or widened.

#include "torlib/platform/component/arithmetic_errors.h"
#include "torlib/platform/component/array.h"

#include <cfloat>
#include <cmath>
#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace torlib {

// The same digits on every machine need the same number formats and no wider intermediate values.
static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559);
static_assert(FLT_EVAL_METHOD == 0);

class Single;
class Integer;
using String = std::u16string;
using Long = std::int32_t;

/// A double inside an expression. Division by zero raises 11, zero by zero raises 6.
class Real {
  public:
    constexpr Real() = default;
    template <class T>
    requires std::is_arithmetic_v<T>
    constexpr Real(T value) : value_(static_cast<double>(value)) {}
    constexpr Real(Single value);
    constexpr Real(Integer value);

    constexpr double Value() const { return value_; }

    constexpr Real& operator+=(Real b);
    constexpr Real& operator-=(Real b);
    constexpr Real& operator*=(Real b);

  private:
    double value_ = 0;
};

// At namespace scope, so that Single and Integer operands find them and become Real.
constexpr Real operator+(Real a, Real b) {
    return a.Value() + b.Value();
}
constexpr Real operator-(Real a, Real b) {
    return a.Value() - b.Value();
}
constexpr Real operator*(Real a, Real b) {
    return a.Value() * b.Value();
}
constexpr Real operator/(Real a, Real b) {
    if (b.Value() == 0) {
        RaiseQuotient(a.Value());
    }
    return a.Value() / b.Value();
}
constexpr Real operator-(Real a) {
    return -a.Value();
}
constexpr bool operator==(Real a, Real b) {
    return a.Value() == b.Value();
}
constexpr auto operator<=>(Real a, Real b) {
    return a.Value() <=> b.Value();
}
constexpr Real& Real::operator+=(Real b) {
    return *this = *this + b;
}
constexpr Real& Real::operator-=(Real b) {
    return *this = *this - b;
}
constexpr Real& Real::operator*=(Real b) {
    return *this = *this * b;
}

/// A stored 32-bit float: rounds what is assigned to it; a value that is not finite raises 6.
class Single {
  public:
    constexpr Single() = default;
    constexpr Single(Real value) : value_(Round(value.Value())) {}
    template <class T>
    requires std::is_arithmetic_v<T>
    constexpr Single(T value) : value_(Round(static_cast<double>(value))) {}
    constexpr Single(Integer value);

    constexpr float Value() const { return value_; }

    constexpr Single& operator+=(Real b) { return *this = Real(*this) + b; }
    constexpr Single& operator-=(Real b) { return *this = Real(*this) - b; }
    constexpr Single& operator*=(Real b) { return *this = Real(*this) * b; }
    constexpr Single& operator/=(Real b) { return *this = Real(*this) / b; }

  private:
    static constexpr float Round(double value) {
        const auto rounded = static_cast<float>(value);
        if (!(rounded - rounded == 0)) {
            RaiseNotFinite(value);
        }
        return rounded;
    }

    float value_ = 0;
};
static_assert(sizeof(Single) == 4 && std::is_trivially_copyable_v<Single>);

/// A stored 16-bit integer: a value outside -32768..32767 raises 6 on assignment.
class Integer {
  public:
    constexpr Integer() = default;
    template <std::integral T>
    constexpr Integer(T value) : value_(Check(static_cast<long long>(value))) {}

    constexpr operator int() const { return value_; }
    constexpr std::int16_t Value() const { return value_; }

  private:
    static constexpr std::int16_t Check(long long value) {
        if (value < -32768 || value > 32767) {
            RaiseIntegerOverflow(static_cast<double>(value));
        }
        return static_cast<std::int16_t>(value);
    }

    std::int16_t value_ = 0;
};
static_assert(sizeof(Integer) == 2 && std::is_trivially_copyable_v<Integer>);

constexpr Real::Real(Single value) : value_(static_cast<double>(value.Value())) {}
constexpr Real::Real(Integer value) : value_(static_cast<double>(value.Value())) {}
constexpr Single::Single(Integer value) : value_(static_cast<float>(value.Value())) {}

/// Index arithmetic runs in int and is checked where a result is stored in an Integer; the quotient
/// of two counts is a real.
template <class L, class R>
concept IndexOperands = (std::same_as<L, Integer> && std::integral<R>) ||
                        (std::integral<L> && std::same_as<R, Integer>) ||
                        (std::same_as<L, Integer> && std::same_as<R, Integer>);

template <class L, class R>
requires IndexOperands<L, R>
constexpr int operator+(L a, R b) {
    return static_cast<int>(a) + static_cast<int>(b);
}
template <class L, class R>
requires IndexOperands<L, R>
constexpr int operator-(L a, R b) {
    return static_cast<int>(a) - static_cast<int>(b);
}
template <class L, class R>
requires IndexOperands<L, R>
constexpr int operator*(L a, R b) {
    return static_cast<int>(a) * static_cast<int>(b);
}
constexpr int operator-(Integer a) {
    return -static_cast<int>(a);
}
template <class L, class R>
requires IndexOperands<L, R>
constexpr Real operator/(L a, R b) {
    return Real(static_cast<int>(a)) / Real(static_cast<int>(b));
}
template <class L, class R>
requires IndexOperands<L, R>
constexpr bool operator==(L a, R b) {
    return static_cast<int>(a) == static_cast<int>(b);
}
template <class L, class R>
requires IndexOperands<L, R>
constexpr auto operator<=>(L a, R b) {
    return static_cast<int>(a) <=> static_cast<int>(b);
}

/// Rounds halves to the even neighbour; outside 16 bits raises 6.
TORLIB_API Integer ToInteger(Real value);
/// Rounds halves to the even neighbour; outside 32 bits raises 6.
TORLIB_API Long ToLong(Real value);

inline Real Abs(Real a) {
    return std::fabs(a.Value());
}
/// Largest whole number that is not greater than a.
inline Real Int(Real a) {
    return std::floor(a.Value());
}
/// -1, 0 or 1.
constexpr int Sgn(Real a) {
    return (a > 0) - (a < 0);
}
/// Square root; a negative argument raises 5.
inline Real Sqrt(Real a) {
    if (a < 0) {
        RaiseDomain("square root", a.Value());
    }
    return std::sqrt(a.Value());
}

/// A counted loop first..last (or downwards with step -1) on a 16-bit counter: like the counter it
/// stands for, it raises 6 when the step past the last value leaves the 16-bit range.
class Range {
  public:
    constexpr Range(int first, int last, int step = 1)
        : first_(first), count_(step > 0 ? last - first + 1 : first - last + 1), step_(step) {}

    class Iterator {
      public:
        constexpr Iterator(int value, int left, int step)
            : value_(value), left_(left), step_(step) {}
        constexpr int operator*() const { return value_; }
        constexpr Iterator& operator++() {
            value_ += step_;
            --left_;
            if (value_ > 32767 || value_ < -32768) {
                RaiseIntegerOverflow(value_);
            }
            return *this;
        }
        constexpr bool operator!=(const Iterator& end) const { return left_ > end.left_; }

      private:
        int value_;
        int left_;
        int step_;
    };
    constexpr Iterator begin() const { return {first_, count_, step_}; }
    constexpr Iterator end() const { return {first_, 0, step_}; }

  private:
    int first_;
    int count_;
    int step_;
};

template <>
struct ValueTypeOf<Single> {
    static constexpr ValueType Type = ValueType::Single;
    static constexpr const char16_t* RecordName = nullptr;
};
template <>
struct ValueTypeOf<Integer> {
    static constexpr ValueType Type = ValueType::Integer;
    static constexpr const char16_t* RecordName = nullptr;
};

} // namespace torlib
