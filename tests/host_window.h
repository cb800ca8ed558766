#pragma once
// A host's window with the controls that the library addresses; writes what is done to it.
//
//     HostWindow window;
//     UnloadForm(window.Reference());
//     EXPECT_EQ(window.Log(), "Unload;");

#include "torlib/platform/component/dynamic_object.h"

#include <memory>
#include <string>
#include <utility>

namespace torlib::test {

class HostWindow {
  public:
    explicit HostWindow(int max = 7) {
        DynamicObject panels("Panels");
        panels.DefineMethod(u"Item", [log = log_](std::span<Argument> arguments) {
            *log += "Item" + ToUtf8(arguments.front().Value.ToText()) + "=" +
                    ToUtf8(arguments.back().Value.ToText()) + ";";
            return Variant();
        });
        DynamicObject bar = Watched("PrB", {u"Value", u"Max"});
        bar.Define(u"Max", max);
        form_.Define(u"Visible", true)
            .Define(u"PrB", bar.Reference())
            .Define(u"lbltime", Watched("lbltime", {u"Visible", u"Caption"}).Reference())
            .Define(u"LblStufe", Watched("LblStufe", {u"Caption"}).Reference())
            .Define(u"Panels", panels.Reference());
        for (const char16_t* name : {u"Unload", u"Refresh"}) {
            form_.DefineMethod(name, [log = log_, name](std::span<Argument>) {
                *log += ToUtf8(name) + ";";
                return Variant();
            });
        }
    }
    Object Reference() const { return form_.Reference(); }
    const std::string& Log() const { return *log_; }
    /// What was done since the last time.
    std::string Take() { return std::exchange(*log_, ""); }

  private:
    DynamicObject Watched(const std::string& name, std::initializer_list<const char16_t*> members) {
        DynamicObject object(name);
        for (const char16_t* member : members) {
            const std::string label = name + "." + ToUtf8(member) + "=";
            object.Define(member, 0).OnPut(member, [log = log_, label](const Variant& value) {
                *log += label + ToUtf8(value.ToText()) + ";";
            });
        }
        return object;
    }

    std::shared_ptr<std::string> log_ = std::make_shared<std::string>();
    DynamicObject form_ = Watched("window", {u"Visible", u"Caption"});
};

} // namespace torlib::test
