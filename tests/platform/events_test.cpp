#include "torlib/platform/windows/events.h"

#include "tests/error_of.h"
#include "tests/host_window.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

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
    const EventSourceToken source = AddEventSource([&] { PostEvent([&] { ++runs; }); });
    DoEvents();
    EXPECT_TRUE(RemoveEventSource(source));
    EXPECT_FALSE(RemoveEventSource(source));
    DoEvents();
    EXPECT_EQ(runs, 1);
}

TEST(Events, SourcesComeAndGoWithoutTouchingEachOther) {
    std::string log;
    const auto polled = [&log] {
        log.clear();
        DoEvents();
        return log;
    };
    EventSourceToken own = 0, other = 0, late = 0;
    const EventSourceToken first = AddEventSource([&] { log += "1"; });
    own = AddEventSource([&, held = std::make_shared<int>(7)] {
        RemoveEventSource(own);
        RemoveEventSource(other);
        late = AddEventSource([&] { log += "5"; });
        log += std::to_string(*held); // what the source holds lives until it returns
    });
    other = AddEventSource([&] { log += "3"; });
    const EventSourceToken last = AddEventSource([&] { log += "4"; });
    EXPECT_EQ(polled(), "174");
    EXPECT_EQ(polled(), "145");
    EXPECT_TRUE(RemoveEventSource(first));
    EXPECT_EQ(polled(), "45");
    EXPECT_TRUE(RemoveEventSource(last));
    EXPECT_TRUE(RemoveEventSource(late));
    EXPECT_EQ(polled(), "");
}

TEST(Events, AFailingSourceFailsThePollAndEventsWait) {
    bool ran = false;
    const EventSourceToken source =
        AddEventSource([] { RaiseError(ErrorNumber::InvalidArgument, "refused"); });
    PostEvent([&] { ran = true; });
    EXPECT_EQ(test::ErrorOf([] { DoEvents(); }), 5);
    EXPECT_FALSE(ran);
    RemoveEventSource(source);
    DoEvents();
    EXPECT_TRUE(ran);
}

TEST(Events, OnlyTheUserInterfacesThreadRunsThemOnceThereIsOne) {
    const auto pollElsewhere = [] { std::thread([] { DoEvents(); }).join(); };
    int ran = 0;
    PostEvent([&] { ++ran; });
    {
        const UserInterfaceThread here;
        pollElsewhere();
        EXPECT_EQ(ran, 0);
        DoEvents();
        EXPECT_EQ(ran, 1);
        PostEvent([&] { ++ran; });
    }
    pollElsewhere();
    EXPECT_EQ(ran, 2);
}

TEST(Events, UnloadingAsksTheFormOnlyWhereItOffersIt) {
    const DynamicObject empty;
    EXPECT_EQ(test::ErrorOf([&] { UnloadForm(empty.Reference()); }), 0);
    test::HostWindow window;
    UnloadForm(window.Reference());
    EXPECT_EQ(window.Log(), "Unload;");
    DynamicObject failing;
    failing.DefineMethod(u"unload", [&](std::span<Argument>) {
        return empty.Reference().Get(u"Caption"); // an error of the form's own
    });
    EXPECT_EQ(test::ErrorOf([&] { UnloadForm(failing.Reference()); }), 438);
    EXPECT_EQ(test::ErrorOf([] { UnloadForm({}); }), 91);
}

} // namespace
} // namespace torlib
