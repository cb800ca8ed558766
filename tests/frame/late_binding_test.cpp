#include "torlib/frame/class_object.h"
#include "torlib/frame/event_table.h"
#include "torlib/frame/records.h"

#include "tests/error_text.h"

#include "torlib/platform/component/dynamic_object.h"
#include "torlib/platform/component/module_count.h"

#include <gtest/gtest.h>

#include <new>

namespace torlib {
namespace {

using test::ErrorText;

/// A class with one member of each calling shape.
class Probe {
  public:
    static Probe& DefaultInstance() {
        static Probe instance;
        return instance;
    }
    static const ClassInfo& Info();

    Probe() { ++living; }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;
    ~Probe() { --living; }

    Single Weighted(Integer N, const Single& x, const Array<Single>& A, OptionalRef<Single> Big) {
        const MemberScope scope("Probe.Weighted", Named("A", A));
        Single sum = 0;
        for (const int i : Range(1, N)) {
            sum += A(i) * x;
        }
        Big.Set(sum + 1);
        return sum;
    }
    void Change(Integer& count, Single& length, String& text, bool& flag) {
        const MemberScope scope("Probe.Change");
        text += u"!";
        flag = !flag;
        length = count / Real(10);
        count = count * 2;
        if (count > 100) {
            RaiseError(ErrorNumber::InvalidArgument, "too many");
        }
    }
    String Defaults(Integer n, bool flag, Long step, const String& text, const Object& form,
                    const Variant& any, SymmetricCase kind) {
        const auto digit = [](Long v) { return FromUtf8(std::to_string(v)); };
        return digit(n) + (flag ? u"T" : u"F") + digit(step) + u"<" + text + u">" +
               (form ? u"form" : u"none") + (any.IsMissing() ? u"missing" : any.ToText()) +
               digit(static_cast<Long>(kind));
    }
    void Grow(Array<Integer>& A, Integer n) { A.ReDim(n); }
    void Mirror(const Vec3& From, Vec3& To, Array<Vec3>& Points) {
        To = {From.x, From.Y, -From.Z};
        Points(1) = To;
    }
    void Throw(Integer kind) {
        if (kind == 7) {
            throw 7;
        }
        throw std::bad_alloc();
    }
    /// Yields to the handler between two looks at the array.
    void Yield(Array<Single>& A, const Object& Handler) {
        A(1) = 1;
        Handler.Invoke(u"Run");
        A(1) = A(1) + 1;
    }
    Long ReadLevel() const { return level_; }
    void WriteLevel(Long NewValue) { level_ = NewValue; }

    static inline int living = 0;

  private:
    Long level_ = 0;
};

constexpr Member members[] = {
    Method<&Probe::Weighted>(u"Weighted", u"", {u"N", u"x", u"A", {u"Big", Omitted}}),
    Method<&Probe::Change>(u"Change", u"", {u"count", u"length", u"text", u"flag"}),
    Method<&Probe::Defaults>(u"Defaults", u"",
                             {u"n",
                              {u"flag", true},
                              {u"step", -3},
                              {u"text", Omitted},
                              {u"form", Omitted},
                              {u"any", Omitted},
                              {u"kind", 4}}),
    Reserved(u"Later"),
    Method<&Probe::Grow>(u"Grow", u"", {u"A", u"n"}),
    Method<&Probe::Mirror>(u"Mirror", u"", {u"From", u"To", u"Points"}),
    Method<&Probe::Throw>(u"Throw", u"", {u"kind"}),
    Method<&Probe::Yield>(u"Yield", u"", {u"A", u"Handler"}),
    PropertyGet<&Probe::ReadLevel>(u"Level", u""),
    PropertyPut<&Probe::WriteLevel>(u"Level", u"", {u"NewValue"}),
};

const ClassInfo& Probe::Info() {
    static const ClassInfo info{u"Probe",
                                u"",
                                IidUnknown,
                                IidClassFactory,
                                members,
                                []() -> void* { return new Probe; },
                                [](void* probe) { delete static_cast<Probe*>(probe); },
                                []() -> void* { return &DefaultInstance(); }};
    return info;
}

/// A class that raises the events of its event interface.
class Waiter {
  public:
    static Waiter& DefaultInstance() {
        static Waiter instance;
        return instance;
    }
    static const ClassInfo& Info();

    EventConnections& Events() { return events_; }
    void RaiseWaitMessage() { events_.Raise(u"RunWaitMessage"); }

  private:
    ClassEvents events_{u"ClsWaitMessage"};
};

constexpr Member waiter_members[] = {
    Method<&Waiter::RaiseWaitMessage>(u"RaiseWaitMessage", u""),
};

const ClassInfo& Waiter::Info() {
    static const ClassInfo info = DescribeClass<Waiter>(u"ClsWaitMessage", u"", waiter_members);
    return info;
}

class LateBinding : public testing::Test {
  protected:
    Object probe = NewObject(Probe::Info());
    Array<Single> A = ArrayFromOne<Single>({1, 2, 3});
};

TEST_F(LateBinding, ArgumentsStandAtTheirPlaceOrGoByName) {
    EXPECT_EQ(probe.Invoke(u"Weighted", {3, 0.5, ByRef(A)}).ToDouble(), 3);
    EXPECT_EQ(probe.Invoke(u"wEIGHTED", {3, {u"a", ByRef(A)}, {u"X", u"2"}}).ToDouble(), 12);
    EXPECT_EQ(probe.Invoke(u"Weighted", {{u"A", ByRef(A)}, {u"x", 1}, {u"n", 2.5}}).ToDouble(), 3)
        << "2.5 becomes the count 2";
    float big = 0;
    probe.Invoke(u"Weighted", {3, 1, ByRef(A), ByRef(big)});
    EXPECT_EQ(big, 7.0F);
}

TEST_F(LateBinding, WhatIsLeftOutTakesItsDefault) {
    const DynamicObject form;
    const auto text = [this](std::vector<Argument> arguments) {
        return ToUtf8(probe.Invoke(u"Defaults", std::move(arguments)).ToText());
    };
    EXPECT_EQ(text({1}), "1T-3<>nonemissing4");
    EXPECT_EQ(text({1, Missing(), Missing(), u"x"}), "1T-3<x>nonemissing4");
    EXPECT_EQ(text({1, false, 5, u"x", form.Reference(), 7, 2}), "1F5<x>form72");
    EXPECT_EQ(text({1, {u"any", Variant()}}), "1T-3<>none4") << "nothing is not missing";
}

TEST_F(LateBinding, ByReferenceArgumentsComeBackInTheTypeOfTheVariable) {
    std::int32_t count = 7;
    double length = 0;
    std::u16string text = u"a";
    Variant flag = false;
    probe.Invoke(u"Change", {ByRef(count), ByRef(length), ByRef(text), ByRef(flag)});
    EXPECT_EQ(count, 14);
    EXPECT_EQ(length, static_cast<double>(0.7F));
    EXPECT_EQ(text, u"a!");
    EXPECT_TRUE(flag.ToBoolean());
    count = 60;
    EXPECT_EQ(ErrorText([&] {
                  probe.Invoke(u"Change", {ByRef(count), 1, ByRef(text), true});
              }),
              "Probe.Change: too many (error 5)");
    EXPECT_EQ(count, 120) << "also when the member fails";
    EXPECT_EQ(text, u"a!!");
    // What the member leaves as it came in is not written back.
    count = 1;
    length = 0.10000000001;
    std::int32_t none = 0;
    Variant empty;
    probe.Invoke(u"Change", {ByRef(count), ByRef(length), u"", true});
    EXPECT_EQ(length, 0.10000000001) << "a double keeps its digits";
    probe.Invoke(u"Change", {ByRef(empty), ByRef(none), u"", true});
    EXPECT_TRUE(empty.IsEmpty());
    length = 0.1;
    EXPECT_NE(ErrorText([&] { probe.Invoke(u"Change", {1, ByRef(length), u"", u"x"}); }), "");
    EXPECT_EQ(length, 0.1) << "but not when it was never called";
}

TEST_F(LateBinding, ArraysAreTheCallersOwn) {
    Array<Integer> numbers(Bounds{3, 5});
    probe.Invoke(u"Grow", {ByRef(numbers), 2});
    EXPECT_EQ(numbers.LBound(), 0);
    EXPECT_EQ(numbers.UBound(), 2);
    EXPECT_EQ(ErrorText([&] {
                  probe.Invoke(u"Weighted", {5, 1, ByRef(A)});
              }),
              "Probe.Weighted: A: index 4 outside 0..3 (error 9)");
}

TEST_F(LateBinding, RecordsAreTheCallersOwn) {
    Vec3 from{1, 2, 3};
    Vec3 to;
    Array<Vec3> points(Bounds{0, 1});
    probe.Invoke(u"Mirror", {ByRef(from), ByRef(to), ByRef(points)});
    EXPECT_EQ(to.Z, -3);
    EXPECT_EQ(points(1).Y, 2);
    PlaneData plane;
    const auto error = [&](const Variant& From) {
        return ErrorText([&] { probe.Invoke(u"Mirror", {From, ByRef(to), ByRef(points)}); });
    };
    EXPECT_EQ(error(ByRef(plane)),
              "Probe.Mirror: From: a record Vec3 is needed, not a record PlaneData (error 13)");
    EXPECT_EQ(error(7), "Probe.Mirror: From: a record Vec3 is needed, not the value 7 (error 13)");
    EXPECT_EQ(error(Missing()), "Probe.Mirror: From: the argument is not optional (error 449)");
}

TEST_F(LateBinding, AWrongCallSaysWhatWouldBeRight) {
    Array<Integer> whole(Bounds{0, 3});
    const auto text = [this](const char16_t* member, std::vector<Argument> arguments) {
        return ErrorText([&] { probe.Invoke(member, std::move(arguments)); });
    };
    EXPECT_EQ(text(u"Weigted", {}), "Probe.Weigted: Probe has no member Weigted of this use (did "
                                    "you mean Weighted?) (error 438)");
    EXPECT_EQ(text(u"Later", {}), "Probe.Later: Probe has no member Later of this use (error 438)");
    EXPECT_EQ(text(u"Defaults", {{u"n", 1}, {u"form", 5}}),
              "Probe.Defaults: form: an object is required, not the value 5 (error 424)");
    const std::pair<std::vector<Argument>, std::string> cases[] = {
        {{1, 2}, "A: the argument is not optional (error 449)"},
        {{{u"A", ByRef(A)}}, "N: the argument is not optional (error 449)"},
        {{1, 2, ByRef(A), 4, 5}, "at most 4 arguments are possible (error 450)"},
        {{1, 2, {u"N", 3}}, "the argument N is given twice (error 450)"},
        {{1, {u"Bigg", 2}}, "there is no parameter Bigg (did you mean Big?) (error 448)"},
        {{u"F", 2, ByRef(A)}, "N: \"F\" is not a number (error 13)"},
        {{40000, 2, ByRef(A)},
         "N: the value 40000 is outside the 16-bit range -32768..32767 (error 6)"},
        {{1, 2, ByRef(whole)},
         "A: an array of another element type is needed, not an array of Integer (error 13)"},
        {{1, 2, 3}, "A: an array of another element type is needed, not the value 3 (error 13)"}};
    for (const auto& [arguments, wanted] : cases) {
        EXPECT_EQ(text(u"Weighted", arguments), "Probe.Weighted: " + wanted);
    }
}

TEST_F(LateBinding, APropertyIsReadAndWrittenUnderOneName) {
    probe.Put(u"level", 70000);
    EXPECT_EQ(probe.Get(u"LEVEL").ToLong(), 70000);
    EXPECT_EQ(test::ErrorOf([&] { probe.Put(u"Weighted", 1); }), 438);
    EXPECT_EQ(test::ErrorOf([&] { probe.Put(u"Level", u"high"); }), 13);
    const Object shared = DefaultObject(Probe::Info());
    shared.Put(u"Level", 3);
    EXPECT_EQ(DefaultObject(Probe::Info()).Get(u"Level").ToLong(), 3) << "one default instance";
    EXPECT_EQ(Probe::DefaultInstance().ReadLevel(), 3);
    EXPECT_EQ(probe.Get(u"Level").ToLong(), 70000) << "an instance of its own";
}

TEST_F(LateBinding, NothingThrownGoesPastTheDoor) {
    EXPECT_EQ(ErrorText([&] { probe.Invoke(u"Throw", {7}); }),
              "Probe.Throw: an exception of an unknown type (error 5)");
    EXPECT_EQ(ErrorText([&] { probe.Invoke(u"Throw", {1}); }),
              "Probe.Throw: out of memory (error 7)");
    for (const char16_t* member : {u"Throw", u"Weighted", u"Nothing"}) {
        EXPECT_EQ(probe.Pointer()->Invoke(member, InvokeKind::Method, {}, nullptr, nullptr),
                  Result::Exception)
            << "without a place for the error";
    }
    EXPECT_EQ(probe.Pointer()->QueryInterface(IidDispatch, nullptr), Result::InvalidPointer);
    Variant ring;
    ring = ByRef(ring);
    for (const auto& [value, text] : {std::pair{ring, "the variant refers to itself (error 13)"},
                                      {Variant::Reference(static_cast<SafeArray*>(nullptr)),
                                       "the reference is null (error 5)"}}) {
        EXPECT_EQ(ErrorText([&] {
                      probe.Invoke(u"Grow", {value, 1});
                  }),
                  std::string("Probe.Grow: A: ") + text);
        EXPECT_EQ(ErrorText([&] { probe.Invoke(u"Throw", {value}); }),
                  std::string("Probe.Throw: kind: ") + text);
        EXPECT_EQ(ErrorText([&] { probe.Invoke(u"Mirror", {value}); }),
                  std::string("Probe.Mirror: From: ") + text);
    }
}

TEST_F(LateBinding, AnArrayOutlivesTheVariableThatHeldItUntilTheCallIsOver) {
    auto array = std::make_shared<Array<Single>>(Bounds{0, 3});
    const std::weak_ptr<SafeArray> alive = array;
    Variant variable = std::shared_ptr<SafeArray>(array);
    DynamicObject handler;
    handler.DefineMethod(u"Run", [&variable, &alive](std::span<Argument>) {
        variable = 5;
        EXPECT_GE(alive.use_count(), 1);
        return Variant();
    });
    const std::shared_ptr<void> look = array->Share();
    array.reset();
    probe.Invoke(u"Yield", {ByRef(variable), handler.Reference()});
    EXPECT_TRUE(alive.expired());
    EXPECT_EQ(static_cast<float*>(look.get())[1], 2.0F);
}

TEST_F(LateBinding, AMemberIsKnownByItsNumber) {
    const std::int32_t weighted = probe.NumberOf(u"wEIGHTED");
    EXPECT_EQ(weighted, 1);
    EXPECT_EQ(probe.InvokeNumber(weighted, {3, 0.5, ByRef(A)}).ToDouble(), 3);
    const std::int32_t places[] = {probe.NumberOf(weighted, u"a"), probe.NumberOf(weighted, u"X")};
    EXPECT_EQ(probe.InvokeNumber(weighted, {3, ByRef(A), 2}, {places[0], places[1]}).ToDouble(),
              12);
    const std::int32_t level = probe.NumberOf(u"Level");
    EXPECT_EQ(level, 9) << "one number for reading and writing";
    EXPECT_EQ(probe.NumberOf(level, u"NewValue"), 1);
    probe.PutNumber(level, 70000);
    EXPECT_EQ(probe.InvokeNumber(level).ToLong(), 70000);
    DynamicObject form("Form");
    form.Define(u"Caption", u"a").Define(u"Max", 1);
    const std::int32_t max = form.Reference().NumberOf(u"max");
    form.Define(u"Value", 2).Reference().PutNumber(max, 5);
    EXPECT_EQ(form.Reference().InvokeNumber(max).ToLong(), 5);
    EXPECT_EQ(form.Value(u"Max").ToLong(), 5);
}

TEST_F(LateBinding, AWrongNumberSaysSo) {
    const Object form = DynamicObject("Form").Define(u"Max", 1).Reference();
    const Object none;
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[&] { probe.NumberOf(u"Later"); }, "the object has no member Later (error 438)"},
        {[&] { probe.NumberOf(1, u"Bigg"); }, "there is no parameter Bigg (error 448)"},
        {[&] { probe.NumberOf(99, u"N"); }, "there is no parameter N (error 448)"},
        {[&] { probe.InvokeNumber(1, {}); },
         "Probe.Weighted: N: the argument is not optional (error 449)"},
        {[&] {
             probe.InvokeNumber(1, {1, 2, ByRef(A), 4, 5});
         },
         "Probe.Weighted: at most 4 arguments are possible (error 450)"},
        {[&] {
             probe.InvokeNumber(1, {1, 2, 3}, {2, 2});
         },
         "Probe.Weighted: the argument x is given twice (error 450)"},
        {[&] {
             probe.InvokeNumber(1, {1}, {1, 2});
         },
         "Probe.Weighted: more parameters are named than arguments given (error 450)"},
        {[&] { probe.InvokeNumber(1, {1}, {5}); },
         "Probe.Weighted: there is no parameter of the number 5 (error 448)"},
        {[&] { probe.InvokeNumber(1, {1}, {0}); },
         "Probe.Weighted: there is no parameter of the number 0 (error 448)"},
        {[&] { probe.PutNumber(1, 1); },
         "Probe.member by number: Probe has no member of the number 1 of this use (error 438)"},
        {[&] { form.InvokeNumber(2); }, "Form.member by number: Form has no member of the number 2 "
                                        "(error 438)"},
        {[&] { form.PutNumber(0, 1); }, "Form.member by number: Form has no member of the number 0 "
                                        "(error 438)"},
        {[&] { none.NumberOf(u"Max"); }, "there is no object to ask for Max (error 91)"},
        {[&] { none.InvokeNumber(1); }, "there is no object to ask for a member by number (error "
                                        "91)"},
    };
    for (const auto& [call, wanted] : cases) {
        EXPECT_EQ(ErrorText(call), wanted);
    }
    for (const std::int32_t number : {-1, 0, 4, 10, 11}) { // 4 is reserved, 10 writes what 9 reads
        EXPECT_EQ(test::ErrorOf([&] { probe.InvokeNumber(number); }), 438) << number;
    }
}

TEST_F(LateBinding, InterfacesAndLifetimeAreCounted) {
    const long before = LiveInModule();
    const int instances = Probe::living;
    Object other = NewObject(Probe::Info());
    void* again = nullptr;
    ASSERT_EQ(other.Pointer()->QueryInterface(Probe::Info().InterfaceId, &again), Result::Ok);
    EXPECT_EQ(other.Pointer()->QueryInterface(LibraryId, &again), Result::NoInterface);
    EXPECT_EQ(again, nullptr);
    EXPECT_GT(LiveInModule(), before);
    Dispatch* held = other.Pointer();
    other = nullptr;
    EXPECT_EQ(Probe::living, instances + 1) << "the second reference keeps it";
    ErrorRecord error;
    EXPECT_EQ(held->Invoke(u"Level", InvokeKind::PropertyGet, {}, nullptr, &error), Result::Ok);
    Object form = DynamicObject().Reference();
    for (Dispatch* object : {held, form.Pointer()}) {
        EXPECT_EQ(object->Invoke(u"None", InvokeKind::Method, {}, nullptr, nullptr),
                  Result::Exception)
            << "an error record is not needed";
    }
    form = nullptr;
    EXPECT_EQ(held->Release(), 0U);
    EXPECT_EQ(Probe::living, instances);
    EXPECT_EQ(LiveInModule(), before);
}

TEST_F(LateBinding, EachInstanceRaisesItsOwnEventsAndTheDefaultInstanceToo) {
    Object wait = NewObject(Waiter::Info()), other = NewObject(Waiter::Info());
    Waiter early;
    std::string log;
    const auto writes = [&log](const char* text) {
        return [&log, text](std::span<Argument>) { log += text; };
    };
    const EventConnection a = Connect(wait, u"RunWaitMessage", writes("a"));
    const EventConnection b = Connect(other, u"RunWaitMessage", writes("b"));
    const EventConnection c =
        Connect(DefaultObject(Waiter::Info()), u"RunWaitMessage", writes("c"));
    wait.Invoke(u"RaiseWaitMessage");
    other.Invoke(u"RaiseWaitMessage");
    Waiter::DefaultInstance().RaiseWaitMessage();
    early.RaiseWaitMessage();
    EXPECT_EQ(log, "abc");
    EXPECT_EQ(early.Events().Point()->EventInterface(), WaitMessageEventsId);
    EXPECT_EQ(test::ErrorOf([&] { Disconnect(probe, 1); }), 438) << "a class without events";

    // The handler lets the source go while its member is at work.
    const EventConnection last = Connect(wait, u"RunWaitMessage", [&](std::span<Argument>) {
        wait = nullptr;
        RaiseError(ErrorNumber::InvalidArgument, "the source is gone");
    });
    EXPECT_EQ(ErrorText([&] { wait.Invoke(u"RaiseWaitMessage"); }),
              "handler.RunWaitMessage: the source is gone (error 5)");
}

TEST(EventTables, ARowIsMadeOfItsSignatureAndAClassWithoutARowIsRefused) {
    constexpr Member row = Event<void(const Integer&, Array<Single>&)>(u"Moved", u"", {u"n", u"A"});
    EXPECT_EQ(row.Count, 2U);
    EXPECT_TRUE(row.Types[0].ByReference && row.Types[1].IsArray);
    EXPECT_EQ(test::ErrorOf([] { ClassEvents events(u"Math_Class"); }), 438);
}

TEST_F(LateBinding, AMemberIsOfferedUnderItsFirstRow) {
    EXPECT_TRUE(probe.Offers(u"wEIGHTED"));
    EXPECT_FALSE(probe.Offers(u"Later")) << "a reserved row is no member yet";
    EXPECT_FALSE(probe.Offers(u"Weight"));
    EXPECT_EQ(probe.Pointer()->NumberOf(u"level"), 9);
    EXPECT_FALSE(Object().Offers(u"Level"));
}

} // namespace
} // namespace torlib
