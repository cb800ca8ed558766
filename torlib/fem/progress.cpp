// The progress display of a long computation on the host's calculation form and status bar.

#include "torlib/fem/fem_class.h"
#include "torlib/frame/companion_services.h"
#include "torlib/platform/clock.h"
#include "torlib/platform/windows/events.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace torlib {

namespace {

// String numbers of the language service.
constexpr int RemainingTimeText = 60015;
constexpr int StepText = 60016;

Single Read(const Object& control, const char16_t* property) {
    return control.Get(property).ToDouble();
}

/// At least two digits, and all that a value has; halves round away from zero.
String TwoDigits(Single value) {
    const float whole = std::round(value.Value());
    char buffer[std::numeric_limits<float>::max_exponent10 + 2];
    const auto last =
        std::to_chars(buffer, std::end(buffer), std::fabs(whole), std::chars_format::fixed);
    const String digits(buffer, last.ptr);
    return (whole < 0 ? u"-" : u"") + (digits.size() < 2 ? u"0" + digits : digits);
}

String ClockText(Single R) {
    Single minutes = Int(R / 60);
    const Single seconds = R - minutes * 60;
    const Single hours = Int(minutes / 60);
    minutes = minutes - hours * 60;
    return TwoDigits(hours) + u":" + TwoDigits(minutes) + u":" + TwoDigits(seconds);
}

bool AtEnd(const Object& bar) {
    const Single value = Read(bar, u"Value");
    const Single max = Read(bar, u"Max");
    return value == max;
}

void ShowRemainingTime(const Object& bar, const Object& label, Single startTime) {
    label.Put(u"Visible", true);
    const Single now = SecondsSinceMidnight();
    const Single elapsed = now - startTime;
    // Named, so that the host is asked in the same order whatever the compiler.
    const Single max = Read(bar, u"Max");
    const Single value = Read(bar, u"Value");
    if (value == 0) {
        RaiseError(ErrorNumber::DivisionByZero, "the step 0 has no remaining time");
    }
    const Single R = (max - value) * (elapsed / value);
    label.Put(u"Caption",
              Companions().Language().LoadText(RemainingTimeText, {}) + u" " + ClockText(R));
    if (AtEnd(bar)) {
        label.Put(u"Visible", false);
    }
}

void ShowStatus(const Object& ObjStbar, const String& text) {
    ObjStbar.Get(u"Panels").ToObject().PutIndexed(u"Item", {1}, text);
    ObjStbar.Invoke(u"Refresh");
}

} // namespace

void FEM_Class::ProgressBarValue(const Object& FrmShow, const Integer& ProgressValue,
                                 const Object& ObjStbar) {
    const MemberScope scope("FEM_Class.ProgressBarValue", Named("FrmShow", FrmShow),
                            Named("ObjStbar", ObjStbar));
    const Object bar = FrmShow.Get(u"PrB").ToObject();
    bar.Put(u"Value", ProgressValue);
    const Object timeLabel = FrmShow.Get(u"lbltime").ToObject();
    if (ProgressValue == 1) {
        progressStartTime_ = SecondsSinceMidnight();
        timeLabel.Put(u"Visible", false);
    } else {
        ShowRemainingTime(bar, timeLabel, progressStartTime_);
    }
    const Object stepLabel = FrmShow.Get(u"LblStufe").ToObject();
    stepLabel.Put(u"Caption", Companions().Language().LoadText(
                                  StepText, {u"|1", ProgressValue, u"|2", bar.Get(u"Max")}));
    if (ObjStbar.Get(u"Visible").ToBoolean()) {
        ShowStatus(ObjStbar, AtEnd(bar) ? u"" : u"  " + stepLabel.Get(u"Caption").ToText());
    }
    DoEvents();
}

} // namespace torlib
