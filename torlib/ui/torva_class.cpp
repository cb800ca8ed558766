#include "torlib/ui/torva_class.h"

#include "torlib/frame/class_table.h"
#include "torlib/frame/companion_services.h"
#include "torlib/frame/run_state.h"

#include <algorithm>

namespace torlib {

namespace {

constexpr char16_t lam = 0x0644;
// Alef, and alef with hamza below, hamza above and madda above.
constexpr std::u16string_view alefs = u"\u0627\u0625\u0623\u0622";

int LigatureCount(const String& text) {
    int count = 0;
    for (std::size_t p = 1; p < text.size(); ++p) {
        if (text[p - 1] == lam && alefs.find(text[p]) != std::u16string_view::npos) {
            ++count;
        }
    }
    return count;
}

String Blanks(long count) {
    return String(static_cast<std::size_t>(std::max(count, 0L)), u' ');
}

/// What fills a column of this width behind a text that is shown in so many signs.
String Filling(Integer width, const String& text, int ligatures = 0) {
    return Blanks(int{width} - static_cast<long>(text.size()) + ligatures);
}

} // namespace

bool TORVAClass::ActivateDoEvents(const Object& FrmShow) const {
    const MemberScope scope("TORVAClass.ActivateDoEvents");
    return CheckCancelRequest(FrmShow);
}

void TORVAClass::ExpandDim(Integer& NDim, const Integer& NIncrment, Array<Single>& Array1,
                           Array<Single>& Array2, Array<Single>& Array3) const {
    const MemberScope scope("TORVAClass.ExpandDim", Named("Array1", Array1),
                            Named("Array2", Array2), Named("Array3", Array3));
    NDim = NDim + NIncrment;
    Array1.ReDimPreserve(NDim);
    Array2.ReDimPreserve(NDim);
    Array3.ReDimPreserve(NDim);
}

void TORVAClass::OKCancel(const Object& FrmShow) const {
    const MemberScope scope("TORVAClass.OKCancel");
    RequestCancel(FrmShow);
}

String TORVAClass::Private_Space(Integer NumberOfSpaces) const {
    const MemberScope scope("TORVAClass.Private_Space");
    return Blanks(int{NumberOfSpaces});
}

Long TORVAClass::ReadExitcontrol() const {
    const MemberScope scope("TORVAClass.Exitcontrol");
    return ExitControlState();
}

void TORVAClass::WriteExitcontrol(Long NewValue) const {
    const MemberScope scope("TORVAClass.Exitcontrol");
    ExitControlState() = NewValue;
}

// The texts are copies: any of them may be the listing that grows here.
// NOLINTBEGIN(performance-unnecessary-value-param)
void TORVAClass::SetLineList(String& ResultText, String LineText, String LineSymbol,
                             String LineUnit, String LineValue, Integer TabNode,
                             Integer TabNo) const {
    // NOLINTEND(performance-unnecessary-value-param)
    const MemberScope scope("TORVAClass.SetLineList");
    ResultText += LineText + Filling(TabNode, LineText, LigatureCount(LineText));
    ResultText += LineSymbol + Filling(TabNo, LineSymbol);
    ResultText += LineUnit + Filling(TabNo, LineUnit);
    ResultText += u" =";
    ResultText += u" " + Companions().Utility().FormatValueText(
                             LineValue, {std::int16_t{32}, u"E", std::int32_t{160020}});
    ResultText += u"\r\n";
}

TORVAClass& TORVAClass::DefaultInstance() {
    static TORVAClass instance;
    return instance;
}

// clang-format off
constexpr Member TORVAMembers[] = {
    Method<&TORVAClass::ActivateDoEvents>(u"ActivateDoEvents", u"Yields to pending events; true while a cancel is requested.",
        {{u"FrmShow", Omitted}}),
    Method<&TORVAClass::ExpandDim>(u"ExpandDim", u"Grows three working arrays together, keeping their contents.",
        {u"NDim", u"NIncrment", u"Array1", u"Array2", u"Array3"}),
    Method<&TORVAClass::OKCancel>(u"OKCancel", u"Asks for a cancel, or closes the form once the run has ended.",
        {u"FrmShow"}),
    Method<&TORVAClass::Private_Space>(u"Private_Space", u"A run of blanks.",
        {u"NumberOfSpaces"}),
    Reserved(u"ShowProjectCheck"),
    Reserved(u"ShowSplash"),
    Reserved(u"TORVAFile"),
    Reserved(u"EndSplash"),
    Reserved(u"GetPictureFromFile"),
    PropertyGet<&TORVAClass::ReadExitcontrol>(u"Exitcontrol", u"The run/cancel state of the library."),
    PropertyPut<&TORVAClass::WriteExitcontrol>(u"Exitcontrol", u"Sets the run/cancel state of the library.",
        {u"NewValue"}),
    Method<&TORVAClass::SetLineList>(u"SetLineList", u"Appends one aligned line to a result listing.",
        {u"ResultText", u"LineText", u"LineSymbol", u"LineUnit", u"LineValue", u"TabNode", u"TabNo"}),
};
// clang-format on

const ClassInfo& TORVAClass::Info() {
    static const ClassInfo info = DescribeClass<TORVAClass>(
        u"TORVAClass", u"Run and cancel state, result listings and working arrays.", TORVAMembers);
    return info;
}

} // namespace torlib
