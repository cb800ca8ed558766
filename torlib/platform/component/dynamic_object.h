#pragma once
// A late-bound object that is put together at run time from named properties, methods and events:
// forms, controls and the host's own windows are made of it.
//
//     DynamicObject bar;                       // shares; copies are the same object
//     bar.Define(u"Max", ValueType::Single, 100).Define(u"Value", ValueType::Single, 0);
//     bar.OnPut(u"Value", [](const Variant& v) { Draw(v.ToDouble()); });
//     form.Define(u"PrB", bar.Reference()).DefineEvent(u"Click");
//     form.Raise(u"Click");
//     bar.Reset();                             // as it was defined

#include "torlib/platform/component/object.h"

#include <functional>
#include <memory>

namespace torlib {

class TORLIB_API DynamicObject {
  public:
    using Method = std::function<Variant(std::span<Argument>)>;
    using Watcher = std::function<void(const Variant&)>;

    /// The name stands in error messages in front of the member's name.
    explicit DynamicObject(std::string name = "object");

    /// Adds a readable and writable property that takes any value, or defines it anew. The value is
    /// also what Reset puts back.
    DynamicObject& Define(std::u16string_view property, const Variant& value);
    /// The same for a property of one type: what is written is converted to it, with 13 for a value
    /// that has no meaning in it, 6 for one outside its range and 424 for what is no object.
    /// Records are no type of a property (13).
    DynamicObject& Define(std::u16string_view property, ValueType type, const Variant& value);
    /// Adds a method; an indexed property-put arrives as a call with the value last.
    DynamicObject& DefineMethod(std::u16string_view name, Method method);
    /// Called after each late-bound write of the property, with the new value.
    DynamicObject& OnPut(std::u16string_view property, Watcher watcher);
    /// Adds an event, of a name that is new here, that handlers can be connected to.
    DynamicObject& DefineEvent(std::u16string_view event);
    /// Raises an event; see EventConnections::Raise.
    void Raise(std::u16string_view event, const std::vector<Argument>& arguments = {}) const;
    /// Puts back the values that the properties were defined with. Once all are back, the watchers
    /// of those that had been written since are told; the first error of a watcher ends this.
    void Reset() const;
    /// The value of a property as it stands; raises 438 when there is none.
    Variant Value(std::u16string_view property) const;
    Object Reference() const { return object_; }

  private:
    class Body;

    Body* body_;
    Object object_;
};

} // namespace torlib
