// The progress display against a form made of named properties, with a clock of its own.

#include "fem_test_tools.h"
#include "tests/host_window.h"

#include "torlib/frame/companion_services.h"
#include "torlib/platform/clock.h"
#include "torlib/platform/windows/events.h"

namespace torlib::test {
namespace {

/// A run of so many steps, shown on a window that is its own status bar.
struct ProgressRun : HostWindow {
    explicit ProgressRun(int max) : HostWindow(max) {
        ReplaceClock([this] { return now; });
    }
    ~ProgressRun() { ReplaceClock({}); }
    ProgressRun(const ProgressRun&) = delete;
    ProgressRun& operator=(const ProgressRun&) = delete;

    void Step(int value, double at) {
        now = at;
        fem.ProgressBarValue(Reference(), value, Reference());
    }
    FEM_Class fem;
    double now = 0;
};

std::string TimeCaption(const char* time) {
    return "lbltime.Caption=" + ToUtf8(Companions().Language().LoadText(60015, {})) + " " + time +
           ";";
}
std::string StepText(int step) {
    return ToUtf8(Companions().Language().LoadText(60016, {u"|1", step, u"|2", 10}));
}

TEST(Progress, StepsOfARun) {
    ProgressRun run(10);
    const std::string show = "lbltime.Visible=True;", hide = "lbltime.Visible=False;";
    const auto label = [](int step) { return "LblStufe.Caption=" + StepText(step) + ";"; };
    const auto panel = [](const std::string& text) { return "Item1=" + text + ";Refresh;"; };
    EXPECT_NE(StepText(4).find("10"), std::string::npos);
    run.Step(1, 1000);
    EXPECT_EQ(run.Take(), "PrB.Value=1;" + hide + label(1) + panel("  " + StepText(1)));
    PostEvent([&] { run.Reference().Put(u"Caption", u"yielded"); });
    run.Step(4, 1007); // 6 steps to go at 7/4 s: 10.5 s
    EXPECT_EQ(run.Take(), "PrB.Value=4;" + show + TimeCaption("00:00:11") + label(4) +
                              panel("  " + StepText(4)) + "window.Caption=yielded;");
    run.Step(10, 1007);
    EXPECT_EQ(run.Take(),
              "PrB.Value=10;" + show + TimeCaption("00:00:00") + hide + label(10) + panel(""));
    run.Reference().Put(u"Visible", false);
    run.Take();
    run.Step(1, 0);
    EXPECT_EQ(run.Take(), "PrB.Value=1;" + hide + label(1)) << "a hidden status bar stays";
}

TEST(Progress, RemainingTime) {
    // Seconds for the first half of the run; the time of day is rounded to 1/128 s.
    const std::pair<double, const char*> cases[] = {
        {187, "00:03:07"},   {3600, "01:00:00"},    {3599, "00:59:59"},
        {45296, "12:34:56"}, {360000, "100:00:00"}, {59.5, "00:00:60"},
        {0.25, "00:00:00"},  {0.4962, "00:00:01"},  {-60, "-01:59:00"}};
    for (const auto& [elapsed, text] : cases) {
        ProgressRun run(200);
        run.Step(1, 65536);
        run.Step(100, 65536 + elapsed);
        EXPECT_NE(run.Log().find(TimeCaption(text)), std::string::npos) << run.Log();
    }
}

TEST(Progress, RemainingTimeOfABarWithoutEnd) {
    // 3E20 s are more than a 64-bit whole number holds; the hours are exact in binary.
    ProgressRun run(200);
    run.Step(1, 0);
    const Single max = 3E20;
    run.Reference().Get(u"PrB").ToObject().Put(u"Max", max.Value());
    run.Step(2, 2);
    const Single hours = Int(Single(Int(max / 60)) / 60);
    const std::string caption =
        "lbltime.Caption=" + ToUtf8(Companions().Language().LoadText(60015, {})) + " " +
        std::to_string(static_cast<std::uint64_t>(hours.Value())) + ":";
    EXPECT_NE(run.Log().find(caption), std::string::npos) << run.Log();
    run.Reference().Get(u"PrB").ToObject().Put(u"Max", 3E38F);
    run.Step(2, 2);
    EXPECT_NE(run.Log().find(" 8333333"), std::string::npos) << run.Log();
}

TEST(Progress, Failures) {
    ProgressRun run(10);
    EXPECT_EQ(ErrorOf([&] { run.Step(0, 0); }), 11) << "0/0, and yet a division by zero";
    EXPECT_EQ(ErrorOf([&] { run.Step(0, 50); }), 11);
    const Object form = run.Reference(), empty = DynamicObject().Reference();
    EXPECT_EQ(ErrorOf([&] { run.fem.ProgressBarValue({}, 1, form); }), 91);
    EXPECT_EQ(ErrorOf([&] { run.fem.ProgressBarValue(form, 1, {}); }), 91);
    EXPECT_EQ(ErrorOf([&] { run.fem.ProgressBarValue(empty, 1, {}); }), 438);
}

} // namespace
} // namespace torlib::test
