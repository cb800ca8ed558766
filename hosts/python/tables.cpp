#include "hosts/python/tables.h"

#include "hosts/python/arguments.h"
#include "hosts/python/array.h"
#include "hosts/python/objects.h"
#include "hosts/python/running_call.h"

#include "torlib/frame/class_object.h"
#include "torlib/frame/enumeration_table.h"
#include "torlib/frame/record_table.h"
#include "torlib/server/class_list.h"

namespace torlib::python {

namespace {

py::dict& Published() {
    static auto* published = new py::dict; // outlives the interpreter's own clean-up
    return *published;
}

/// A row of a class table; calling it calls the member of an instance.
struct Row {
    const ClassInfo* Class;
    const Member* Of;
    std::int32_t Number;
};

/// The numbers of a class's members are those of its own objects alone.
void RequireClass(const Row& row, const Object& object) {
    void* found = nullptr;
    if (!object || object.Pointer()->QueryInterface(row.Class->InterfaceId, &found) != Result::Ok) {
        RaiseError(ErrorNumber::TypeMismatch, ToUtf8(row.Of->Name) + " is a member of " +
                                                  ToUtf8(row.Class->Name) +
                                                  ", which the object is not");
    }
    static_cast<Dispatch*>(found)->Release();
}

py::object CallRow(const Row& row, const LibraryObject& self, const py::args& given) {
    RequireClass(row, self.Held);
    const RowArguments arguments(*row.Class, *row.Of, given);
    RunningCall call;
    const Variant result = call.Run([&] {
        if (row.Of->Kind != MemberKind::PropertyPut) {
            return self.Held.InvokeNumber(row.Number, arguments.Values());
        }
        self.Held.PutNumber(row.Number, arguments.Values());
        return Variant();
    });
    return arguments.Results(result);
}

/// The Python type of a parameter, field or result, for documentation.
std::string TypeText(const ParameterType& type) {
    static constexpr const char* scalars[] = {"None", "int", "int",    "float",  "float",
                                              "bool", "str", "object", "object", "record"};
    if (type.IsArray) {
        return "array of " + ElementName(type.Type, type.TypeName);
    }
    return type.TypeName ? ToUtf8(type.TypeName) : scalars[static_cast<std::size_t>(type.Type)];
}

py::object DefaultOf(const Parameter& parameter) {
    switch (parameter.Default) {
        case Parameter::DefaultKind::Boolean:
            return py::bool_(parameter.Value != 0);
        case Parameter::DefaultKind::Number:
            return py::int_(parameter.Value);
        default:
            return py::none();
    }
}

/// Name, kind ("method", "get", "put"), documentation, parameters (name, type, whether the call
/// changes it, whether it is optional, default), type of the result, and the row to call.
py::tuple MemberData(const ClassInfo& info, const Member& member) {
    static constexpr const char* kinds[] = {"method", "get", "put", "reserved"};
    py::list parameters;
    for (std::size_t i = 0; i < member.Count; ++i) {
        const Parameter& parameter = member.Parameters[i];
        const ParameterType& type = member.Types[i];
        parameters.append(py::make_tuple(
            TextToPython(parameter.Name), TypeText(type), type.Writable,
            parameter.Default != Parameter::DefaultKind::Required, DefaultOf(parameter)));
    }
    return py::make_tuple(TextToPython(member.Name), kinds[static_cast<std::size_t>(member.Kind)],
                          TextToPython(member.Doc), parameters, TypeText(member.Return),
                          Row{&info, &member, info.NumberOf(member.Name)});
}

py::list ClassData() {
    py::list classes;
    for (const ClassInfo* info : BuiltClasses()) {
        py::list members;
        for (const Member& member : info->Members) {
            if (member.Kind != MemberKind::Reserved) {
                members.append(MemberData(*info, member));
            }
        }
        classes.append(py::make_tuple(TextToPython(info->Name), TextToPython(info->Doc), members));
    }
    return classes;
}

py::list RecordData() {
    py::list records;
    for (const RecordInfo& info : Records()) {
        py::list fields;
        for (const RecordField& field : info.Fields) {
            fields.append(py::make_tuple(TextToPython(field.Name), TypeText(field.Type),
                                         field.Type.IsArray || field.FixedUpper >= 0));
        }
        records.append(py::make_tuple(TextToPython(info.Name), TextToPython(info.Doc), fields));
    }
    return records;
}

py::list EnumerationData() {
    py::list enumerations;
    for (const EnumerationInfo& info : Enumerations()) {
        py::list values;
        for (const EnumerationValue& value : info.Values) {
            values.append(py::make_tuple(TextToPython(value.Name), value.Value));
        }
        enumerations.append(py::make_tuple(TextToPython(info.Name), values));
    }
    return enumerations;
}

const ClassInfo& InfoOf(std::u16string_view name) {
    for (const ClassInfo* info : BuiltClasses()) {
        if (info->Name == name) {
            return *info;
        }
    }
    RaiseError(ErrorNumber::CannotCreateObject, "there is no class " + ToUtf8(name));
}

} // namespace

py::object PublishedClass(std::u16string_view name) {
    const py::str key = TextToPython(name);
    return Published().contains(key) ? py::object(Published()[key]) : py::none();
}

py::object ClassOf(const Object& object) {
    for (const ClassInfo* info : BuiltClasses()) {
        void* found = nullptr;
        if (object.Pointer()->QueryInterface(info->InterfaceId, &found) == Result::Ok) {
            static_cast<Dispatch*>(found)->Release();
            return PublishedClass(info->Name);
        }
    }
    return py::type::of<LibraryObject>();
}

Object NewInstance(std::u16string_view className) {
    return NewObject(InfoOf(className));
}

std::unique_ptr<SafeArray> NewNamedArray(std::u16string_view name) {
    const auto fits = [name](const ParameterType& type) {
        return type.NewArray && type.TypeName && type.TypeName == name;
    };
    for (const RecordInfo& record : Records()) {
        if (record.Name == name) {
            return record.NewArray();
        }
        for (const RecordField& field : record.Fields) {
            if (fits(field.Type)) {
                return field.Type.NewArray();
            }
        }
    }
    for (const ClassInfo* info : BuiltClasses()) {
        for (const Member& member : info->Members) {
            for (const ParameterType& type : member.Types) {
                if (fits(type)) {
                    return type.NewArray();
                }
            }
        }
    }
    return nullptr;
}

void BindTables(py::module_& module) {
    py::class_<Row>(module, "Row").def("__call__", &CallRow);
    module.def("classes", &ClassData);
    module.def("records", &RecordData);
    module.def("enumerations", &EnumerationData);
    module.def("default_object", [](const std::string& className) {
        return WrapObject(DefaultObject(InfoOf(FromUtf8(className))));
    });
    module.def("publish", [](const std::string& name, const py::object& type) {
        Published()[name.c_str()] = type;
    });
}

} // namespace torlib::python
