#pragma once
// A late-bound object that is put together at run time from named properties and methods: forms,
// controls and the host's own windows are made of it.
//
//     DynamicObject bar;                       // shares; copies are the same object
//     bar.Define(u"Max", 100).Define(u"Value", 0);
//     bar.OnPut(u"Value", [](const Variant& v) { Draw(v.ToDouble()); });
//     form.Define(u"PrB", bar.Reference());

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

    /// Adds a readable and writable property, or changes its value.
    DynamicObject& Define(std::u16string_view property, Variant value);
    /// Adds a method; an indexed property-put arrives as a call with the value last.
    DynamicObject& DefineMethod(std::u16string_view name, Method method);
    /// Called after each late-bound write of the property, with the new value.
    DynamicObject& OnPut(std::u16string_view property, Watcher watcher);
    /// The value of a property as it stands; raises 438 when there is none.
    Variant Value(std::u16string_view property) const;
    Object Reference() const { return object_; }

  private:
    class Body;

    Body* body_;
    Object object_;
};

} // namespace torlib
