#include "hosts/python/arguments.h"

#include "hosts/python/array.h"
#include "hosts/python/borrowed_array.h"

namespace torlib::python {

namespace {

bool IsScalar(const ParameterType& type) {
    return !type.IsArray && type.Type != ValueType::Record;
}

bool MayBeNothing(const ParameterType& type) {
    return IsScalar(type) && (type.Type == ValueType::Object || type.Type == ValueType::Variant);
}

bool IsForeignArray(py::handle given) {
    return PyObject_CheckBuffer(given.ptr()) && !py::isinstance<PythonArray>(given);
}

} // namespace

RowArguments::RowArguments(const ClassInfo& info, const Member& member, const py::args& given)
    : member_(member) {
    values_.reserve(member.Count);
    for (std::size_t i = 0; i < member.Count; ++i) {
        try {
            values_.push_back(Convert(i, given[i]));
        } catch (const RunTimeError& error) {
            throw RunTimeError(error.Number(), ToUtf8(info.Name) + "." + ToUtf8(member.Name),
                               ToUtf8(member.Parameters[i].Name) + ": " + error.Description());
        }
    }
}

Variant RowArguments::Convert(std::size_t i, py::handle given) {
    const ParameterType& type = member_.Types[i];
    const bool required = member_.Parameters[i].Default == Parameter::DefaultKind::Required;
    if (given.is_none() && (!required || !MayBeNothing(type))) {
        if (required) {
            RaiseError(ErrorNumber::TypeMismatch, "None stands where a value must");
        }
        return Missing();
    }
    if (type.IsArray) {
        return ConvertArray(type, given);
    }
    Variant value = FromPython(given);
    if (type.Writable && IsScalar(type)) {
        return ByRef(variables_.emplace_back(value));
    }
    return value;
}

Variant RowArguments::ConvertArray(const ParameterType& type, py::handle given) {
    if (!IsForeignArray(given)) {
        return FromPython(given);
    }
    borrowed_.push_back(type.NewArray());
    BorrowMemory(*borrowed_.back(), given, type.Writable);
    return ByRef(*borrowed_.back());
}

py::object RowArguments::Results(const Variant& result) const {
    py::list results;
    if (member_.Return.Type != ValueType::None) {
        results.append(ToPython(result, member_.Return.TypeName));
    }
    for (std::size_t i = 0; i < member_.Count; ++i) {
        const ParameterType& type = member_.Types[i];
        if (type.Writable && IsScalar(type)) {
            results.append(ToPython(values_[i], type.TypeName));
        }
    }
    if (results.empty()) {
        return py::none();
    }
    return results.size() == 1 ? py::object(results[0]) : py::object(py::tuple(results));
}

LooseArguments::LooseArguments(const py::args& positional, const py::kwargs& named) {
    for (const py::handle given : positional) {
        values_.emplace_back(Convert(given));
    }
    for (const auto& [name, given] : named) {
        values_.emplace_back(Convert(given));
        values_.back().Name = TextFromPython(name);
    }
}

Variant LooseArguments::Convert(py::handle given) {
    if (py::isinstance<Variable>(given)) {
        return ByRef(given.cast<Variable&>().Value);
    }
    if (IsForeignArray(given)) {
        borrowed_.push_back(BorrowedAsItIs(given));
        return ByRef(*borrowed_.back());
    }
    return FromPython(given);
}

Variant LooseArguments::TakeLast() {
    if (values_.empty()) {
        throw py::type_error("the new value is missing");
    }
    Variant last = std::move(values_.back().Value);
    values_.pop_back();
    return last;
}

} // namespace torlib::python
