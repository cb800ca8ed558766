#include "torlib/frame/error_routine.h"
#include "torlib/frame/run_state.h"
#include "torlib/frame/text_tables.h"

#include "tests/error_of.h"
#include "tests/host_window.h"
#include "tests/silent_utility.h"
#include "tests/temporary_folder.h"

#include "torlib/platform/component/dynamic_object.h"
#include "torlib/platform/windows/events.h"

#include <gtest/gtest.h>

namespace torlib {
namespace {

/// Remembers what was reported, and may refuse to report.
class RecordingUtility : public test::SilentUtility {
  public:
    void ShowError(const RunTimeError& error) override {
        reports.emplace_back(error.what());
        if (refuses) {
            RaiseError(ErrorNumber::InvalidArgument, "no screen");
        }
    }

    std::vector<std::string> reports;
    bool refuses = false;
};

TEST(Texts, LanguageFollowsTheEnvironmentAndUnknownNumbersAreShown) {
    const struct {
        const char* all;
        const char* lang;
        const char* wanted;
    } cases[] = {{nullptr, "de_DE.UTF-8", "&Abbrechen"},
                 {nullptr, "en_GB.UTF-8", "&Cancel"},
                 {"en_US.UTF-8", "de_DE.UTF-8", "&Cancel"},
                 {"", "de_AT", "&Abbrechen"},
                 {nullptr, nullptr, "&Cancel"}};
    const auto set = [](const char* name, const char* value) {
        value ? setenv(name, value, 1) : unsetenv(name);
    };
    unsetenv("LC_MESSAGES");
    for (const auto& c : cases) {
        set("LC_ALL", c.all);
        set("LANG", c.lang);
        CompanionObjects companions;
        EXPECT_EQ(ToUtf8(companions.Language().LoadText(60017, {std::int32_t{1}})), c.wanted);
        EXPECT_EQ(ToUtf8(companions.Language().LoadText(99999, {})), "#99999");
    }
    for (const int number : {104, 60015, 60016, 60017}) { // in both tables
        EXPECT_NE(TableText(TextLanguage::German, number),
                  TableText(TextLanguage::English, number));
    }
    EXPECT_EQ(
        ToUtf8(FillPlaceholders(TableText(TextLanguage::German, 60016), {u"|1", 3, u"|2", 12})),
        "Schritt 3 von 12");
    EXPECT_EQ(ToUtf8(FillPlaceholders(u"|1", {u"|1", u"a|1"})), "a|1")
        << "a value is not filled again";
}

TEST(Companions, AreMadeOnFirstUseKeptAndReplacedByTheHost) {
    CompanionObjects companions;
    EXPECT_EQ(&companions.Utility(), &companions.Utility());
    EXPECT_EQ(ToUtf8(companions.Utility().FormatValueText(u"2.5", {})), "2.5");
    companions.Drawing().FontSize = 12;
    EXPECT_EQ(companions.Drawing().FontSize, 12);
    const auto host = std::make_shared<test::SilentUtility>();
    companions.SetUtility(host);
    EXPECT_EQ(&companions.Utility(), host.get());
}

TEST(Companions, TheOwnServicesCheckInputAndFiles) {
    CompanionObjects companions;
    UtilityServices& utility = companions.Utility();
    DynamicObject box;
    const struct {
        const char16_t* text;
        int kind;
        bool refused;
    } cases[] = {{u"1", 1, false},    {u"10", 1, false},    {u"2.5", 2, false}, {u"2.5", 1, true},
                 {u"0.999", 2, true}, {u"10.001", 2, true}, {u"F", 2, true}};
    for (const auto& c : cases) {
        box.Define(u"Text", c.text);
        EXPECT_EQ(utility.CheckInput(box.Reference(), c.kind, 1, 10), c.refused) << ToUtf8(c.text);
    }
    EXPECT_EQ(utility.ConvertToSingle(u"0.1").Value(), 0.1F);
    EXPECT_EQ(test::ErrorOf([&] { utility.ConvertToSingle(u"F"); }), 13);
    const test::TemporaryFolder folder;
    EXPECT_TRUE(utility.FileIsMissing(FromUtf8(folder.File("a"))));
    EXPECT_FALSE(utility.FileIsMissing(FromUtf8(folder.File(""))));
}

TEST(HandleError, ReportsClosesFileNumberOneAndNeverFails) {
    const auto host = std::make_shared<RecordingUtility>();
    Companions().SetUtility(host);
    const test::TemporaryFolder folder;
    for (const bool refuses : {false, true}) {
        host->refuses = refuses;
        std::fputs("x", OpenFileNumberOne(folder.File("one.txt"), "w"));
        HandleError(RunTimeError(ErrorNumber::OutOfRange, "A.B", "outside"));
        EXPECT_EQ(FileNumberOne(), nullptr);
        EXPECT_EQ(std::filesystem::file_size(folder.File("one.txt")), 1U);
    }
    HandleError(RunTimeError(ErrorNumber::Overflow, "A.B", "large")); // no file is open
    EXPECT_EQ(host->reports.size(), 3U);
    EXPECT_EQ(host->reports.at(0), "A.B: outside (error 9)");
    EXPECT_EQ(test::ErrorOf([&] { OpenFileNumberOne(folder.File("no/one.txt"), "r"); }), 53);
    Companions().SetUtility(nullptr);
}

TEST(RunState, StartsRunningAndAnEventMayCancelDuringThePoll) {
    EXPECT_EQ(ExitControlState(), ExitRunning);
    test::HostWindow window;
    const Object form = window.Reference();
    ScreenMousePointer() = MousePointer::Hourglass;
    EXPECT_FALSE(CheckCancelRequest(form));
    PostEvent([&] { RequestCancel(form); });
    EXPECT_EQ(ScreenMousePointer(), MousePointer::Hourglass);
    EXPECT_TRUE(CheckCancelRequest(form)) << "the click runs inside the poll";
    EXPECT_EQ(window.Take(), "Unload;");
    EXPECT_EQ(ScreenMousePointer(), MousePointer::Default);
    EXPECT_TRUE(CheckCancelRequest({})) << "the state does not change";
    EXPECT_EQ(window.Log(), "");
    ExitControlState() = ExitRunning;
}

} // namespace
} // namespace torlib
