#include "torlib/frame/enumeration_table.h"

#include "torlib/frame/enumerations.h"
#include "torlib/frame/picture_enumerations.h"

#include <array>
#include <utility>

namespace torlib {

namespace {

// The table is read off the enumerations themselves: the compiler spells a constant that has a name
// by its name, and any other value as a cast. The values around 0 are tried in one go, and those
// around the limits of whole numbers.

constexpr std::int32_t first_value = -1;
constexpr std::size_t tried_values = 640;
constexpr std::int32_t limits[] = {-32768, -32767, -32000, 32000, 32767};

/// The function's own name with all values of the pack in it.
template <auto... Values>
consteval std::string_view Spelled() {
    std::string_view text = __PRETTY_FUNCTION__;
    const std::size_t start = text.find("Values = ") + 9;
    return text.substr(start, text.find_last_of(">}]") - start);
}

/// Calls f(place of the value, name) for each value of a spelled pack that has a name.
template <class F>
constexpr void ForEachName(std::string_view spelled, const F& f) {
    std::size_t place = 0;
    while (!spelled.empty()) {
        const std::size_t end = std::min(spelled.find(", "), spelled.size());
        std::string_view value = spelled.substr(0, end);
        if (value.find('(') == std::string_view::npos) {
            value.remove_prefix(value.rfind(':') + 1);
            f(place, value.substr(0, value.find_first_of(">}")));
        }
        spelled.remove_prefix(std::min(end + 2, spelled.size()));
        ++place;
    }
}

template <class Enum, std::size_t... I>
consteval std::string_view SpelledNearZero(std::index_sequence<I...>) {
    return Spelled<static_cast<Enum>(first_value + static_cast<std::int32_t>(I))...>();
}
template <class Enum, std::size_t... I>
consteval std::string_view SpelledLimits(std::index_sequence<I...>) {
    return Spelled<static_cast<Enum>(limits[I])...>();
}

/// Calls f(value, name) for each constant of an enumeration, in rising order.
template <class Enum, class F>
constexpr void ForEachConstant(const F& f) {
    constexpr std::string_view atLimits =
        SpelledLimits<Enum>(std::make_index_sequence<std::size(limits)>());
    constexpr std::string_view nearZero =
        SpelledNearZero<Enum>(std::make_index_sequence<tried_values>());
    const auto limit = [&](bool negative) {
        ForEachName(atLimits, [&](std::size_t place, std::string_view name) {
            if ((limits[place] < 0) == negative) {
                f(limits[place], name);
            }
        });
    };
    limit(true);
    ForEachName(nearZero, [&f](std::size_t place, std::string_view name) {
        f(first_value + static_cast<std::int32_t>(place), name);
    });
    limit(false);
}

struct Extent {
    std::size_t Constants = 0;
    std::size_t Letters = 0;
};

template <class Enum>
consteval Extent ExtentOf() {
    Extent extent;
    ForEachConstant<Enum>([&extent](std::int32_t, std::string_view name) {
        ++extent.Constants;
        extent.Letters += name.size();
    });
    return extent;
}

/// The names of an enumeration one behind the other, and the rows that look at them.
template <class Enum>
struct Constants {
    static constexpr Extent Size = ExtentOf<Enum>();
    static_assert(Size.Constants > 0, "the enumeration has no constant among the values tried");

    static constexpr auto Letters = [] {
        std::array<char16_t, Size.Letters> letters{};
        std::size_t at = 0;
        ForEachConstant<Enum>([&](std::int32_t, std::string_view name) {
            for (const char c : name) {
                letters[at++] = static_cast<char16_t>(c);
            }
        });
        return letters;
    }();
    static constexpr auto Rows = [] {
        std::array<EnumerationValue, Size.Constants> rows{};
        std::size_t row = 0;
        std::size_t at = 0;
        ForEachConstant<Enum>([&](std::int32_t value, std::string_view name) {
            rows[row++] = {{Letters.data() + at, name.size()}, value};
            at += name.size();
        });
        return rows;
    }();
};

/// The row of an enumeration, whose published name is the type's own.
template <class Enum>
consteval EnumerationInfo Described(std::u16string_view name) {
    std::string_view own = __PRETTY_FUNCTION__;
    own.remove_prefix(own.find("Enum = torlib::") + 15);
    own = own.substr(0, own.find_first_of(";]"));
    if (own.size() != name.size()) {
        throw "the row's name is not that of its enumeration";
    }
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] != static_cast<char16_t>(own[i])) {
            throw "the row's name is not that of its enumeration";
        }
    }
    return {name, Constants<Enum>::Rows};
}

constexpr EnumerationInfo enumerations[] = {
    Described<ArrowType>(u"ArrowType"),
    Described<AxisDirection>(u"AxisDirection"),
    Described<ButtonType>(u"ButtonType"),
    Described<SystemOfAnalysis>(u"SystemOfAnalysis"),
    Described<LogicFont>(u"LogicFont"),
    Described<ToolBarType>(u"ToolBarType"),
    Described<TypeOfNode>(u"TypeOfNode"),
    Described<ElementType>(u"ElementType"),
    Described<NULLGraphic>(u"NULLGraphic"),
    Described<IntegerLimits>(u"IntegerLimits"),
    Described<MapMode>(u"MapMode"),
    Described<PenMode>(u"PenMode"),
    Described<SymmetricCase>(u"SymmetricCase"),
    Described<MeshDataType>(u"MeshDataType"),
    Described<MeshGenerationTypes>(u"MeshGenerationTypes"),
    Described<BoringFieldType>(u"BoringFieldType"),
    Described<FrameLoadCase>(u"FrameLoadCase"),
    Described<FrameHingedType>(u"FrameHingedType"),
    Described<EdgeType>(u"EdgeType"),
    Described<ElementPositionType>(u"ElementPositionType"),
    Described<CircSegment>(u"CircSegment"),
    Described<GraphicType>(u"GraphicType"),
    Described<UserBottomType>(u"UserBottomType"),
    Described<SectionGraphics>(u"SectionGraphics"),
};

} // namespace

std::span<const EnumerationInfo> Enumerations() {
    return enumerations;
}

} // namespace torlib
