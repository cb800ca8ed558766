#include "hosts/python/records.h"

#include "hosts/python/array.h"
#include "hosts/python/tables.h"

namespace torlib::python {

namespace {

const RecordInfo& RecordInfoOf(std::u16string_view name) {
    for (const RecordInfo& info : Records()) {
        if (info.Name == name) {
            return info;
        }
    }
    RaiseError(ErrorNumber::TypeMismatch, "there is no record " + ToUtf8(name));
}

const RecordField& FieldOf(const PythonRecord& record, std::size_t field) {
    if (field >= record.Info->Fields.size()) {
        throw py::index_error("the record has no such field");
    }
    return record.Info->Fields[field];
}

py::object Get(const PythonRecord& record, std::size_t number) {
    const RecordField& field = FieldOf(record, number);
    void* const place = field.Locate(record.Memory.get());
    if (field.Type.IsArray) {
        return py::cast(PythonArray{{record.Memory, static_cast<SafeArray*>(place)}});
    }
    if (field.FixedUpper >= 0) {
        std::shared_ptr<SafeArray> array = field.Type.NewArray();
        array->Borrow(place, record.Memory, {0, field.FixedUpper});
        return py::cast(PythonArray{std::move(array)});
    }
    if (field.Type.Type == ValueType::Record) {
        return ViewOfRecord(field.Type.TypeName, {record.Memory, place});
    }
    return ToPython(ScalarAt(field.Type.Type, place), field.Type.TypeName);
}

void Put(const PythonRecord& record, std::size_t number, const py::object& value) {
    const RecordField& field = FieldOf(record, number);
    void* const place = field.Locate(record.Memory.get());
    if (field.Type.IsArray || field.FixedUpper >= 0) {
        throw py::attribute_error(ToUtf8(field.Name) +
                                  " is an array of the record's own: change its elements");
    }
    if (field.Type.Type == ValueType::Record) {
        AssignRecord(field.Type.TypeName, place, value);
    } else {
        ScalarAt(field.Type.Type, place).Assign(FromPython(value));
    }
}

std::size_t ScalarSize(ValueType type) {
    switch (type) {
        case ValueType::Integer:
            return 2;
        case ValueType::Double:
            return 8;
        case ValueType::Boolean:
            return 1;
        default:
            return 4;
    }
}

/// One field in the notation of the struct module and its size; an empty text when it has none.
std::pair<std::string, std::size_t> FieldFormat(const RecordField& field) {
    const bool boolean = field.Type.Type == ValueType::Boolean;
    if (field.Type.IsArray) {
        return {};
    }
    if (field.Type.Type == ValueType::Record) {
        return {RecordFormat(field.Type.TypeName), RecordInfoOf(field.Type.TypeName).Size};
    }
    const std::string format = boolean ? "?" : ElementFormat(field.Type.Type, nullptr);
    const std::size_t size = ScalarSize(field.Type.Type);
    if (field.FixedUpper < 0) {
        return {format, size};
    }
    const auto count = static_cast<std::size_t>(field.FixedUpper) + 1;
    return {"(" + std::to_string(count) + ")" + format, size * count};
}

} // namespace

py::object ViewOfRecord(std::u16string_view name, std::shared_ptr<void> memory) {
    const py::object type = PublishedClass(name);
    py::object record = type.attr("__new__")(type);
    py::type::of<PythonRecord>().attr("__init__")(
        record, py::cast(PythonRecord{&RecordInfoOf(name), std::move(memory)}));
    return record;
}

py::object CopyOfRecord(const RecordReference& record) {
    const RecordInfo& info = RecordInfoOf(record.Name);
    std::shared_ptr<void> memory = info.New();
    info.Assign(memory.get(), record.Address);
    return ViewOfRecord(info.Name, std::move(memory));
}

void AssignRecord(std::u16string_view name, void* target, py::handle value) {
    if (!py::isinstance<PythonRecord>(value) ||
        value.cast<const PythonRecord&>().Info->Name != name) {
        RaiseError(ErrorNumber::TypeMismatch, "a record " + ToUtf8(name) + " is needed");
    }
    const auto& record = value.cast<const PythonRecord&>();
    record.Info->Assign(target, record.Memory.get());
}

std::string RecordFormat(std::u16string_view name) {
    const RecordInfo& info = RecordInfoOf(name);
    const std::shared_ptr<void> sample = info.New();
    const auto* const start = static_cast<const char*>(sample.get());
    std::string format = "T{";
    std::size_t end = 0;
    const auto padTo = [&](std::size_t offset) {
        if (offset > end) {
            format += (offset - end > 1 ? std::to_string(offset - end) : "") + "x";
        }
    };
    for (const RecordField& field : info.Fields) {
        const auto [text, size] = FieldFormat(field);
        if (text.empty()) {
            return "";
        }
        const auto* const place = static_cast<const char*>(field.Locate(sample.get()));
        const auto offset = static_cast<std::size_t>(place - start);
        padTo(offset);
        format += text + ":" + ToUtf8(field.Name) + ":";
        end = offset + size;
    }
    padTo(info.Size);
    return format + "}";
}

void BindRecord(py::module_& module) {
    py::class_<PythonRecord>(module, "Record", "A record of the library; see its subclasses.")
        .def(py::init([](const std::string& name) {
            const RecordInfo& info = RecordInfoOf(FromUtf8(name));
            return PythonRecord{&info, info.New()};
        }))
        .def(py::init<const PythonRecord&>())
        .def("_get", &Get)
        .def("_put", &Put);
}

} // namespace torlib::python
