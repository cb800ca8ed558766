#include "torlib/platform/component/dynamic_object.h"

#include "tests/error_text.h"

#include <gtest/gtest.h>

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

TEST(DynamicObject, LivesAsLongAsSomebodyHoldsIt) {
    const auto token = std::make_shared<int>(1);
    Object held;
    {
        DynamicObject form;
        form.DefineMethod(u"Show", [token](std::span<Argument>) { return Variant(); });
        held = form.Reference();
    }
    EXPECT_EQ(token.use_count(), 2);
    held = nullptr;
    EXPECT_EQ(token.use_count(), 1);
}

} // namespace
} // namespace torlib
