#pragma once
// The host's calculation window on a terminal: plays the form that the library's long routines
// address by name, draws a progress bar, and carries the cancel.
//
//     RunWindow window(RunWindow::Style::Bar);
//     window.Begin("Elimination", equations);
//     fem.SolveMatrix(Nw, N3, A, Q, window.Form(), true, window.StatusBar());
//     for (int i = 1; i <= n; ++i) { if (!window.Step(i)) return; ... }   // the host's own loops

#include "torlib/fem/fem_class.h"
#include "torlib/platform/component/dynamic_object.h"
#include "torlib/ui/torva_class.h"

#include <chrono>
#include <string>

namespace slab {

class RunWindow {
  public:
    enum class Style { Bar, Lines, Quiet };

    explicit RunWindow(Style style);
    RunWindow(const RunWindow&) = delete;
    RunWindow& operator=(const RunWindow&) = delete;
    ~RunWindow();

    /// Starts a phase of the run with this many steps; 16 bits hold the step number.
    void Begin(const std::string& phase, int steps);
    /// Shows step 1..steps of the current phase and polls; false when the user asked to cancel.
    bool Step(int step);
    /// Polls without showing a step; false when the user asked to cancel.
    bool Continue();
    /// A line on the log (standard error), unless quiet.
    void Log(const std::string& line);
    /// Clears the bar.
    void End();

    const torlib::Object& Form() const { return form_; }
    const torlib::Object& StatusBar() const { return statusBar_; }

  private:
    void Draw();

    Style style_;
    std::string phase_;
    int steps_ = 1;
    bool drawn_ = false;
    int lastPercent_ = -1;
    std::chrono::steady_clock::time_point lastDrawn_{};
    torlib::DynamicObject bar_;
    torlib::DynamicObject time_;
    torlib::DynamicObject stage_;
    torlib::DynamicObject window_;
    torlib::DynamicObject statusBarObject_;
    torlib::Object form_;
    torlib::Object statusBar_;
    torlib::FEM_Class fem_;
    torlib::TORVAClass torva_;
};

} // namespace slab
