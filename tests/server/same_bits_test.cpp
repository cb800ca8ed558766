// Early-bound, through the default instance, late-bound and created by identifier: the same bits,
// the same changes of the caller's variables and the same errors, for arguments that are made from
// each member's row of the class table with a seeded generator.

#include "tests/error_text.h"
#include "tests/server/generated_arguments.h"
#include "tests/server/registered_server.h"

#include "torlib/frame/class_object.h"
#include "torlib/frame/run_state.h"
#include "torlib/platform/clock.h"
#include "torlib/server/class_list.h"

#include <algorithm>

namespace torlib {
namespace {

class SameBits : public test::RegisteredServer {
  protected:
    void SetUp() override {
        RegisteredServer::SetUp();
        ReplaceClock([] { return 43200.0; });
    }
    void TearDown() override {
        ReplaceClock({});
        ExitControlState() = ExitRunning;
        RegisteredServer::TearDown();
    }
};

/// Result, error, changed variables and library-wide state of one call.
template <class Call>
std::string Outcome(const Member& member, unsigned seed, unsigned shape, const Call& call) {
    static constexpr Long states[] = {ExitRunning, ExitRunning, ExitCancelRequested, ExitFinished};
    ExitControlState() = states[seed % 4];
    const test::GeneratedArguments arguments(member, seed, shape);
    Variant result;
    const std::string error = test::ErrorText([&] { result = call(arguments.Values()); });
    return "error: " + error + "\nresult: " + test::BitsOf(result) +
           "\nstate: " + std::to_string(ExitControlState()) + "\n" + arguments.State();
}

/// Through the member pointer of the table, on a C++ instance.
auto Early(const Member& member, void* instance) {
    return [&member, instance](const std::vector<Variant>& values) {
        Variant result;
        member.Run(instance, values, &result);
        return result;
    };
}

/// By name; with `named` the arguments go by name, the last one first.
auto Late(const Member& member, const Object& object, bool named) {
    return [&member, object, named](const std::vector<Variant>& values) {
        std::vector<Argument> arguments;
        for (std::size_t i = 0; i < values.size(); ++i) {
            arguments.emplace_back(values[i]);
            if (named) {
                arguments.back().Name = member.Parameters[i].Name;
            }
        }
        if (member.Kind == MemberKind::PropertyPut) {
            object.Put(member.Name, values.back());
            return Variant();
        }
        if (named) {
            std::reverse(arguments.begin(), arguments.end());
        }
        return object.Invoke(member.Name, std::move(arguments));
    };
}

/// By number; the first half of the arguments at their positions, the others by number.
auto Numbered(const Member& member, const Object& object) {
    return [&member, object](const std::vector<Variant>& values) {
        const std::int32_t number = object.NumberOf(member.Name);
        if (member.Kind == MemberKind::PropertyPut) {
            object.PutNumber(number, values);
            return Variant();
        }
        std::vector<std::int32_t> named;
        for (std::size_t i = values.size() / 2; i < values.size(); ++i) {
            named.push_back(object.NumberOf(number, member.Parameters[i].Name));
        }
        return object.InvokeNumber(number, values, named);
    };
}

TEST_F(SameBits, EveryMemberOfEveryClassInAllFourWays) {
    for (const ClassInfo* info : BuiltClasses()) {
        const std::string className = ToUtf8(info->Name);
        const std::unique_ptr<void, void (*)(void*)> instance(info->Create(), info->Destroy);
        const Object shared = DefaultObject(*info);
        const Object own = NewObject(*info);
        const std::u16string identifier = u"TORVALib." + std::u16string(info->Name);
        const Object created = CreateObject(identifier);
        const Object registered = DefaultObject(identifier);
        for (const Member& member : info->Members) {
            if (member.Kind == MemberKind::Reserved) {
                continue;
            }
            const std::vector<unsigned> shapes = test::Shapes(member);
            int completed = 0;
            for (unsigned seed = 0; seed < std::max<std::size_t>(4 * shapes.size(), 32); ++seed) {
                const unsigned shape = shapes[seed % shapes.size()];
                const std::string early =
                    Outcome(member, seed, shape, Early(member, instance.get()));
                completed += early.starts_with("error: \n") ? 1 : 0;
                const std::string where =
                    className + "." + ToUtf8(member.Name) + " seed " + std::to_string(seed);
                ASSERT_EQ(early, Outcome(member, seed, shape, Late(member, shared, false)))
                    << where << ", default instance";
                ASSERT_EQ(early, Outcome(member, seed, shape, Late(member, own, true)))
                    << where << ", late-bound by argument names";
                ASSERT_EQ(early, Outcome(member, seed, shape, Late(member, created, false)))
                    << where << ", created by identifier";
                ASSERT_EQ(early, Outcome(member, seed, shape, Late(member, registered, false)))
                    << where << ", default instance by identifier";
                ASSERT_EQ(early, Outcome(member, seed, shape, Numbered(member, created)))
                    << where << ", by number";
            }
            EXPECT_GT(completed, 0) << className << "." << ToUtf8(member.Name)
                                    << " never came to its end: the walk shows little";
        }
    }
}

/// Calls f(class, member, place of the parameter) for every parameter of every member.
template <class F>
void ForEachParameter(const F& f) {
    for (const ClassInfo* info : BuiltClasses()) {
        for (const Member& member : info->Members) {
            for (std::size_t i = 0; i < member.Count; ++i) {
                f(*info, member, i);
            }
        }
    }
}

std::string PlaceText(const ClassInfo& info, const Member& member, std::size_t i) {
    return ToUtf8(info.Name) + "." + ToUtf8(member.Name) + ": " + ToUtf8(member.Parameters[i].Name);
}

TEST_F(SameBits, ARequiredArgumentThatIsLeftOutIs449) {
    int refusals = 0;
    ForEachParameter([&](const ClassInfo& info, const Member& member, std::size_t i) {
        if (member.Parameters[i].Default != Parameter::DefaultKind::Required) {
            return;
        }
        const test::GeneratedArguments arguments(member, 1, 0);
        std::vector<Variant> values = arguments.Values();
        values[i] = Missing();
        const std::string before = arguments.State();
        EXPECT_EQ(test::ErrorText([&] { Late(member, NewObject(info), false)(values); }),
                  PlaceText(info, member, i) + ": the argument is not optional (error 449)");
        EXPECT_EQ(arguments.State(), before) << PlaceText(info, member, i);
        ++refusals;
    });
    EXPECT_GT(refusals, 500);
}

TEST_F(SameBits, ALeftOutArgumentIsItsListedDefault) {
    int defaults = 0;
    ForEachParameter([&](const ClassInfo& info, const Member& member, std::size_t i) {
        const Parameter& parameter = member.Parameters[i];
        const bool flag = parameter.Default == Parameter::DefaultKind::Boolean;
        if (!flag && parameter.Default != Parameter::DefaultKind::Number) {
            return;
        }
        for (const unsigned seed : {1U, 2U, 3U}) {
            const auto with = [&](const Variant& value) {
                return [&, value](std::vector<Variant> values) {
                    values[i] = value;
                    return Late(member, NewObject(info), false)(values);
                };
            };
            const Variant listed = flag ? Variant(parameter.Value != 0) : Variant(parameter.Value);
            EXPECT_EQ(Outcome(member, seed, 0, with(Missing())),
                      Outcome(member, seed, 0, with(listed)))
                << PlaceText(info, member, i);
        }
        ++defaults;
    });
    EXPECT_GT(defaults, 1);
}

} // namespace
} // namespace torlib
