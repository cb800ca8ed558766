#include "hosts/slab/run_window.h"

#include "torlib/frame/run_state.h"

#include <algorithm>
#include <cstdio>

namespace slab {

using torlib::Argument;
using torlib::Variant;

namespace {

constexpr int bar_width = 30;
constexpr auto redraw_interval = std::chrono::milliseconds(100);

} // namespace

RunWindow::RunWindow(Style style)
    : style_(style),
      bar_("PrB"),
      time_("lbltime"),
      stage_("LblStufe"),
      window_("calculation window"),
      statusBarObject_("status bar") {
    bar_.Define(u"Value", 0).Define(u"Max", 1);
    time_.Define(u"Visible", false).Define(u"Caption", u"");
    stage_.Define(u"Caption", u"").OnPut(u"Caption", [this](const Variant&) { Draw(); });
    window_.Define(u"PrB", bar_.Reference())
        .Define(u"lbltime", time_.Reference())
        .Define(u"LblStufe", stage_.Reference())
        .DefineMethod(u"Unload", [this](std::span<Argument>) {
            End();
            return Variant();
        });
    // A terminal shows the step in the bar itself; the status bar stays hidden.
    statusBarObject_.Define(u"Visible", false);
    form_ = window_.Reference();
    statusBar_ = statusBarObject_.Reference();
    torva_.WriteExitcontrol(torlib::ExitRunning);
}

RunWindow::~RunWindow() {
    End();
}

void RunWindow::Begin(const std::string& phase, int steps) {
    End();
    phase_ = phase;
    steps_ = std::max(steps, 1);
    lastPercent_ = -1;
    bar_.Define(u"Max", steps_).Define(u"Value", 0);
    time_.Define(u"Visible", false);
    if (style_ == Style::Lines) {
        Log(phase);
    }
}

bool RunWindow::Step(int step) {
    fem_.ProgressBarValue(form_, step, statusBar_);
    return Continue();
}

bool RunWindow::Continue() {
    return !torva_.ActivateDoEvents(form_);
}

void RunWindow::Log(const std::string& line) {
    if (style_ != Style::Quiet) {
        End();
        std::fprintf(stderr, "%s\n", line.c_str());
    }
}

void RunWindow::End() {
    if (drawn_) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
        drawn_ = false;
    }
}

void RunWindow::Draw() {
    if (style_ != Style::Bar) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    const int value = bar_.Value(u"Value").ToLong();
    const int percent = static_cast<int>(100.0 * value / steps_);
    if (percent == lastPercent_ || (now - lastDrawn_ < redraw_interval && value < steps_)) {
        return;
    }
    lastDrawn_ = now;
    lastPercent_ = percent;
    const int filled = std::clamp(bar_width * value / steps_, 0, bar_width);
    std::string line =
        "\r\033[K" + phase_ + " [" + std::string(static_cast<std::size_t>(filled), '#') +
        std::string(static_cast<std::size_t>(bar_width - filled), '.') + "] " +
        std::to_string(percent) + " %  " + torlib::ToUtf8(stage_.Value(u"Caption").ToText());
    if (time_.Value(u"Visible").ToBoolean()) {
        line += "  " + torlib::ToUtf8(time_.Value(u"Caption").ToText());
    }
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
    drawn_ = true;
}

} // namespace slab
