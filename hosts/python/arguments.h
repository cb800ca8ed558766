#pragma once
// The arguments of one late-bound call, made from Python values, and its results.

#include "hosts/python/constructed.h"
#include "hosts/python/values.h"

#include "torlib/frame/class_table.h"

#include <deque>

namespace torlib::python {

/// The arguments of a member that stands in a class table: one Python value for each parameter,
/// None for one that is left out.
class RowArguments {
  public:
    RowArguments(const ClassInfo& info, const Member& member, const py::args& given);

    const std::vector<Variant>& Values() const { return values_; }
    /// The result and the scalars that the member may change, in the order of declaration: nothing,
    /// one value, or a tuple.
    py::object Results(const Variant& result) const;

  private:
    Variant Convert(std::size_t i, py::handle given);
    Variant ConvertArray(const ParameterType& type, py::handle given);

    const Member& member_;
    std::vector<Variant> values_;
    std::deque<Variant> variables_;
    std::vector<std::unique_ptr<SafeArray>> borrowed_;
};

/// The arguments of a member of any late-bound object.
class LooseArguments {
  public:
    LooseArguments(const py::args& positional, const py::kwargs& named);

    const std::vector<Argument>& Values() const { return values_; }
    Variant TakeLast();

  private:
    Variant Convert(py::handle given);

    std::vector<Argument> values_;
    std::vector<std::unique_ptr<SafeArray>> borrowed_;
};

/// A variable for the by-reference scalars of any late-bound object.
struct Variable {
    Variant Value;
};

} // namespace torlib::python

template <>
struct pybind11::detail::type_caster<torlib::python::Variable>
    : torlib::python::ConstructedCaster<torlib::python::Variable> {};
