// Early-bound, through the default instance, late-bound and created by identifier: the same bits,
// the same changes of the caller's variables and the same errors.

#include "tests/error_text.h"
#include "tests/server/generated_arguments.h"
#include "tests/server/registered_server.h"

#include "torlib/fem/fem_class.h"
#include "torlib/frame/class_object.h"
#include "torlib/frame/run_state.h"
#include "torlib/numeric/math_class.h"
#include "torlib/platform/clock.h"
#include "torlib/platform/component/create_object.h"
#include "torlib/server/class_list.h"
#include "torlib/soil/soil_class.h"
#include "torlib/ui/torva_class.h"

#include <algorithm>

namespace torlib {
namespace {

using test::BitsOf;
using test::GeneratedArguments;

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
    const GeneratedArguments arguments(member, seed, shape);
    Variant result;
    const std::string error = test::ErrorText([&] { result = call(arguments.Values()); });
    return "error: " + error + "\nresult: " + BitsOf(result) +
           "\nstate: " + std::to_string(ExitControlState()) + "\n" + arguments.State();
}

/// Through the member pointer of the table, on a C++ instance.
auto Early(const Member& member, void* instance) {
    return [&member, instance](const std::vector<Variant>& values) {
        Variant result;
        member.Call(instance, values, std::span(member.Parameters).first(member.Count), &result);
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

TEST_F(SameBits, EveryMemberOfEveryClassInAllFourWays) {
    for (const ClassInfo* info : BuiltClasses()) {
        const std::string className = ToUtf8(info->Name);
        const std::unique_ptr<void, void (*)(void*)> instance(info->Create(), info->Destroy);
        const Object shared = DefaultObject(*info);
        const Object own = NewObject(*info);
        const Object created = CreateObject(u"TORVALib." + std::u16string(info->Name));
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
            }
            EXPECT_GT(completed, 0) << className << "." << ToUtf8(member.Name)
                                    << " never came to its end: the walk shows little";
        }
    }
    EXPECT_EQ(UnloadFreeServers(), 0);
}

TEST_F(SameBits, TypedCallsAndCallsByNameAgree) {
    const Object fem = CreateObject(u"TORVALib.FEM_Class");
    Array<Single> typed(Bounds{1, 12}, Bounds{1, 12});
    Array<Single> named(Bounds{1, 12}, Bounds{1, 12});
    FEM_Class().SetRecElementStiffness(typed, 3e7, 0.25, 0.2, 1.1, 0.7);
    fem.Invoke(u"SetRecElementStiffness",
               {ByRef(named), 3e7F, 0.25F, 0.2F, {u"B", 0.7F}, {u"A", 1.1F}});
    EXPECT_EQ(BitsOf(typed(1, 1)), BitsOf(named(1, 1)));
    EXPECT_GT(typed(1, 1).Value(), 0.0F);
    for (int i = 1; i <= 12; ++i) {
        for (int j = 1; j <= 12; ++j) {
            ASSERT_EQ(typed(i, j).Value(), named(i, j).Value()) << i << " " << j;
        }
    }

    const auto system = [](Array<Single>& A, Array<Single>& Q) {
        A = Array<Single>(Bounds{1, 4}, Bounds{1, 2});
        Q = Array<Single>(Bounds{1, 4});
        for (int i = 1; i <= 3; ++i) {
            A(i, 1) = 2.3 + i;
            A(i, 2) = i < 3 ? -1.1 : 0;
            Q(i) = 0.7 * i;
        }
    };
    Array<Single> A1;
    Array<Single> Q1;
    Array<Single> A2;
    Array<Single> Q2;
    system(A1, Q1);
    system(A2, Q2);
    EXPECT_FALSE(Default<FEM_Class>().SolveMatrix(2, 3, A1, Q1));
    EXPECT_FALSE(fem.Invoke(u"SolveMatrix", {2, 3, ByRef(A2), ByRef(Q2)}).ToBoolean());
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(Q1(i).Value(), Q2(i).Value());
        EXPECT_NE(Q1(i).Value(), 0.0F);
    }

    const Single stress = Soil_Class().Sz_P_ST(0, 1, 0, 2, 1.5);
    const Variant late =
        CreateObject(u"TORVALib.Soil_Class").Invoke(u"Sz_P_ST", {0, 1, 0, 2, 1.5F});
    EXPECT_EQ(BitsOf(stress), BitsOf(late));
    EXPECT_GT(stress.Value(), 0.0F);

    String line;
    String lateLine;
    TORVAClass().SetLineList(line, u"Area", u"A", u"m2", u"1", 8, 4);
    CreateObject(u"TORVALib.TORVAClass")
        .Invoke(u"SetLineList", {ByRef(lateLine), u"Area", u"A", u"m2", u"1", 8, 4});
    EXPECT_EQ(line, lateLine);
    EXPECT_EQ(ToUtf8(line), "Area    A   m2   = 1\r\n");
}

TEST_F(SameBits, AnErrorIsCaughtByTheProgramThatIsLinkedWithTheLibrary) {
    Array<Single> A(Bounds{1, 2}, Bounds{1, 2});
    Array<Single> V(Bounds{1, 3});
    Array<Single> U;
    const auto early = [&] { Math_Class().ProductMatrxByVector(3, A, V, U); };
    const auto late = [&] {
        CreateObject(u"TORVALib.Math_Class")
            .Invoke(u"ProductMatrxByVector", {3, ByRef(A), ByRef(V), ByRef(U)});
    };
    EXPECT_EQ(test::ErrorText(early),
              "Math_Class.ProductMatrxByVector: A: index (1, 3) outside (1..2, 1..2) (error 9)");
    EXPECT_EQ(test::ErrorText(early), test::ErrorText(late));
}

} // namespace
} // namespace torlib
