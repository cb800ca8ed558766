#pragma once
// Arguments for any member, made from its row of the class table with a seeded generator, and the
// state of everything the call may have changed as one text.

#include "torlib/frame/class_table.h"

#include "torlib/platform/component/dynamic_object.h"

#include <deque>
#include <random>

namespace torlib::test {

/// A host's window with the controls that the library addresses; writes what is done to it.
class HostWindow {
  public:
    HostWindow();
    Object Reference() const { return form_.Reference(); }
    const std::string& Log() const { return *log_; }

  private:
    DynamicObject Watched(const std::string& name, std::initializer_list<const char16_t*> members);

    std::shared_ptr<std::string> log_ = std::make_shared<std::string>();
    DynamicObject form_{"window"};
};

/// One set of arguments; the same seed and shape give the same values every time.
class GeneratedArguments {
  public:
    /// Bit k of `shape` says whether the k-th array parameter has two dimensions. In each fourth
    /// set all arrays of reals hold the same rising values, so that points coincide.
    GeneratedArguments(const Member& member, unsigned seed, unsigned shape);

    const std::vector<Variant>& Values() const { return values_; }
    /// What was done to each window.
    std::vector<std::string> Logs() const;
    /// Bounds and bits of every argument and what was done to every window.
    std::string State() const;

  private:
    Variant Make(const Parameter& parameter, const ParameterType& type, bool twoDimensions);
    Variant MakeScalar(const ParameterType& type);
    std::unique_ptr<SafeArray> MakeArray(const ParameterType& type, bool twoDimensions);
    template <class T>
    std::unique_ptr<SafeArray> Filled(bool twoDimensions);
    template <class T>
    T Value();
    int Whole(int low, int high);

    std::mt19937 random_;
    bool alike_;
    std::vector<Variant> values_;
    std::deque<Variant> variables_;
    std::vector<std::unique_ptr<SafeArray>> arrays_;
    std::deque<HostWindow> windows_;
};

/// Kind and bits of a value.
std::string BitsOf(const Variant& value);

/// Shapes to try: every combination; of many arrays in turn none and one with two dimensions.
std::vector<unsigned> Shapes(const Member& member);

} // namespace torlib::test
