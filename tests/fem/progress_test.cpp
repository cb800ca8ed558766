// The progress display against a form made of named properties, with a clock of its own.

#include "fem_test_tools.h"

#include "torlib/frame/companion_services.h"
#include "torlib/platform/clock.h"
#include "torlib/platform/component/dynamic_object.h"
#include "torlib/platform/windows/events.h"

namespace torlib::test {
namespace {

struct ProgressForm {
    explicit ProgressForm(int max) {
        bar.Define(u"Value", 0).Define(u"Max", max);
        time.Define(u"Visible", true).Define(u"Caption", u"");
        step.Define(u"Caption", u"");
        form.Define(u"PrB", bar.Reference()).Define(u"lbltime", time.Reference());
        form.Define(u"LblStufe", step.Reference());
        panels.DefineMethod(u"Item", [this](std::span<Argument> arguments) {
            EXPECT_EQ(arguments[0].Value.ToLong(), 1);
            panel = arguments[1].Value.ToText();
            return Variant();
        });
        status.Define(u"Visible", true).Define(u"Panels", panels.Reference());
        status.DefineMethod(u"Refresh", [this](std::span<Argument>) {
            ++refreshed;
            return Variant();
        });
        ReplaceClock([this] { return now; });
    }
    ~ProgressForm() { ReplaceClock({}); }
    ProgressForm(const ProgressForm&) = delete;
    ProgressForm& operator=(const ProgressForm&) = delete;

    void Step(int value) { fem.ProgressBarValue(form.Reference(), value, status.Reference()); }
    String TimeText() const {
        const String lead = Companions().Language().LoadText(60015, {}) + u" ";
        const String caption = time.Value(u"Caption").ToText();
        EXPECT_EQ(caption.substr(0, lead.size()), lead);
        return caption.substr(lead.size());
    }

    FEM_Class fem;
    DynamicObject form, bar, time, step, status, panels;
    double now = 0;
    String panel = u"before";
    int refreshed = 0;
};

TEST(Progress, StepsOfARun) {
    ProgressForm f(10);
    f.now = 1000;
    f.Step(1);
    EXPECT_EQ(f.bar.Value(u"Value").ToLong(), 1);
    EXPECT_FALSE(f.time.Value(u"Visible").ToBoolean());
    EXPECT_EQ(f.time.Value(u"Caption").ToText(), u"");
    const String label = Companions().Language().LoadText(60016, {u"|1", 1, u"|2", 10});
    EXPECT_NE(label.find(u"10"), String::npos);
    EXPECT_EQ(f.step.Value(u"Caption").ToText(), label);
    EXPECT_EQ(f.panel, u"  " + label);

    f.now = 1007;
    bool yielded = false;
    PostEvent([&] { yielded = true; });
    f.Step(4);
    EXPECT_TRUE(f.time.Value(u"Visible").ToBoolean());
    EXPECT_EQ(f.TimeText(), u"00:00:11"); // 6 steps to go at 7/4 s: 10.5 s
    EXPECT_TRUE(yielded);

    f.Step(10);
    EXPECT_FALSE(f.time.Value(u"Visible").ToBoolean());
    EXPECT_EQ(f.TimeText(), u"00:00:00");
    EXPECT_EQ(f.panel, u"");
    EXPECT_EQ(f.refreshed, 3);

    f.status.Define(u"Visible", false);
    f.panel = u"kept";
    f.Step(4);
    EXPECT_EQ(f.panel, u"kept");
    EXPECT_EQ(f.refreshed, 3);
}

TEST(Progress, RemainingTime) {
    // Seconds for the first half of the run; the time of day is rounded to 1/128 s.
    const std::pair<double, const char16_t*> cases[] = {
        {187, u"00:03:07"},   {3600, u"01:00:00"},    {3599, u"00:59:59"},
        {45296, u"12:34:56"}, {360000, u"100:00:00"}, {59.5, u"00:00:60"},
        {0.25, u"00:00:00"},  {0.4962, u"00:00:01"},  {-60, u"-01:59:00"}};
    for (const auto& [elapsed, text] : cases) {
        ProgressForm f(200);
        f.now = 65536;
        f.Step(1);
        f.now = 65536 + elapsed;
        f.Step(100);
        EXPECT_EQ(f.TimeText(), text);
    }
}

TEST(Progress, Failures) {
    ProgressForm f(10);
    EXPECT_EQ(ErrorOf([&] { f.Step(0); }), 11) << "0/0, and yet a division by zero";
    f.now = 50;
    EXPECT_EQ(ErrorOf([&] { f.Step(0); }), 11);
    EXPECT_EQ(ErrorOf([&] { f.fem.ProgressBarValue({}, 1, f.status.Reference()); }), 91);
    EXPECT_EQ(ErrorOf([&] { f.fem.ProgressBarValue(f.form.Reference(), 1, {}); }), 91);
    DynamicObject empty;
    EXPECT_EQ(ErrorOf([&] { f.fem.ProgressBarValue(empty.Reference(), 1, {}); }), 438);
}

} // namespace
} // namespace torlib::test
