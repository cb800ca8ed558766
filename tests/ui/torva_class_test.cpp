#include "torlib/ui/torva_class.h"

#include "tests/error_text.h"
#include "tests/host_window.h"
#include "tests/silent_utility.h"

#include "torlib/frame/run_state.h"
#include "torlib/platform/windows/events.h"

#include <gtest/gtest.h>

namespace torlib {
namespace {

class TORVA : public testing::Test {
  protected:
    void TearDown() override { ExitControlState() = ExitRunning; }
    TORVAClass torva;
};

TEST_F(TORVA, TheCancelButtonAsksDuringARunAndClosesAfterIt) {
    for (const Long state : {0, 1, 2, 3, 4, 5, 6, 7, -1, 70000}) {
        test::HostWindow host;
        torva.WriteExitcontrol(state);
        EXPECT_EQ(torva.ReadExitcontrol(), state) << "stored as it is";
        torva.OKCancel(host.Reference());
        const bool ended = state >= 4 && state <= 6;
        EXPECT_EQ(host.Log(), ended ? "Unload;" : "") << state;
        EXPECT_EQ(torva.ReadExitcontrol(), ended ? state : Long{ExitCancelRequested}) << state;
    }
    torva.WriteExitcontrol(ExitFinished);
    EXPECT_EQ(test::ErrorText([this] { torva.OKCancel({}); }),
              "TORVAClass.OKCancel: there is no form to unload (error 91)");
}

TEST_F(TORVA, ThePollYieldsAndReportsACancelWithAndWithoutAForm) {
    test::HostWindow host;
    bool ran = false;
    PostEvent([&ran] { ran = true; });
    EXPECT_FALSE(torva.ActivateDoEvents());
    EXPECT_TRUE(ran);
    for (const Long state : {0, 4, 5, 6}) {
        torva.WriteExitcontrol(state);
        EXPECT_FALSE(torva.ActivateDoEvents(host.Reference())) << state;
    }
    EXPECT_EQ(host.Log(), "");
    torva.WriteExitcontrol(ExitCancelRequested);
    EXPECT_TRUE(torva.ActivateDoEvents());
    EXPECT_EQ(host.Log(), "");
    EXPECT_TRUE(torva.ActivateDoEvents(host.Reference()));
    EXPECT_EQ(host.Log(), "Unload;");
    EXPECT_EQ(torva.ReadExitcontrol(), ExitCancelRequested) << "the poll never changes the state";
    TORVAClass other;
    EXPECT_EQ(other.ReadExitcontrol(), ExitCancelRequested) << "one state for all instances";
}

TEST_F(TORVA, ArraysGrowTogetherAndKeepTheirContents) {
    Integer NDim = 5;
    Array<Single> one(Bounds{0, 5});
    Array<Single> two(Bounds{1, 5});
    Array<Single> three;
    for (int i = 1; i <= 5; ++i) {
        one(i) = i;
        two(i) = -i;
    }
    one(0) = 7;
    torva.ExpandDim(NDim, 3, one, two, three);
    EXPECT_EQ(NDim, 8);
    for (const Array<Single>* array : {&one, &two, &three}) {
        EXPECT_EQ(array->LBound(), 0);
        EXPECT_EQ(array->UBound(), 8);
        EXPECT_EQ((*array)(8).Value(), 0.0F);
    }
    EXPECT_EQ(one(0).Value(), 7.0F);
    EXPECT_EQ(one(5).Value(), 5.0F);
    EXPECT_EQ(two(0).Value(), 0.0F);
    EXPECT_EQ(two(5).Value(), -5.0F);
    three(2) = 9;
    torva.ExpandDim(NDim, -6, one, two, three);
    EXPECT_EQ(three(2).Value(), 9.0F);
    EXPECT_EQ(one.UBound(), 2) << "a negative growth shrinks";
    EXPECT_EQ(one(2).Value(), 2.0F);
    NDim = 32767;
    EXPECT_EQ(test::ErrorOf([&] { torva.ExpandDim(NDim, 1, one, two, three); }), 6);
    EXPECT_EQ(NDim, 32767);
    EXPECT_EQ(one.UBound(), 2);
    NDim = 0;
    EXPECT_EQ(test::ErrorText([&] { torva.ExpandDim(NDim, -1, one, two, three); }),
              "TORVAClass.ExpandDim: Array1: cannot have the size -1 (error 9)");
}

TEST_F(TORVA, BlanksAndListingLinesAlign) {
    for (const int number : {-32768, -3, 0, 1, 3, 200}) {
        EXPECT_EQ(torva.Private_Space(number).size(),
                  number > 0 ? static_cast<unsigned>(number) : 0U);
    }
    EXPECT_EQ(torva.Private_Space(2), u"  ");
    const struct {
        String text;
        int width;
        String column;
    } cases[] = {
        {u"Area", 10, u"Area      "},
        {u"Area", 4, u"Area"},
        {u"Area", -5, u"Area"},
        {u"Area", 3, u"Area"}, // a column never cuts its text
        {u"", 2, u"  "},
        {u"a\u0644\u0627b\u0628", 10, u"a\u0644\u0627b\u0628      "}, // lam-alef: one sign
        {u"\u0644\u0625\u0644\u0623", 4, u"\u0644\u0625\u0644\u0623  "},
        {u"\u0644\u0622", 2, u"\u0644\u0622 "},
        {u"\u0627\u0644", 2, u"\u0627\u0644"}, // alef-lam is no ligature
        {u"\u0644b\u0627", 3, u"\u0644b\u0627"},
    };
    for (const auto& c : cases) {
        String line = u"before";
        torva.SetLineList(line, c.text, u"A", u"[m2]", u"12.5", c.width, 5);
        EXPECT_EQ(ToUtf8(line), ToUtf8(u"before" + c.column + u"A    [m2]  = 12.5\r\n"));
    }
    String line;
    torva.SetLineList(line, u"", u"\u0644\u0627", u"\u0644\u0627", u"", 0, 3);
    EXPECT_EQ(ToUtf8(line), ToUtf8(u"\u0644\u0627 \u0644\u0627  = \r\n")) << "as two in the others";
    line = u"ab";
    torva.SetLineList(line, line, line, line, line, 3, 4);
    EXPECT_EQ(ToUtf8(line), "abab ab  ab   = ab\r\n") << "the listing as it was before the call";
}

/// Answers with what it was asked, or fails.
class AskedUtility : public test::SilentUtility {
  public:
    String FormatValueText(const String& value, const std::vector<Variant>& parameters) override {
        if (value.empty()) {
            RaiseError(ErrorNumber::InvalidArgument, "no value");
        }
        String text = value;
        for (const Variant& parameter : parameters) {
            text += u"|" + parameter.ToText();
        }
        return text;
    }
};

TEST_F(TORVA, TheValueIsFormattedByTheUtilityService) {
    Companions().SetUtility(std::make_shared<AskedUtility>());
    String line;
    torva.SetLineList(line, u"a", u"b", u"c", u"1", 2, 2);
    EXPECT_EQ(ToUtf8(line), "a b c  = 1|32|E|160020\r\n");
    line.clear();
    EXPECT_EQ(test::ErrorOf([&] { torva.SetLineList(line, u"a", u"b", u"c", u"", 2, 2); }), 5);
    EXPECT_EQ(ToUtf8(line), "a b c  =") << "what was appended before the error stays";
    Companions().SetUtility(nullptr);
}

} // namespace
} // namespace torlib
