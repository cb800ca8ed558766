#include "hosts/python/values.h"

#include "hosts/python/array.h"
#include "hosts/python/objects.h"
#include "hosts/python/records.h"
#include "hosts/python/tables.h"

#include <limits>

namespace torlib::python {

namespace {

Variant NumberFromPython(py::handle value) {
    int overflow = 0;
    const long long whole = PyLong_AsLongLongAndOverflow(value.ptr(), &overflow);
    if (overflow != 0) {
        const double number = PyLong_AsDouble(value.ptr());
        if (number == -1 && PyErr_Occurred()) {
            PyErr_Clear();
            RaiseError(ErrorNumber::Overflow, "the whole number is too large");
        }
        return number;
    }
    if (whole < std::numeric_limits<std::int32_t>::min() ||
        whole > std::numeric_limits<std::int32_t>::max()) {
        return static_cast<double>(whole);
    }
    return static_cast<std::int32_t>(whole);
}

/// NumPy's truth value is neither a bool nor a whole number to Python.
bool IsTruthValue(py::handle value) {
    static constexpr std::string_view names[] = {"numpy.bool_", "numpy.bool"};
    return PyBool_Check(value.ptr()) || Py_TYPE(value.ptr())->tp_name == names[0] ||
           Py_TYPE(value.ptr())->tp_name == names[1];
}

/// A member of the enumeration of this name, when there is one for the number.
py::object NamedNumber(long number, const char16_t* typeName) {
    py::int_ plain(number);
    const py::object named = typeName ? PublishedClass(typeName) : py::none();
    if (named.is_none()) {
        return plain;
    }
    const auto known = named.attr("_value2member_map_").cast<py::dict>();
    return known.contains(plain) ? py::object(known[plain]) : py::object(plain);
}

bool HasFloat(py::handle value) {
    const PyNumberMethods* numbers = Py_TYPE(value.ptr())->tp_as_number;
    return numbers && numbers->nb_float && !PyObject_HasAttrString(value.ptr(), "__len__");
}

} // namespace

py::str TextToPython(std::u16string_view text) {
    int littleEndian = -1;
    PyObject* result = PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.data()),
                                             static_cast<Py_ssize_t>(text.size() * 2),
                                             "surrogatepass", &littleEndian);
    if (!result) {
        throw py::error_already_set();
    }
    return py::reinterpret_steal<py::str>(result);
}

std::u16string TextFromPython(py::handle text) {
    const auto bytes = py::reinterpret_steal<py::bytes>(
        PyUnicode_AsEncodedString(text.ptr(), "utf-16-le", "surrogatepass"));
    if (!bytes) {
        throw py::error_already_set();
    }
    const std::string_view view = bytes;
    std::u16string result(view.size() / 2, u'\0');
    view.copy(reinterpret_cast<char*>(result.data()), view.size());
    return result;
}

py::object ToPython(const Variant& value, const char16_t* typeName) {
    const Variant plain = value.Dereferenced();
    return std::visit(
        [typeName]<class T>(const T& held) -> py::object {
            if constexpr (std::is_same_v<T, bool>) {
                return py::bool_(held);
            } else if constexpr (std::is_integral_v<T>) {
                return NamedNumber(held, typeName);
            } else if constexpr (std::is_floating_point_v<T>) {
                return py::float_(double{held});
            } else if constexpr (std::is_same_v<T, std::u16string>) {
                return TextToPython(held);
            } else if constexpr (std::is_same_v<T, Object>) {
                return WrapObject(held);
            } else if constexpr (std::is_same_v<T, std::shared_ptr<SafeArray>>) {
                return held ? py::cast(PythonArray{held}) : py::none();
            } else if constexpr (std::is_same_v<T, SafeArray*>) {
                return py::cast(PythonArray{SharedView(*held)});
            } else if constexpr (std::is_same_v<T, RecordReference>) {
                return CopyOfRecord(held);
            } else {
                return py::none();
            }
        },
        plain.Value());
}

Variant FromPython(py::handle value) {
    if (value.is_none()) {
        return {};
    }
    if (IsTruthValue(value)) {
        return PyObject_IsTrue(value.ptr()) == 1;
    }
    if (PyLong_Check(value.ptr())) {
        return NumberFromPython(value);
    }
    if (PyUnicode_Check(value.ptr())) {
        return TextFromPython(value);
    }
    if (py::isinstance<LibraryObject>(value)) {
        return value.cast<const LibraryObject&>().Held;
    }
    if (py::isinstance<PythonArray>(value)) {
        return value.cast<const PythonArray&>().Held;
    }
    if (py::isinstance<PythonRecord>(value)) {
        return value.cast<const PythonRecord&>().Reference();
    }
    if (PyIndex_Check(value.ptr()) && !PyObject_HasAttrString(value.ptr(), "__len__")) {
        const auto whole = py::reinterpret_steal<py::object>(PyNumber_Index(value.ptr()));
        if (whole) {
            return NumberFromPython(whole);
        }
        throw py::error_already_set();
    }
    if (PyFloat_Check(value.ptr()) || HasFloat(value)) {
        const double number = PyFloat_AsDouble(value.ptr());
        if (number == -1 && PyErr_Occurred()) {
            throw py::error_already_set();
        }
        return number;
    }
    return ObjectFromPython(value);
}

Variant ScalarAt(ValueType type, void* address) {
    switch (type) {
        case ValueType::Integer:
            return Variant::Reference(static_cast<std::int16_t*>(address));
        case ValueType::Long:
            return Variant::Reference(static_cast<std::int32_t*>(address));
        case ValueType::Single:
            return Variant::Reference(static_cast<float*>(address));
        case ValueType::Double:
            return Variant::Reference(static_cast<double*>(address));
        case ValueType::Boolean:
            return Variant::Reference(static_cast<bool*>(address));
        case ValueType::String:
            return Variant::Reference(static_cast<std::u16string*>(address));
        default:
            RaiseError(ErrorNumber::TypeMismatch, "the element is no number and no text");
    }
}

} // namespace torlib::python
