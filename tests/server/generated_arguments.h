#pragma once
// Arguments for any member, made from its row of the class table with a seeded generator, and the
// state of everything the call may have changed as one text.

#include "tests/host_window.h"

#include "torlib/frame/class_table.h"
#include "torlib/frame/enumeration_table.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <functional>
#include <random>

namespace torlib::test {

inline std::string Hex(const void* data, std::size_t size) {
    std::string text;
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i) {
        char two[3];
        std::snprintf(two, sizeof two, "%02x", bytes[i]);
        text += two;
    }
    return text;
}

/// Kind and bits of a value.
inline std::string BitsOf(const Variant& value) {
    const std::string kind = std::to_string(value.Value().index()) + ":";
    if (const auto* single = std::get_if<float>(&value.Value())) {
        return kind + Hex(single, sizeof *single);
    }
    if (const auto* number = std::get_if<double>(&value.Value())) {
        return kind + Hex(number, sizeof *number);
    }
    return kind + ToUtf8(value.ToText());
}

/// Bounds and bits of an array.
template <class T>
std::string BitsOf(const Array<T>& array) {
    std::string text = "array";
    for (int d = 1; d <= array.Dimensions(); ++d) {
        text += " " + std::to_string(array.LBound(d)) + ".." + std::to_string(array.UBound(d));
    }
    for (std::size_t i = 0; i < array.Size(); ++i) {
        if constexpr (std::is_same_v<T, String>) {
            text += " <" + ToUtf8(array.Data()[i]) + ">";
        } else {
            text += Hex(array.Data() + i, sizeof(T));
        }
    }
    return text;
}

/// One set of arguments; the same seed and shape give the same values every time. Bit k of the
/// shape says whether the k-th array has two dimensions; in each fourth set all arrays of reals
/// hold the same rising values, so that points coincide.
class GeneratedArguments {
  public:
    GeneratedArguments(const Member& member, unsigned seed, unsigned shape)
        : random_(seed), alike_(seed % 4 == 0) {
        for (std::size_t i = 0; i < member.Count; ++i) {
            const ParameterType& type = member.Types[i];
            const bool twoDimensions = type.IsArray && (shape & 1) != 0;
            shape >>= type.IsArray ? 1 : 0;
            values_.push_back(Make(member.Parameters[i], type, twoDimensions));
        }
    }
    const std::vector<Variant>& Values() const { return values_; }
    /// Bounds and bits of every argument and what was done to every window.
    std::string State() const {
        std::string text;
        for (const Variant& variable : variables_) {
            text += BitsOf(variable) + "\n";
        }
        for (const auto& array : arrays_) {
            text += array() + "\n";
        }
        for (const std::string& log : Logs()) {
            text += log + "\n";
        }
        return text;
    }
    /// What was done to each window.
    std::vector<std::string> Logs() const {
        std::vector<std::string> logs;
        for (const HostWindow& window : windows_) {
            logs.push_back(window.Log());
        }
        return logs;
    }

  private:
    Variant Make(const Parameter& parameter, const ParameterType& type, bool twoDimensions) {
        if (parameter.Default != Parameter::DefaultKind::Required && Whole(1, 3) == 1) {
            return Missing();
        }
        if (type.Type == ValueType::Object) {
            return windows_.emplace_back().Reference();
        }
        for (const EnumerationInfo& enumeration : Enumerations()) {
            if (type.TypeName && enumeration.Name == type.TypeName) {
                const int last = static_cast<int>(enumeration.Values.size()) - 1;
                return enumeration.Values[static_cast<std::size_t>(Whole(0, last))].Value;
            }
        }
        switch (type.Type) {
            case ValueType::Integer:
                return Given<Integer, std::int16_t>(type, twoDimensions);
            case ValueType::Single:
                return Given<Single, float>(type, twoDimensions);
            case ValueType::Long:
                return Given<std::int32_t, std::int32_t>(type, twoDimensions);
            case ValueType::Double:
            case ValueType::Variant:
                return Given<double, double>(type, twoDimensions);
            case ValueType::String:
                return Given<String, String>(type, twoDimensions);
            case ValueType::Boolean:
                return Variable(type, Whole(0, 1) == 1);
            default:
                throw std::logic_error("there is no generator for a parameter of this type");
        }
    }
    Variant Variable(const ParameterType& type, const Variant& value) {
        variables_.push_back(value);
        return type.ByReference ? ByRef(variables_.back()) : value;
    }
    /// A value, or an array whose elements are of the type T.
    template <class T, class Plain>
    Variant Given(const ParameterType& type, bool twoDimensions) {
        if (!type.IsArray) {
            return Variable(type, Value<Plain>());
        }
        const Bounds rows{Whole(0, 1), Whole(20, 24)};
        const auto array =
            twoDimensions ? std::make_shared<Array<T>>(rows, Bounds{Whole(0, 1), Whole(16, 18)})
                          : std::make_shared<Array<T>>(rows);
        for (std::size_t i = 0; i < array->Size(); ++i) {
            array->Data()[i] = Value<Plain>();
            if constexpr (std::is_same_v<T, Single>) {
                if (alike_) {
                    array->Data()[i] = 1.25 * (rows.Lower + static_cast<int>(i));
                }
            }
        }
        arrays_.push_back([array] { return BitsOf(*array); });
        return ByRef(*array);
    }
    template <class T>
    T Value() {
        if constexpr (std::is_same_v<T, String>) {
            static constexpr const char16_t* texts[] = {u"F", u"0", u"1.5", u"-0.25", u"2e-3"};
            return texts[Whole(0, 4)];
        } else if constexpr (std::is_integral_v<T>) {
            return static_cast<T>(Whole(1, 4));
        } else {
            // Not the library's uniform distribution, whose values differ between compilers. Whole
            // numbers now and then, so that equal coordinates and zeros are met.
            const int whole = Whole(-40, 400);
            return static_cast<T>(whole % 4 == 0 ? whole / 64.0 : whole / 97.0);
        }
    }
    int Whole(int low, int high) {
        return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
    }

    std::mt19937 random_;
    bool alike_;
    std::vector<Variant> values_;
    std::deque<Variant> variables_;
    std::vector<std::function<std::string()>> arrays_; // what each of them holds
    std::deque<HostWindow> windows_;
};

/// Shapes to try: every combination; of many arrays in turn none and one with two dimensions.
inline std::vector<unsigned> Shapes(const Member& member) {
    const auto arrays = std::count_if(member.Types, member.Types + member.Count,
                                      [](const ParameterType& type) { return type.IsArray; });
    std::vector<unsigned> shapes;
    for (unsigned k = 0; k < (arrays <= 8 ? 1U << arrays : static_cast<unsigned>(arrays)); ++k) {
        if (arrays <= 8) {
            shapes.push_back(k);
        } else {
            shapes.insert(shapes.end(), {0, 1U << k});
        }
    }
    return shapes;
}

} // namespace torlib::test
