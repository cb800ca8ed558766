// Every type of parameter x every way of passing it x every way of calling: what arrives, what a
// left-out argument becomes, and what comes back to the caller's variable.

#include "torlib/frame/class_object.h"
#include "torlib/frame/records.h"

#include "tests/error_text.h"

#include "torlib/platform/component/dynamic_object.h"

#include <gtest/gtest.h>

#include <functional>

namespace torlib {
namespace {

using test::ErrorText;

std::string Shown(const Variant& value) {
    if (const auto* object = std::get_if<Object>(&value.Value())) {
        return *object ? "object" : "none";
    }
    const bool array = std::holds_alternative<std::shared_ptr<SafeArray>>(value.Value());
    return value.IsMissing() ? "missing" : array ? "array" : ToUtf8(value.ToText());
}

/// Takes one parameter of any type, notes what arrived and changes it where it may.
class Taker {
  public:
    template <class P>
    void Take(P value) {
        using T = std::remove_cvref_t<P>;
        if constexpr (IsOptionalRef<T>) {
            arrived = value.Present() ? "present" : "left out";
            SetOne(value);
        } else {
            arrived = Shown(table::ToVariant(value));
            if constexpr (std::is_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>) {
                value = One<T>();
            }
        }
    }
    static inline std::string arrived;

  private:
    template <class T>
    static T One() {
        if constexpr (std::is_same_v<T, Object>) {
            return {};
        } else if constexpr (std::is_same_v<T, String>) {
            return u"1";
        } else {
            return static_cast<T>(1);
        }
    }
    template <class T>
    static void SetOne(const OptionalRef<T>& value) {
        value.Set(One<T>());
    }
};

template <class P>
constexpr Member Row(std::u16string_view name, const Parameter& parameter) {
    return table::CallerFor<&Taker::Take<P>>::Row(name, u"", MemberKind::Method, {parameter});
}

/// Five ways of passing one type; the names of the rows say which.
template <class T>
constexpr std::array<Member, 6> RowsOf() {
    return {Row<T>(u"Value", u"p"),
            Row<const T&>(u"Read", u"p"),
            Row<T&>(u"Changed", u"p"),
            Row<const T&>(u"ReadOmitted", {u"p", Omitted}),
            Row<T&>(u"ChangedOmitted", {u"p", Omitted}),
            Row<OptionalRef<T>>(u"Output", {u"p", Omitted})};
}

struct Kind {
    const char* Type;
    std::span<const Member> Rows;
    const char* LeftOut; ///< what arrives when an argument without default is left out
};

template <class T>
constexpr std::array<Member, 6> rows_of = RowsOf<T>();

constexpr Kind kinds[] = {
    {"Integer", rows_of<Integer>, "0"},
    {"Long", rows_of<Long>, "0"},
    {"Single", rows_of<Single>, "0"},
    {"double", rows_of<double>, "0"},
    {"bool", rows_of<bool>, "False"},
    {"String", rows_of<String>, ""},
    {"Object", rows_of<Object>, "none"},
    {"Variant", rows_of<Variant>, "missing"},
    {"SymmetricCase", rows_of<SymmetricCase>, "0"},
};

constexpr Member defaults[] = {
    Row<Integer>(u"Integer", {u"p", 3}),
    Row<const Long&>(u"Long", {u"p", 3}),
    Row<Single>(u"Single", {u"p", 3}),
    Row<const double&>(u"double", {u"p", 3}),
    Row<SymmetricCase>(u"enum", {u"p", 3}),
    Row<Variant>(u"Variant", {u"p", 3}),
    Row<const Variant&>(u"read", {u"p", 3}),
    Row<Variant&>(u"changed", {u"p", 3}),
    Row<bool>(u"bool", {u"p", true}),
    Row<const Variant&>(u"flag", {u"p", true}),
    Row<Variant&>(u"changed flag", {u"p", true}),
};

using Call = std::function<void(const Object&, const Member&, const Variant&)>;

/// All ways of calling with one argument; a missing one is given as such.
const std::pair<const char*, Call> ways[] = {
    {"by position", [](const Object& object, const Member& row,
                       const Variant& value) { object.Invoke(row.Name, {value}); }},
    {"by parameter name",
     [](const Object& object, const Member& row, const Variant& value) {
         object.Invoke(row.Name, {Argument(u"P", value)});
     }},
    {"by number",
     [](const Object& object, const Member& row, const Variant& value) {
         object.InvokeNumber(object.NumberOf(row.Name), {value});
     }},
    {"by parameter number",
     [](const Object& object, const Member& row, const Variant& value) {
         const std::int32_t member = object.NumberOf(row.Name);
         object.InvokeNumber(member, {value}, {object.NumberOf(member, u"P")});
     }},
};

const Call left_out[] = {
    [](const Object& object, const Member& row, const Variant&) { object.Invoke(row.Name); },
    [](const Object& object, const Member& row, const Variant&) {
        object.InvokeNumber(object.NumberOf(row.Name));
    },
};

ClassInfo InfoOf(std::span<const Member> rows) {
    return {u"Taker",
            u"",
            IidUnknown,
            IidClassFactory,
            rows,
            []() -> void* { return new Taker; },
            [](void* taker) { delete static_cast<Taker*>(taker); },
            nullptr};
}

/// Calls f(label, way) for all ways of leaving the argument out.
template <class F>
void ForEachWayOfLeavingOut(const F& f) {
    for (const auto& [name, way] : ways) {
        f(std::string(name) + ", marked as missing", way);
    }
    f("nothing given, by name", left_out[0]);
    f("nothing given, by number", left_out[1]);
}

TEST(ParameterShapes, ARequiredArgumentThatIsLeftOutIs449) {
    for (const Kind& kind : kinds) {
        const ClassInfo info = InfoOf(kind.Rows);
        const Object taker = NewObject(info);
        for (const Member& row : kind.Rows.first(3)) {
            ForEachWayOfLeavingOut([&](const std::string& way, const Call& call) {
                EXPECT_EQ(ErrorText([&] { call(taker, row, Missing()); }),
                          "Taker." + ToUtf8(row.Name) +
                              ": p: the argument is not optional "
                              "(error 449)")
                    << kind.Type << ", " << way;
            });
        }
    }
}

TEST(ParameterShapes, AnOptionalArgumentThatIsLeftOutTakesItsDefault) {
    for (const Kind& kind : kinds) {
        const ClassInfo info = InfoOf(kind.Rows);
        const Object taker = NewObject(info);
        for (const Member& row : kind.Rows.subspan(3)) {
            ForEachWayOfLeavingOut([&](const std::string& way, const Call& call) {
                call(taker, row, Missing());
                EXPECT_EQ(Taker::arrived, row.Name == u"Output" ? "left out" : kind.LeftOut)
                    << kind.Type << " " << ToUtf8(row.Name) << ", " << way;
            });
        }
    }
    const ClassInfo info = InfoOf(defaults);
    const Object taker = NewObject(info);
    for (const Member& row : defaults) {
        const bool flag = row.Parameters[0].Default == Parameter::DefaultKind::Boolean;
        ForEachWayOfLeavingOut([&](const std::string& way, const Call& call) {
            call(taker, row, Missing());
            EXPECT_EQ(Taker::arrived, flag ? "True" : "3") << ToUtf8(row.Name) << ", " << way;
        });
        taker.Invoke(row.Name, {flag ? Variant(false) : Variant(2)});
        EXPECT_EQ(Taker::arrived, flag ? "False" : "2") << ToUtf8(row.Name);
    }
}

/// A variable of the caller, holding 2, of each type that can be referred to.
struct Variables {
    std::int16_t integer = 2;
    std::int32_t whole = 2;
    float single = 2;
    double number = 2;
    std::u16string text = u"2";
    Variant variant = 2;
    Variant inner = 2;
    Variant outer = ByRef(inner);

    std::vector<Variant> References() {
        return {ByRef(integer), ByRef(whole),   ByRef(single), ByRef(number),
                ByRef(text),    ByRef(variant), ByRef(outer)};
    }
};

TEST(ParameterShapes, AGivenArgumentArrivesAndAChangeComesBackInTheTypeOfTheVariable) {
    for (const Kind& kind : kinds) {
        const std::string type = kind.Type;
        if (type == "Object" || type == "bool") {
            continue; // below
        }
        const ClassInfo info = InfoOf(kind.Rows);
        const Object taker = NewObject(info);
        for (const Member& row : kind.Rows) {
            for (const auto& [way, call] : ways) {
                const std::string where = type + " " + ToUtf8(row.Name) + ", " + way;
                const std::string wanted = row.Name == u"Output" ? "present" : "2";
                call(taker, row, 2);
                EXPECT_EQ(Taker::arrived, wanted) << where;
                Variables variables;
                const std::vector<Variant> references = variables.References();
                for (std::size_t i = 0; i < references.size(); ++i) {
                    const std::size_t kindBefore = references[i].Dereferenced().Value().index();
                    call(taker, row, references[i]);
                    EXPECT_EQ(Taker::arrived, wanted) << where << ", variable " << i;
                    const Variant after = references[i].Dereferenced();
                    EXPECT_EQ(after.ToDouble(), row.Types[0].Writable ? 1 : 2)
                        << where << ", variable " << i;
                    EXPECT_TRUE(after.Value().index() == kindBefore || i >= 5)
                        << where << ", variable " << i;
                }
            }
        }
    }
}

TEST(ParameterShapes, TruthValuesAndObjectsGoTheSameWays) {
    const DynamicObject window;
    for (const auto& [way, call] : ways) {
        for (const Member& row : rows_of<bool>) {
            const ClassInfo info = InfoOf(rows_of<bool>);
            bool flag = false;
            call(NewObject(info), row, ByRef(flag));
            EXPECT_EQ(Taker::arrived, row.Name == u"Output" ? "present" : "False") << way;
            EXPECT_EQ(flag, row.Types[0].Writable) << way << " " << ToUtf8(row.Name);
        }
        for (const Member& row : rows_of<Object>) {
            const ClassInfo info = InfoOf(rows_of<Object>);
            Object held = window.Reference();
            call(NewObject(info), row, ByRef(held));
            EXPECT_EQ(Taker::arrived, row.Name == u"Output" ? "present" : "object") << way;
            EXPECT_EQ(!held, row.Types[0].Writable) << way << " " << ToUtf8(row.Name);
        }
    }
}

TEST(ParameterShapes, AVariantKeepsItsKindAndIsWrittenBackOnlyWhenItChanged) {
    const ClassInfo info = InfoOf(rows_of<Variant>);
    const Object taker = NewObject(info);
    Variant variable = std::shared_ptr<SafeArray>(std::make_shared<Array<Single>>(Bounds{1, 2}));
    taker.Invoke(u"Changed", {ByRef(variable)});
    EXPECT_EQ(Taker::arrived, "array");
    EXPECT_EQ(variable.ToDouble(), 1) << "an array gives way to the number";
    variable = u"text";
    taker.Invoke(u"Changed", {ByRef(variable)});
    EXPECT_EQ(Taker::arrived, "text");
    double same = 1;
    taker.Invoke(u"Changed", {ByRef(same)});
    EXPECT_EQ(same, 1);
    EXPECT_TRUE(table::SameVariant(Variant(0.0), Variant(0.0)));
    EXPECT_FALSE(table::SameVariant(Variant(0.0), Variant(-0.0)));
    EXPECT_FALSE(table::SameVariant(Variant(1), Variant(1.0)));
    EXPECT_FALSE(table::SameVariant(u"a", u"b"));
    EXPECT_TRUE(table::SameVariant(Missing(), Missing()));
}

} // namespace
} // namespace torlib
