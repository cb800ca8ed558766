#include "torlib/platform/component/dynamic_object.h"

#include "tests/error_of.h"
#include "tests/error_text.h"

#include "torlib/platform/component/module_count.h"

#include <gtest/gtest.h>

#include <new>

namespace torlib {
namespace {

using test::ErrorText;

TEST(DynamicObject, PropertiesAreFoundByNameWithoutRegardToCase) {
    DynamicObject bar("PrB");
    bar.Define(u"Max", 100).Define(u"Value", 0);
    const Object object = bar.Reference();
    object.Put(u"VALUE", 3);
    EXPECT_EQ(object.Get(u"value").ToLong(), 3);
    EXPECT_EQ(bar.Value(u"Value").ToLong(), 3);
    EXPECT_EQ(ErrorText([&] { object.Get(u"Vlue"); }),
              "PrB.Vlue: PrB has no member Vlue (did you mean Value?) (error 438)");
    EXPECT_EQ(ErrorText([&] { object.Invoke(u"Max", {1}); }),
              "PrB.Max: a property takes no arguments (error 450)");
    EXPECT_EQ(ErrorText([&] { Object().Get(u"Max"); }),
              "there is no object to ask for Max (error 91)");
}

TEST(DynamicObject, APropertyTakesAValueAndNotTheCallersVariable) {
    DynamicObject label;
    std::u16string caption = u"one";
    label.Define(u"Caption", u"");
    label.Reference().Put(u"Caption", ByRef(caption));
    caption = u"two";
    EXPECT_EQ(label.Value(u"Caption").ToText(), u"one");
}

TEST(DynamicObject, MethodsSeeTheArgumentsAndTheirErrorsComeBackWithTheNumber) {
    DynamicObject panels("Panels");
    panels.DefineMethod(u"Panel", [](std::span<Argument> arguments) -> Variant {
        if (arguments.size() != 1) {
            RaiseError(ErrorNumber::WrongArgumentCount, "one index is needed");
        }
        arguments[0].Value.Assign(arguments[0].Value.ToLong() + 1);
        return arguments[0].Value.ToDouble() * 2;
    });
    std::int32_t index = 20;
    EXPECT_EQ(panels.Reference().Invoke(u"Panel", {ByRef(index)}).ToLong(), 42);
    EXPECT_EQ(index, 21);
    EXPECT_EQ(ErrorText([&] { panels.Reference().Invoke(u"Panel"); }),
              "Panels.Panel: one index is needed (error 450)");
}

TEST(DynamicObject, AWatcherSeesEachWriteAndMayDefineMembersMeanwhile) {
    DynamicObject form;
    int writes = 0;
    form.Define(u"Caption", u"").OnPut(u"Caption", [&](const Variant& value) {
        ++writes;
        for (int i = 0; i < 100; ++i) {
            form.Define(u"Note" + FromUtf8(std::to_string(i)), value);
        }
    });
    form.Reference().Put(u"Caption", u"new");
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(form.Value(u"Note99").ToText(), u"new");
    EXPECT_EQ(form.Value(u"Caption").ToText(), u"new");
}

TEST(DynamicObject, ATypedPropertyConvertsWhatIsWrittenOrRefusesIt) {
    struct Case {
        ValueType type;
        Variant given;
        const char16_t* kept; ///< the text of what is kept, of the property's own type
        int error;
    };
    Object form = DynamicObject().Reference();
    const std::u16string seven = u" 7.5 ";
    const Case cases[] = {
        {ValueType::Integer, 2.5, u"2", 0},
        {ValueType::Integer, seven.c_str(), u"8", 0},
        {ValueType::Integer, 40000, u"", 6},
        {ValueType::Integer, u"many", u"", 13},
        {ValueType::Integer, Object(form), u"", 13},
        {ValueType::Long, 40000.5, u"40000", 0},
        {ValueType::Long, 3e9, u"", 6},
        {ValueType::Single, 0.1, u"0.1", 0},
        {ValueType::Single, 1e39, u"", 6},
        {ValueType::Double, true, u"-1", 0},
        {ValueType::Boolean, 3, u"True", 0},
        {ValueType::Boolean, u"false", u"False", 0},
        {ValueType::Boolean, u"maybe", u"", 13},
        {ValueType::String, 1.5, u"1.5", 0},
        {ValueType::String, Variant(), u"", 0},
        {ValueType::String, Object(form), u"", 13},
        {ValueType::Object, 3, u"", 424},
    };
    for (const Case& one : cases) {
        const std::string label =
            std::to_string(static_cast<int>(one.type)) + " of " + one.given.KindName();
        const Variant before = one.type == ValueType::Object ? Variant(Object()) : Variant(1);
        DynamicObject control;
        control.Define(u"Value", one.type, before);
        const std::size_t kind = control.Value(u"Value").Value().index();
        int writes = 0;
        control.OnPut(u"Value", [&](const Variant&) { ++writes; });
        EXPECT_EQ(test::ErrorOf([&] { control.Reference().Put(u"Value", one.given); }), one.error)
            << label;
        EXPECT_EQ(writes, one.error == 0 ? 1 : 0) << label;
        const Variant value = control.Value(u"Value");
        EXPECT_EQ(value.Value().index(), kind) << label;
        if (one.error == 0) {
            EXPECT_EQ(value.ToText(), one.kept) << label;
        } else if (one.type != ValueType::Object) {
            EXPECT_TRUE(value.ToBoolean()) << label << ": the old value stays";
        }
    }
    DynamicObject bar("PrB");
    EXPECT_EQ(test::ErrorOf([&] { bar.Define(u"Max", ValueType::Long, u"all"); }), 13);
    bar.Define(u"Max", ValueType::Long, 100);
    EXPECT_EQ(ErrorText([&] { bar.Reference().Put(u"Max", u"all"); }),
              "PrB.Max: \"all\" is not a number (error 13)");
}

TEST(DynamicObject, APropertyKeepsNoArrayOfTheCallers) {
    DynamicObject label;
    label.Define(u"Tag", u"");
    {
        Array<double> passing(Bounds{1, 2});
        EXPECT_EQ(test::ErrorOf([&] { label.Reference().Put(u"Tag", ByRef(passing)); }), 13);
    }
    EXPECT_EQ(label.Value(u"Tag").ToText(), u"");
}

TEST(DynamicObject, ResetPutsDesignTimeValuesBackAndTellsTheWatchersOfWhatWasWritten) {
    DynamicObject bar("PrB");
    std::string log;
    bar.Define(u"Max", ValueType::Single, 100).Define(u"Value", ValueType::Single, 0);
    bar.Define(u"Caption", u"design");
    for (const char16_t* name : {u"Max", u"Value", u"Caption"}) {
        bar.OnPut(name, [&log, &bar, name](const Variant& value) {
            log += ToUtf8(name) + "=" + ToUtf8(value.ToText()) + "/" +
                   ToUtf8(bar.Value(u"Caption").ToText()) + ";";
        });
    }
    bar.Reset();
    EXPECT_EQ(log, "") << "nothing was written";
    bar.Reference().Put(u"Max", 250);
    bar.Reference().Put(u"Caption", u"run");
    log.clear();
    bar.Reset();
    EXPECT_EQ(log, "Max=100/design;Caption=design/design;") << "all are back before any is told";
    log.clear();
    bar.Reset();
    EXPECT_EQ(log, "");
    bar.Reference().Put(u"Max", 300);
    bar.Define(u"Max", ValueType::Integer, 7); // another design
    log.clear();
    bar.Reset();
    EXPECT_EQ(log, "");
    bar.Reference().Put(u"Max", 9);
    bar.Reset();
    EXPECT_EQ(bar.Value(u"Max").ToLong(), 7);
}

TEST(DynamicObject, NothingThrownGoesPastItsDoor) {
    DynamicObject form("form");
    form.DefineMethod(u"Seven", [](std::span<Argument>) -> Variant { throw 7; });
    form.DefineMethod(u"Full", [](std::span<Argument>) -> Variant { throw std::bad_alloc(); });
    form.DefineMethod(u"Long", [](std::span<Argument>) { // more than a text can hold
        return Variant(std::u16string(static_cast<std::size_t>(-1) / 2, u'x'));
    });
    const Object object = form.Reference();
    EXPECT_EQ(ErrorText([&] { object.Invoke(u"Seven"); }),
              "form.Seven: an exception of an unknown type (error 5)");
    EXPECT_EQ(ErrorText([&] { object.Invoke(u"Full"); }), "form.Full: out of memory (error 7)");
    EXPECT_EQ(ErrorText([&] { object.Invoke(u"Long"); }), "form.Long: out of memory (error 7)");
    for (const char16_t* member : {u"Seven", u"Full", u"None"}) {
        EXPECT_EQ(object.Pointer()->Invoke(member, InvokeKind::Method, {}, nullptr, nullptr),
                  Result::Exception)
            << "without a place for the error";
    }
    EXPECT_EQ(object.Pointer()->QueryInterface(IidDispatch, nullptr), Result::InvalidPointer);
}

TEST(DynamicObject, AHandlerMayDropTheLastReferenceToTheObjectThatCallsIt) {
    Object last;
    {
        DynamicObject form;
        form.Define(u"Caption", u"");
        form.OnPut(u"Caption", [&last](const Variant&) { last = nullptr; });
        last = form.Reference();
    }
    last.Put(u"Caption", u"a text that is too long to stand inside the variant itself");
    EXPECT_FALSE(last);
}

TEST(DynamicObject, LivesAsLongAsSomebodyHoldsIt) {
    const long before = LiveInModule();
    const auto token = std::make_shared<int>(1);
    Object held;
    {
        DynamicObject form;
        form.DefineMethod(u"Show", [token](std::span<Argument>) { return Variant(); });
        held = form.Reference();
    }
    EXPECT_EQ(token.use_count(), 2);
    EXPECT_GT(LiveInModule(), before) << "so that the module cannot be unloaded";
    held = nullptr;
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_EQ(LiveInModule(), before);
}

} // namespace
} // namespace torlib
