#include "tests/server/generated_arguments.h"

#include "torlib/frame/enumeration_table.h"

#include <bit>
#include <cstdio>
#include <cstring>

namespace torlib::test {

namespace {

std::string Hex(const void* data, std::size_t size) {
    std::string text;
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i) {
        char two[3];
        std::snprintf(two, sizeof two, "%02x", bytes[i]);
        text += two;
    }
    return text;
}

std::string BitsOf(SafeArray& array) {
    std::string text = "array";
    std::size_t count = array.Dimensions() > 0 ? 1 : 0;
    for (int d = 1; d <= array.Dimensions(); ++d) {
        text += " " + std::to_string(array.LBound(d)) + ".." + std::to_string(array.UBound(d));
        count *= static_cast<std::size_t>(array.UBound(d) - array.LBound(d) + 1);
    }
    if (array.ElementType() == ValueType::String) {
        const auto* texts = static_cast<const String*>(array.RawData());
        for (std::size_t i = 0; i < count; ++i) {
            text += " <" + ToUtf8(texts[i]) + ">";
        }
        return text;
    }
    const std::size_t size = array.ElementType() == ValueType::Integer  ? 2
                             : array.ElementType() == ValueType::Double ? 8
                                                                        : 4;
    return text + " " + Hex(array.RawData(), count * size);
}

} // namespace

HostWindow::HostWindow() {
    DynamicObject panels = Watched("Panels", {});
    panels.DefineMethod(u"Item", [log = log_](std::span<Argument> arguments) {
        *log += "Item=" + ToUtf8(arguments.back().Value.ToText()) + ";";
        return Variant();
    });
    form_ = Watched("window", {u"Visible", u"Caption"});
    DynamicObject bar = Watched("PrB", {u"Value", u"Max"});
    bar.Define(u"Max", 7);
    form_.Define(u"Visible", true)
        .Define(u"PrB", bar.Reference())
        .Define(u"lbltime", Watched("lbltime", {u"Visible", u"Caption"}).Reference())
        .Define(u"LblStufe", Watched("LblStufe", {u"Caption"}).Reference())
        .Define(u"Panels", panels.Reference());
    for (const char16_t* name : {u"Unload", u"Refresh"}) {
        form_.DefineMethod(name, [log = log_, name](std::span<Argument>) {
            *log += ToUtf8(name) + ";";
            return Variant();
        });
    }
}

DynamicObject HostWindow::Watched(const std::string& name,
                                  std::initializer_list<const char16_t*> members) {
    DynamicObject object(name);
    for (const char16_t* member : members) {
        const std::string label = name + "." + ToUtf8(member) + "=";
        object.Define(member, 0).OnPut(member, [log = log_, label](const Variant& value) {
            *log += label + ToUtf8(value.ToText()) + ";";
        });
    }
    return object;
}

GeneratedArguments::GeneratedArguments(const Member& member, unsigned seed, unsigned shape)
    : random_(seed), alike_(seed % 4 == 0) {
    for (std::size_t i = 0; i < member.Count; ++i) {
        const ParameterType& type = member.Types[i];
        const bool twoDimensions = type.IsArray && (shape & 1) != 0;
        values_.push_back(Make(member.Parameters[i], type, twoDimensions));
        if (type.IsArray) {
            shape >>= 1;
        }
    }
}

Variant GeneratedArguments::Make(const Parameter& parameter, const ParameterType& type,
                                 bool twoDimensions) {
    if (parameter.Default != Parameter::DefaultKind::Required && Whole(1, 3) == 1) {
        return Missing();
    }
    if (type.IsArray) {
        arrays_.push_back(MakeArray(type, twoDimensions));
        return ByRef(*arrays_.back());
    }
    if (type.Type == ValueType::Object) {
        return windows_.emplace_back().Reference();
    }
    variables_.push_back(MakeScalar(type));
    return type.ByReference ? ByRef(variables_.back()) : variables_.back();
}

Variant GeneratedArguments::MakeScalar(const ParameterType& type) {
    if (type.TypeName) {
        for (const EnumerationInfo& enumeration : Enumerations()) {
            if (enumeration.Name == type.TypeName) {
                const int last = static_cast<int>(enumeration.Values.size()) - 1;
                return enumeration.Values[static_cast<std::size_t>(Whole(0, last))].Value;
            }
        }
    }
    switch (type.Type) {
        case ValueType::Integer:
            return std::int16_t{static_cast<std::int16_t>(Whole(1, 4))};
        case ValueType::Long:
            return std::int32_t{Whole(0, 6)};
        case ValueType::Single:
            return Value<float>();
        case ValueType::Double:
            return Value<double>();
        case ValueType::Boolean:
            return Whole(0, 1) == 1;
        case ValueType::String:
            return Value<String>();
        case ValueType::Variant:
            return Value<double>();
        default:
            throw std::logic_error("there is no generator for a parameter of this type");
    }
}

std::unique_ptr<SafeArray> GeneratedArguments::MakeArray(const ParameterType& type,
                                                         bool twoDimensions) {
    switch (type.Type) {
        case ValueType::Integer:
            return Filled<Integer>(twoDimensions);
        case ValueType::Single:
            return Filled<Single>(twoDimensions);
        case ValueType::Double:
            return Filled<double>(twoDimensions);
        case ValueType::String:
            return Filled<String>(twoDimensions);
        default:
            throw std::logic_error("there is no generator for an array of this type");
    }
}

template <class T>
std::unique_ptr<SafeArray> GeneratedArguments::Filled(bool twoDimensions) {
    const Bounds rows{Whole(0, 1), Whole(20, 24)};
    auto array = twoDimensions
                     ? std::make_unique<Array<T>>(rows, Bounds{Whole(0, 1), Whole(16, 18)})
                     : std::make_unique<Array<T>>(rows);
    for (std::size_t i = 0; i < array->Size(); ++i) {
        array->Data()[i] = Value<T>();
        if constexpr (std::is_same_v<T, Single>) {
            if (alike_) {
                array->Data()[i] = 1.25 * (rows.Lower + static_cast<int>(i));
            }
        }
    }
    return array;
}

template <class T>
T GeneratedArguments::Value() {
    if constexpr (std::is_same_v<T, String>) {
        static constexpr const char16_t* texts[] = {u"F", u"0", u"1.5", u"-0.25", u"2e-3"};
        return texts[Whole(0, 4)];
    } else if constexpr (std::is_same_v<T, Integer>) {
        return Whole(1, 4);
    } else {
        // Not the library's uniform distribution, whose values differ between compilers. Whole
        // numbers now and then, so that equal coordinates and zeros are met.
        const int whole = Whole(-40, 400);
        return T(whole % 4 == 0 ? whole / 64.0 : whole / 97.0);
    }
}

int GeneratedArguments::Whole(int low, int high) {
    return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
}

std::string GeneratedArguments::State() const {
    std::string text;
    for (const Variant& variable : variables_) {
        text += test::BitsOf(variable) + "\n";
    }
    for (const auto& array : arrays_) {
        text += BitsOf(*array) + "\n";
    }
    for (const std::string& log : Logs()) {
        text += log + "\n";
    }
    return text;
}

std::vector<std::string> GeneratedArguments::Logs() const {
    std::vector<std::string> logs;
    for (const HostWindow& window : windows_) {
        logs.push_back(window.Log());
    }
    return logs;
}

std::string BitsOf(const Variant& value) {
    const std::string kind = std::to_string(value.Value().index()) + ":";
    if (const auto* single = std::get_if<float>(&value.Value())) {
        return kind + Hex(single, sizeof *single);
    }
    if (const auto* number = std::get_if<double>(&value.Value())) {
        return kind + Hex(number, sizeof *number);
    }
    return kind + ToUtf8(value.ToText());
}

std::vector<unsigned> Shapes(const Member& member) {
    unsigned arrays = 0;
    for (std::size_t i = 0; i < member.Count; ++i) {
        arrays += member.Types[i].IsArray ? 1 : 0;
    }
    std::vector<unsigned> shapes;
    if (arrays <= 8) {
        for (unsigned shape = 0; shape < 1U << arrays; ++shape) {
            shapes.push_back(shape);
        }
        return shapes;
    }
    for (unsigned k = 0; k < arrays; ++k) {
        shapes.insert(shapes.end(), {0, 1U << k});
    }
    return shapes;
}

} // namespace torlib::test
