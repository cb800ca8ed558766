#include "hosts/python/objects.h"

#include "hosts/python/arguments.h"
#include "hosts/python/event_handlers.h"
#include "hosts/python/running_call.h"
#include "hosts/python/tables.h"

#include "torlib/frame/class_object.h"
#include "torlib/platform/component/counted_object.h"
#include "torlib/platform/component/create_object.h"
#include "torlib/platform/component/exception_boundary.h"
#include "torlib/platform/component/nearest_names.h"
#include "torlib/server/class_list.h"

#include <algorithm>
#include <unordered_map>

namespace torlib::python {

namespace {

/// Only objects of this module answer to it.
constexpr Guid iid_python_object{
    0x7a3c1c10, 0x52d1, 0x4e0e, {0x9d, 0x6b, 0x0c, 0x41, 0x5e, 0x28, 0x70, 0x01}};

class PythonObject;
std::unordered_map<PyObject*, PythonObject*>& Held() {
    static std::unordered_map<PyObject*, PythonObject*> held;
    return held;
}

/// The attribute of this name, or else of one that differs in letters' case alone.
py::str AttributeName(py::handle object, std::u16string_view name) {
    py::str exact = TextToPython(name);
    if (py::hasattr(object, exact)) {
        return exact;
    }
    const auto all = py::reinterpret_steal<py::list>(PyObject_Dir(object.ptr()));
    if (!all) {
        throw py::error_already_set();
    }
    for (const py::handle known : all) {
        if (SameName(TextFromPython(known), name)) {
            return py::reinterpret_borrow<py::str>(known);
        }
    }
    return exact;
}

class PythonObject final : public CountedObject<Dispatch> {
  public:
    explicit PythonObject(py::handle object)
        : CountedObject(0), object_(py::reinterpret_borrow<py::object>(object)) {
        Held()[object_.ptr()] = this;
    }
    ~PythonObject() override {
        const py::gil_scoped_acquire gil;
        Held().erase(object_.ptr());
        object_ = py::object();
    }

    Result Invoke(std::u16string_view member, InvokeKind kind, std::span<Argument> arguments,
                  Variant* result, ErrorRecord* error) override {
        const py::gil_scoped_acquire gil;
        try {
            Variant value = kind == InvokeKind::PropertyPut ? Put(member, arguments)
                                                            : Read(member, kind, arguments);
            if (result) {
                *result = std::move(value);
            }
            return Result::Ok;
        } catch (...) {
            return EndCall(error, member);
        }
    }

    /// A number stands for the name: what Python finds under it may change from call to call.
    std::int32_t NumberOf(std::u16string_view member) override {
        const py::gil_scoped_acquire gil;
        try {
            const py::str name = AttributeName(object_, member);
            return py::hasattr(object_, name) ? NumberOfName(TextFromPython(name)) : 0;
        } catch (const std::exception&) {
            return 0;
        }
    }
    std::int32_t ParameterNumberOf(std::int32_t, std::u16string_view parameter) override {
        return NumberOfName(std::u16string(parameter));
    }
    Result InvokeNumber(std::int32_t member, InvokeKind kind, std::span<const Variant> arguments,
                        std::span<const std::int32_t> named, Variant* result,
                        ErrorRecord* error) override {
        std::vector<Argument> values(arguments.begin(), arguments.end());
        const std::size_t positional = values.size() - std::min(named.size(), values.size());
        for (std::size_t i = positional; i < values.size(); ++i) {
            values[i].Name = NameOfNumber(named[i - positional]);
        }
        return Invoke(NameOfNumber(member), kind, values, result, error);
    }

    const py::object& Value() const { return object_; }

  protected:
    bool Answers(const Guid& interface) const override {
        return interface == IidDispatch || interface == iid_python_object;
    }

  private:
    std::string TypeName() const { return Py_TYPE(object_.ptr())->tp_name; }

    /// The exception that is being handled: one of Python's is kept for the running call.
    Result EndCall(ErrorRecord* error, std::u16string_view member) const noexcept {
        try {
            try {
                throw;
            } catch (const py::error_already_set& failure) {
                ErrorRecord record =
                    RunningCall::KeepError(failure, TypeName() + "." + ToUtf8(member));
                if (error) {
                    *error = std::move(record);
                }
                return Result::Exception;
            }
        } catch (...) { // also what describing the exception itself has raised
            return EndException(error, Py_TYPE(object_.ptr())->tp_name, member,
                                MemberAtWork::Called);
        }
    }

    static void Split(std::span<Argument> arguments, py::list& positional, py::dict& named) {
        for (const Argument& argument : arguments) {
            const py::object value = ToPython(argument.Value);
            if (argument.Name.empty()) {
                positional.append(value);
            } else {
                named[TextToPython(argument.Name)] = value;
            }
        }
    }

    /// One index as it is, several as a tuple.
    static py::object IndexOf(const py::list& arguments, std::size_t count) {
        py::tuple indices(count);
        for (std::size_t i = 0; i < count; ++i) {
            indices[i] = arguments[i];
        }
        return count == 1 ? py::object(indices[0]) : std::move(indices);
    }

    Variant Read(std::u16string_view member, InvokeKind kind, std::span<Argument> arguments) {
        const py::object found = py::getattr(object_, AttributeName(object_, member));
        const bool callable = PyCallable_Check(found.ptr()) && !PyType_Check(found.ptr());
        const bool call = kind != InvokeKind::PropertyGet && callable;
        if (!call && arguments.empty()) {
            return FromPython(found);
        }
        py::list positional;
        py::dict named;
        Split(arguments, positional, named);
        return FromPython(call ? found(*positional, **named)
                               : py::object(found[IndexOf(positional, positional.size())]));
    }

    /// With indices: a method is called with the value last, anything else takes an item; an object
    /// without a member Item is its own.
    Variant Put(std::u16string_view member, std::span<Argument> arguments) {
        if (arguments.empty()) {
            RaiseError(ErrorNumber::WrongArgumentCount, "the new value is missing");
        }
        const py::str name = AttributeName(object_, member);
        const py::object value = ToPython(arguments.back().Value);
        if (arguments.size() == 1) {
            py::setattr(object_, name, value);
            return {};
        }
        py::list positional;
        py::dict named;
        Split(arguments, positional, named);
        const bool own = SameName(member, u"Item") && !py::hasattr(object_, name);
        const py::object target = own ? object_ : py::getattr(object_, name);
        if (PyCallable_Check(target.ptr())) {
            target(*positional, **named);
            return {};
        }
        target[IndexOf(positional, positional.size() - 1)] = value;
        return {};
    }

    std::int32_t NumberOfName(const std::u16string& name) {
        const auto at = std::find(names_.begin(), names_.end(), name);
        if (at != names_.end()) {
            return static_cast<std::int32_t>(at - names_.begin()) + 1;
        }
        names_.push_back(name);
        return static_cast<std::int32_t>(names_.size());
    }
    std::u16string NameOfNumber(std::int32_t number) const {
        const auto place = static_cast<std::size_t>(number) - 1;
        return place < names_.size() ? names_[place]
                                     : u"member_" + FromUtf8(std::to_string(number));
    }

    py::object object_;
    std::vector<std::u16string> names_; // of members and parameters that were given a number
};

/// Live Python instances of library objects by the object's address.
py::object& Instances() {
    static auto* instances =
        new py::object(py::module_::import("weakref").attr("WeakValueDictionary")());
    return *instances; // never destroyed: that would be after the interpreter's end
}

py::int_ KeyOf(const Object& object) {
    return py::int_(reinterpret_cast<std::uintptr_t>(object.Pointer()));
}

PythonObject* OwnObject(const Object& object) {
    void* found = nullptr;
    if (object.Pointer()->QueryInterface(iid_python_object, &found) != Result::Ok) {
        return nullptr;
    }
    auto* own = static_cast<PythonObject*>(static_cast<Dispatch*>(found));
    own->Release();
    return own;
}

Variant InvokeByName(const LibraryObject& self, const std::string& member,
                     const py::args& positional, const py::kwargs& named, bool put) {
    LooseArguments arguments(positional, named);
    RunningCall call;
    return call.Run([&] {
        const std::u16string name = FromUtf8(member);
        if (put) {
            const Variant value = arguments.TakeLast();
            self.Held.PutIndexed(name, arguments.Values(), value);
            return Variant();
        }
        return self.Held.Invoke(name, arguments.Values());
    });
}

/// The class of this library that an identifier means, or nullptr.
const ClassInfo* OwnClass(const std::u16string& identifier) {
    const std::u16string prefix = std::u16string(LibraryName) + u".";
    for (const ClassInfo* info : BuiltClasses()) {
        Guid classId;
        if (SameName(identifier, prefix + std::u16string(info->Name)) ||
            (ParseGuid(identifier, &classId) && classId == info->ClassId)) {
            return info;
        }
    }
    return nullptr;
}

/// The library makes objects of its own classes itself, registered or not.
Object CreateByIdentifier(const std::string& identifier) {
    const std::u16string text = FromUtf8(identifier);
    const ClassInfo* own = OwnClass(text);
    return own ? NewObject(*own) : CreateObject(text);
}

/// The name of an own class, or None.
py::object OwnClassName(const std::string& identifier) {
    const ClassInfo* own = OwnClass(FromUtf8(identifier));
    return own ? TextToPython(own->Name) : py::object(py::none());
}

} // namespace

py::object WrapObject(const Object& object) {
    if (!object) {
        return py::none();
    }
    if (const PythonObject* own = OwnObject(object)) {
        return own->Value();
    }
    const py::int_ key = KeyOf(object);
    py::object known = Instances().attr("get")(key);
    if (!known.is_none()) {
        return known;
    }
    const py::object type = ClassOf(object);
    py::object instance = type.attr("__new__")(type);
    py::type::of<LibraryObject>().attr("__init__")(instance, py::cast(LibraryObject{object}));
    Instances()[key] = instance;
    return instance;
}

Object ObjectFromPython(py::handle object) {
    const auto known = Held().find(object.ptr());
    return Object(known != Held().end() ? known->second : new PythonObject(object));
}

void BindObject(py::module_& module) {
    py::class_<LibraryObject> object(module, "Object",
                                     "A late-bound object: its members are reached by name.");
    BindEvents(object);
    object.def(py::init<const LibraryObject&>())
        .def(py::init([](const std::string& className) {
            return LibraryObject{NewInstance(FromUtf8(className))};
        }))
        .def(
            "Get",
            [](const LibraryObject& self, const std::string& property) {
                return ToPython(InvokeByName(self, property, py::args(), py::kwargs(), false));
            },
            "Reads a property.")
        .def(
            "Put",
            [](const LibraryObject& self, const std::string& property, const py::args& arguments) {
                InvokeByName(self, property, arguments, py::kwargs(), true);
            },
            "Put(property, [indices...], value): sets a property.")
        .def(
            "Invoke",
            [](const LibraryObject& self, const std::string& member, const py::args& positional,
               const py::kwargs& named) {
                return ToPython(InvokeByName(self, member, positional, named, false));
            },
            "Invoke(member, *arguments, **named): calls a method.");
    module.def("remember", [](const py::object& instance) {
        Instances()[KeyOf(instance.cast<const LibraryObject&>().Held)] = instance;
    });
    module.def("own_class", &OwnClassName);
    module.def("registered_default", [](const std::string& identifier) {
        return WrapObject(DefaultObject(FromUtf8(identifier)));
    });
    module.def(
        "CreateObject",
        [](const std::string& identifier) { return WrapObject(CreateByIdentifier(identifier)); },
        py::arg("identifier"),
        "A new object by programmatic or class identifier: of this library, or of a server in the\n"
        "component registry.");
}

} // namespace torlib::python
