#include "torlib/platform/windows/events.h"

#include "tests/error_of.h"
#include "tests/host_window.h"

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
    const DynamicObject empty;
    EXPECT_EQ(test::ErrorOf([&] { UnloadForm(empty.Reference()); }), 438);
    test::HostWindow window;
    UnloadForm(window.Reference());
    EXPECT_EQ(window.Log(), "Unload;");
    EXPECT_EQ(test::ErrorOf([] { UnloadForm({}); }), 91);
}

} // namespace
} // namespace torlib
