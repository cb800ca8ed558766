#include "torlib/platform/component/event_point.h"

#include "tests/error_of.h"
#include "tests/error_text.h"

#include "torlib/platform/component/dynamic_object.h"

#include <gtest/gtest.h>

#include <optional>

namespace torlib {
namespace {

using test::ErrorOf;
using test::ErrorText;

class EventPoints : public testing::Test {
  protected:
    EventPoints() {
        button->DefineEvent(u"Click").DefineEvent(u"Moved");
        source = button->Reference();
    }

    EventHandler Writes(const char* text) {
        return [this, text](std::span<Argument>) { log += text; };
    }
    std::string Clicked() {
        log.clear();
        button->Raise(u"Click");
        return log;
    }

    std::optional<DynamicObject> button{"button"};
    Object source;
    std::string log;
    std::optional<EventConnection> a, b, c;
};

TEST_F(EventPoints, HandlersRunInTheOrderOfTheirConnectionUntilItEnds) {
    a = Connect(source, u"cLICK", Writes("a"));
    b = Connect(source, u"Click", Writes("b"));
    {
        const EventConnection passing = Connect(source, u"Click", Writes("p"));
        const EventConnection moved = Connect(source, u"Moved", Writes("m"));
        EXPECT_EQ(Clicked(), "abp");
    }
    EXPECT_EQ(Clicked(), "ab");
    EXPECT_TRUE(a->Disconnect());
    EXPECT_FALSE(a->Disconnect());
    EXPECT_EQ(Clicked(), "b");
    const std::uint32_t number = b->Detach();
    b.reset();
    EXPECT_EQ(Clicked(), "b");
    a = Connect(source, u"Click", Writes("a"));
    EXPECT_GT(a->Number(), number) << "no number is given out twice";
    EXPECT_TRUE(Disconnect(source, number));
    EXPECT_FALSE(Disconnect(source, number));
    EXPECT_EQ(Clicked(), "a");
}

TEST_F(EventPoints, AnObjectHandlesTheEventsThatItHasMembersFor) {
    DynamicObject host("host");
    host.DefineMethod(u"moved", [this](std::span<Argument> arguments) -> Variant {
        log += ToUtf8(arguments[0].Value.ToText());
        arguments[1].Value.Assign(arguments[0].Value.ToLong() + 1);
        return {};
    });
    a = Connect(source, host.Reference());
    EXPECT_EQ(Clicked(), "");
    std::int32_t steps = 0;
    button->Raise(u"Moved", {4, ByRef(steps)});
    EXPECT_EQ(log, "4");
    EXPECT_EQ(steps, 5);
}

TEST_F(EventPoints, AClientOfTheInterfaceConnectsByNumber) {
    void* found = nullptr;
    ASSERT_EQ(source.Pointer()->QueryInterface(IidEventPoint, &found), Result::Ok);
    auto* const point = static_cast<EventPoint*>(found);
    EXPECT_EQ(point->EventName(0), u"");
    EXPECT_EQ(point->EventName(2), u"Moved");
    EXPECT_EQ(point->EventName(3), u"");
    std::uint32_t number = 0;
    EXPECT_EQ(point->Advise(nullptr, &number), Result::Exception);
    EXPECT_EQ(point->Unadvise(1), Result::False);
    DynamicObject host;
    host.DefineMethod(u"Click", [this](std::span<Argument>) -> Variant {
        log += "h";
        return {};
    });
    ASSERT_EQ(point->Advise(host.Reference().Pointer(), &number), Result::Ok);
    EXPECT_EQ(Clicked(), "h");
    button.reset();
    source = nullptr;
    EXPECT_EQ(point->Unadvise(number), Result::False) << "the source has let it go";
    EXPECT_EQ(point->Advise(host.Reference().Pointer(), &number), Result::Exception);
    EXPECT_EQ(point->Release(), 0U);
}

TEST_F(EventPoints, AHandlerMayEndItsOwnConnectionAndThoseOfOthers) {
    const auto held = std::make_shared<int>(1);
    a = Connect(source, u"Click", [this, held](std::span<Argument>) {
        a->Disconnect();
        b->Disconnect();
        log += held.use_count() > 1 ? "held " : "gone "; // alive until it returns
        a = Connect(source, u"Click", Writes("d"));
    });
    b = Connect(source, u"Click", Writes("b"));
    c = Connect(source, u"Click", Writes("c"));
    EXPECT_EQ(Clicked(), "held c");
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(Clicked(), "cd") << "connected meanwhile: from the next event on";
}

TEST_F(EventPoints, AFailingHandlerRobsNoOtherAndTheFirstErrorPasses) {
    a = Connect(source, u"Click", [this](std::span<Argument>) {
        log += "a";
        RaiseError(ErrorNumber::DivisionByZero, "first");
    });
    b = Connect(source, u"Click", [this](std::span<Argument>) {
        log += "b";
        RaiseError(ErrorNumber::Overflow, "second");
    });
    c = Connect(source, u"Click", Writes("c"));
    EXPECT_EQ(ErrorOf([this] { Clicked(); }), 11);
    EXPECT_EQ(log, "abc");
}

TEST_F(EventPoints, AnEventMayBeRaisedWhileItIsHandled) {
    a = Connect(source, u"Click", [this](std::span<Argument>) {
        log += "(";
        if (log.size() < 4) {
            button->Raise(u"Click");
        }
        log += ")";
    });
    b = Connect(source, u"Click", Writes("b"));
    EXPECT_EQ(Clicked(), "(((()b)b)b)b");
}

TEST_F(EventPoints, ASourceThatDiesLetsItsHandlersGo) {
    const auto held = std::make_shared<int>(1);
    a = Connect(source, u"Click", [held](std::span<Argument>) {});
    EXPECT_EQ(held.use_count(), 2);
    button.reset();
    source = nullptr;
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(a->Disconnect());
}

// The last reference to the source goes while one of its events is raised.
TEST_F(EventPoints, ASourceMayDieWhileItRaises) {
    auto events =
        std::make_unique<EventConnections>(IidDispatch, std::vector<std::u16string_view>{u"Click"});
    EventPoint* const point = events->Point();
    std::uint32_t number = 0;
    for (const char* text : {"a", "b"}) {
        DynamicObject host;
        host.DefineMethod(u"Click", [this, &events, text](std::span<Argument>) -> Variant {
            events.reset();
            log += text;
            return {};
        });
        ASSERT_EQ(point->Advise(host.Reference().Pointer(), &number), Result::Ok);
    }
    events->Raise(u"Click");
    EXPECT_EQ(log, "a") << "no further handler runs";

    button->DefineMethod(u"Press", [this](std::span<Argument>) -> Variant {
        const DynamicObject self = *button;
        self.Raise(u"Click");
        return {};
    });
    a = Connect(source, u"Click", [this](std::span<Argument>) {
        button.reset();
        source = nullptr;
        log += "s";
    });
    source.Invoke(u"Press");
    EXPECT_EQ(log, "as");
    EXPECT_FALSE(a->Disconnect());
}

TEST_F(EventPoints, WhatCannotBeConnectedSaysWhy) {
    EXPECT_EQ(ErrorText([this] { a = Connect(source, u"Clack", Writes("a")); }),
              "there is no event Clack (did you mean Click?) (error 438)");
    EXPECT_EQ(ErrorText([this] { button->Raise(u"Clack"); }),
              "there is no event Clack (did you mean Click?) (error 438)");
    EXPECT_EQ(ErrorOf([this] { a = Connect(source, Object()); }), 91);
    EXPECT_EQ(ErrorOf([this] { a = Connect(Object(), u"Click", Writes("a")); }), 91);
    EXPECT_EQ(ErrorOf([] { Disconnect(Object(), 1); }), 91);
    const Object silent = DynamicObject("silent").Reference();
    EXPECT_EQ(ErrorOf([&] { a = Connect(silent, u"Click", Writes("a")); }), 438);
}

} // namespace
} // namespace torlib
