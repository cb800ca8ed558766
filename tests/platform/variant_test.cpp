#include "torlib/platform/component/variant.h"

#include "tests/error_text.h"

#include "torlib/platform/component/dynamic_object.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace torlib {
namespace {

using test::ErrorOf;

TEST(Variant, ConvertsNumbersTruthAndTextIntoOneAnother) {
    const struct {
        Variant value;
        double number;
        bool truth;
        const char* text;
    } cases[] = {
        {Variant(), 0, false, ""},
        {Variant(true), -1, true, "True"},
        {Variant(false), 0, false, "False"},
        {Variant(std::int16_t{-7}), -7, true, "-7"},
        {Variant(std::int32_t{70000}), 70000, true, "70000"},
        {Variant(0.1F), 0.1F, true, "0.1"},
        {Variant(-2.25), -2.25, true, "-2.25"},
        {Variant(u" 12.5 "), 12.5, true, " 12.5 "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.value.ToDouble(), c.number) << c.text;
        EXPECT_EQ(c.value.ToBoolean(), c.truth) << c.text;
        EXPECT_EQ(ToUtf8(c.value.ToText()), c.text);
    }
    EXPECT_TRUE(Variant(u"true").ToBoolean());
    EXPECT_FALSE(Variant(u"FALSE").ToBoolean());
    EXPECT_EQ(Variant(2.5).ToInteger(), 2);
    EXPECT_EQ(Variant(u"3.5").ToLong(), 4);
}

TEST(Variant, RefusesWhatHasNoMeaningOrNoRoom) {
    const DynamicObject form;
    const struct {
        const char* what;
        std::function<void()> call;
        int number;
    } cases[] = {
        {"text as number", [] { Variant(u"F").ToDouble(); }, 13},
        {"text as truth", [] { Variant(u"yes").ToBoolean(); }, 13},
        {"object as number", [&] { Variant(form.Reference()).ToLong(); }, 13},
        {"object as text", [&] { Variant(form.Reference()).ToText(); }, 13},
        {"missing as number", [] { Variant(Missing()).ToDouble(); }, 13},
        {"number as array", [] { Variant(1.0).ToArray(); }, 13},
        {"number as object", [] { Variant(1.0).ToObject(); }, 424},
        {"too large for 16 bits", [] { Variant(32768.0).ToInteger(); }, 6},
        {"too large for 32 bits", [] { Variant(3e9).ToLong(); }, 6},
        {"too large for a 32-bit float", [] { Variant(1e39).ToSingle(); }, 6},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ErrorOf(c.call), c.number) << c.what;
    }
    EXPECT_FALSE(Variant().ToObject()) << "nothing stands for no object";
}

TEST(Variant, AReferenceReadsAndWritesTheCallersVariableInItsOwnType) {
    std::int16_t count = 3;
    float length = 0;
    bool flag = false;
    std::u16string text;
    Variant any = 1.0;
    const Variant reference = ByRef(count);
    count = 5;
    EXPECT_EQ(reference.ToDouble(), 5);
    reference.Assign(7.5);
    EXPECT_EQ(count, 8);
    EXPECT_EQ(ErrorOf([&] { reference.Assign(40000); }), 6);
    EXPECT_EQ(count, 8) << "a value without room leaves the variable alone";
    ByRef(length).Assign(0.1);
    EXPECT_EQ(length, 0.1F);
    ByRef(flag).Assign(std::int16_t{-1});
    EXPECT_TRUE(flag);
    ByRef(text).Assign(2.5);
    EXPECT_EQ(text, u"2.5");
    ByRef(any).Assign(u"x");
    EXPECT_EQ(any.ToText(), u"x");
    any = ByRef(count);
    ByRef(any).Assign(2);
    EXPECT_EQ(count, 2) << "a reference to a reference reaches the variable behind both";
    Variant(3.0).Assign(4); // a value is no variable: nothing to write to
    EXPECT_FALSE(reference.Dereferenced().IsReference());
}

TEST(Variant, ArraysArePassedWithoutACopy) {
    Array<double> array(Bounds{1, 2});
    EXPECT_EQ(&ByRef(array).ToArray(), static_cast<SafeArray*>(&array));
    Variant inside = ByRef(array);
    EXPECT_EQ(&ByRef(inside).ToArray(), static_cast<SafeArray*>(&array));
}

TEST(Variant, ARingOfReferencesAndANullReferenceAreErrors) {
    Variant self;
    self = ByRef(self);
    Variant one, two, three;
    one = ByRef(two);
    two = ByRef(three);
    three = ByRef(two);
    const struct {
        const char* what;
        Variant value;
        int number;
    } cases[] = {
        {"itself", self, 13},
        {"a ring behind one", one, 13},
        {"null Integer", Variant::Reference(static_cast<std::int16_t*>(nullptr)), 5},
        {"null text", Variant::Reference(static_cast<std::u16string*>(nullptr)), 5},
        {"null object", Variant::Reference(static_cast<Object*>(nullptr)), 5},
        {"null variant", Variant::Reference(static_cast<Variant*>(nullptr)), 5},
        {"null array", Variant::Reference(static_cast<SafeArray*>(nullptr)), 5},
        {"null record", RecordReference{u"Vec3", nullptr}, 5},
        {"nameless record", RecordReference{nullptr, &one}, 5},
    };
    const std::function<void(const Variant&)> uses[] = {
        [](const Variant& v) { v.ToDouble(); }, [](const Variant& v) { v.ToBoolean(); },
        [](const Variant& v) { v.ToText(); },   [](const Variant& v) { v.ToObject(); },
        [](const Variant& v) { v.ToArray(); },  [](const Variant& v) { v.Dereferenced(); },
        [](const Variant& v) { v.Assign(1); },
    };
    for (const auto& c : cases) {
        for (const auto& use : uses) {
            EXPECT_EQ(ErrorOf([&] { use(c.value); }), c.number) << c.what;
        }
    }
    std::vector<Variant> chain(100000);
    chain.back() = 7;
    for (std::size_t i = chain.size() - 1; i > 0; --i) {
        chain[i - 1] = ByRef(chain[i]);
    }
    chain.front().Assign(8);
    EXPECT_EQ(chain.back().ToLong() + chain.front().ToLong(), 16) << "a long chain is no ring";
}

} // namespace
} // namespace torlib
