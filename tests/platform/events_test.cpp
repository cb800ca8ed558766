#include "torlib/platform/windows/events.h"

#include "tests/error_text.h"

#include "torlib/platform/component/dynamic_object.h"

#include <gtest/gtest.h>

namespace torlib {
namespace {

TEST(Events, RunInOrderAndThoseThatArePostedMeanwhileWait) {
    std::string log;
    PostEvent([&] {
        log += "a";
        PostEvent([&] { log += "c"; });
        DoEvents(); // runs b and c, which stand behind this event
        PostEvent([&] { log += "d"; });
    });
    PostEvent([&] { log += "b"; });
    DoEvents();
    EXPECT_EQ(log, "abc");
    DoEvents();
    EXPECT_EQ(log, "abcd");
    DoEvents();
    EXPECT_EQ(log, "abcd");
}

TEST(Events, AFailingEventLeavesThoseBehindItPending) {
    std::string log;
    PostEvent([] { RaiseError(ErrorNumber::InvalidArgument, "refused"); });
    PostEvent([&] { log += "b"; });
    EXPECT_EQ(test::ErrorOf([] { DoEvents(); }), 5);
    EXPECT_EQ(log, "");
    DoEvents();
    EXPECT_EQ(log, "b");
}

TEST(Events, ASourceBringsEventsInBeforeTheyRun) {
    int runs = 0;
    SetEventSource([&] { PostEvent([&] { ++runs; }); });
    DoEvents();
    SetEventSource({});
    DoEvents();
    EXPECT_EQ(runs, 1);
}

TEST(Events, UnloadingAsksTheFormByName) {
    DynamicObject form("form");
    EXPECT_EQ(test::ErrorOf([&] { UnloadForm(form.Reference()); }), 438);
    int unloaded = 0;
    form.DefineMethod(u"Unload", [&](std::span<Argument>) {
        ++unloaded;
        return Variant();
    });
    UnloadForm(form.Reference());
    EXPECT_EQ(unloaded, 1);
    EXPECT_EQ(test::ErrorOf([] { UnloadForm({}); }), 91);
}

} // namespace
} // namespace torlib
