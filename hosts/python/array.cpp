#include "hosts/python/array.h"

#include "hosts/python/records.h"
#include "hosts/python/tables.h"

#include <array>

namespace torlib::python {

namespace {

struct ElementKind {
    ValueType Type;
    const char* Name;      ///< as NumPy calls it
    const char* Published; ///< as the library calls it
    const char* Format;
    std::unique_ptr<SafeArray> (*New)();
};

constexpr ElementKind element_kinds[] = {
    {ValueType::Single, "float32", "Single", "f", &table::NewArray<Single>},
    {ValueType::Integer, "int16", "Integer", "h", &table::NewArray<Integer>},
    {ValueType::Long, "int32", "Long", "i", &table::NewArray<std::int32_t>},
    {ValueType::Double, "float64", "Double", "d", &table::NewArray<double>},
    {ValueType::String, "str", "String", "", &table::NewArray<std::u16string>},
};

/// The name in a dtype argument: a text, a class such as numpy.float32, or a numpy.dtype.
std::string NameOf(py::handle dtype) {
    if (py::isinstance<py::str>(dtype)) {
        return dtype.cast<std::string>();
    }
    const char* attribute = PyType_Check(dtype.ptr()) ? "__name__" : "name";
    return py::str(py::getattr(dtype, attribute, dtype)).cast<std::string>();
}

std::unique_ptr<SafeArray> NewArrayOf(py::handle dtype) {
    const std::string name = NameOf(dtype);
    for (const ElementKind& kind : element_kinds) {
        if (name == kind.Name || name == kind.Published) {
            return kind.New();
        }
    }
    if (auto array = NewNamedArray(FromUtf8(name))) {
        return array;
    }
    if (name == "float") {
        return table::NewArray<double>();
    }
    RaiseError(ErrorNumber::TypeMismatch,
               "dtype: there are no arrays of " + name +
                   "; it may be float32, int16, int32, float64, str, a record or an enumeration");
}

int WholeNumber(py::handle value) {
    const Py_ssize_t number = PyNumber_AsSsize_t(value.ptr(), PyExc_OverflowError);
    if (number == -1 && PyErr_Occurred()) {
        throw py::error_already_set();
    }
    return RoundToInt32(static_cast<double>(number));
}

Bounds BoundsFromPython(py::handle pair) {
    if (!PySequence_Check(pair.ptr()) || py::len(pair) != 2) {
        throw py::type_error("bounds are a pair (lower, upper)");
    }
    const auto both = py::reinterpret_borrow<py::sequence>(pair);
    return {WholeNumber(both[0]), WholeNumber(both[1])};
}

void ReDim(SafeArray& array, const py::args& sizes) {
    if (sizes.empty() || sizes.size() > 2) {
        throw py::type_error("an array has one or two dimensions");
    }
    const bool plain = PyIndex_Check(sizes[0].ptr());
    const bool both = sizes.size() == 2;
    if (plain) {
        const int n = WholeNumber(sizes[0]);
        both ? array.ReDim(n, WholeNumber(sizes[1])) : array.ReDim(n);
    } else {
        const Bounds rows = BoundsFromPython(sizes[0]);
        both ? array.ReDim(rows, BoundsFromPython(sizes[1])) : array.ReDim(rows);
    }
}

PythonArray NewFromPython(const py::args& bounds, const py::object& dtype) {
    PythonArray result{NewArrayOf(dtype)};
    if (!bounds.empty()) {
        ReDim(*result.Held, bounds);
    }
    return result;
}

Py_ssize_t Extent(const SafeArray& array, int dimension) {
    return Py_ssize_t{array.UBound(dimension)} - array.LBound(dimension) + 1;
}

std::string IndexText(int i, Bounds range) {
    return "index " + std::to_string(i) + " outside " + std::to_string(range.Lower) + ".." +
           std::to_string(range.Upper);
}

/// Address of the element at an index of as many whole numbers as there are dimensions.
void* AddressOf(SafeArray& array, py::handle index) {
    const bool several = PyTuple_Check(index.ptr());
    const auto indices = several ? py::reinterpret_borrow<py::tuple>(index) : py::make_tuple(index);
    if (static_cast<int>(indices.size()) != array.Dimensions()) {
        RaiseError(ErrorNumber::OutOfRange, std::to_string(indices.size()) +
                                                " indices given for an array of " +
                                                std::to_string(array.Dimensions()) + " dimensions");
    }
    Py_ssize_t place = 0;
    Py_ssize_t step = 1;
    for (int d = 1; d <= array.Dimensions(); ++d) {
        const int i = WholeNumber(indices[static_cast<std::size_t>(d - 1)]);
        const Bounds range{array.LBound(d), array.UBound(d)};
        if (i < range.Lower || i > range.Upper) {
            RaiseError(ErrorNumber::OutOfRange, IndexText(i, range));
        }
        place += (Py_ssize_t{i} - range.Lower) * step;
        step *= Extent(array, d);
    }
    return static_cast<char*>(array.RawData()) +
           place * static_cast<Py_ssize_t>(array.ElementSize());
}

/// a[:] or a[...]; a part would leave open whether it counts from the lower bound or from 0.
bool IsWhole(py::handle index) {
    return index.is(py::ellipsis()) || index.equal(py::slice(py::none(), py::none(), py::none()));
}

py::object NumPyView(const py::object& self) {
    return py::module_::import("numpy").attr("asarray")(self);
}

py::object GetItem(const py::object& self, const py::object& index) {
    const auto& array = self.cast<const PythonArray&>();
    if (IsWhole(index)) {
        return NumPyView(self).attr("__getitem__")(index);
    }
    void* const element = AddressOf(*array.Held, index);
    if (array.Held->ElementType() == ValueType::Record) {
        return ViewOfRecord(array.Held->RecordName(), {array.Held->Share(), element});
    }
    return ToPython(ScalarAt(array.Held->ElementType(), element), array.Held->RecordName());
}

void SetItem(const py::object& self, const py::object& index, const py::object& value) {
    const auto& array = self.cast<const PythonArray&>();
    if (IsWhole(index)) {
        NumPyView(self).attr("__setitem__")(index, value);
        return;
    }
    void* const element = AddressOf(*array.Held, index);
    if (array.Held->ElementType() == ValueType::Record) {
        AssignRecord(array.Held->RecordName(), element, value);
    } else {
        ScalarAt(array.Held->ElementType(), element).Assign(FromPython(value));
    }
}

py::iterator Iterate(const py::object& self) {
    const SafeArray& array = *self.cast<const PythonArray&>().Held;
    py::list elements;
    const Py_ssize_t lower = array.LBound();
    for (Py_ssize_t i = lower; i <= array.UBound(); ++i) {
        elements.append(GetItem(self, py::int_(i)));
    }
    return py::iter(elements);
}

std::string Representation(const PythonArray& array) {
    std::string text = "torlib.Array(";
    for (int d = 1; d <= array.Held->Dimensions(); ++d) {
        text += "(" + std::to_string(array.Held->LBound(d)) + ", " +
                std::to_string(array.Held->UBound(d)) + "), ";
    }
    return text + "dtype='" + ElementName(array.Held->ElementType(), array.Held->RecordName()) +
           "')";
}

/// What one look at the memory needs as long as it lasts.
struct Export {
    std::shared_ptr<void> Memory;
    std::string Format;
    std::array<Py_ssize_t, 2> Shape;
    std::array<Py_ssize_t, 2> Strides;
};

int Refuse(Py_buffer* view, const char* why) {
    view->obj = nullptr;
    PyErr_SetString(PyExc_BufferError, why);
    return -1;
}

int FillBuffer(PyObject* self, Py_buffer* view, int flags) {
    const SafeArray& array = *py::handle(self).cast<const PythonArray&>().Held;
    const int dimensions = array.Dimensions();
    std::string format = ElementFormat(array.ElementType(), array.RecordName());
    if (format.empty()) {
        return Refuse(view, "elements of this kind have no place in a buffer");
    }
    if (dimensions == 0) {
        return Refuse(view, "the array is not allocated");
    }
    const bool byRows = (flags & PyBUF_C_CONTIGUOUS) == PyBUF_C_CONTIGUOUS;
    if (dimensions == 2 && (byRows || (flags & PyBUF_STRIDES) != PyBUF_STRIDES)) {
        return Refuse(view, "an array of two dimensions is stored by columns");
    }
    const auto size = static_cast<Py_ssize_t>(array.ElementSize());
    const Py_ssize_t rows = Extent(array, 1);
    const Py_ssize_t columns = dimensions == 2 ? Extent(array, 2) : 1;
    auto* look = new Export{array.Share(), std::move(format), {rows, columns}, {size, size * rows}};
    *view = {};
    view->buf = look->Memory.get();
    view->obj = py::handle(self).inc_ref().ptr();
    view->len = size * rows * columns;
    view->itemsize = size;
    view->ndim = dimensions;
    view->format = (flags & PyBUF_FORMAT) != 0 ? look->Format.data() : nullptr;
    view->shape = (flags & PyBUF_ND) == PyBUF_ND ? look->Shape.data() : nullptr;
    view->strides = (flags & PyBUF_STRIDES) == PyBUF_STRIDES ? look->Strides.data() : nullptr;
    view->internal = look;
    return 0;
}

/// Called by the interpreter, which knows nothing of exceptions.
int GetBuffer(PyObject* self, Py_buffer* view, int flags) {
    try {
        return FillBuffer(self, view, flags);
    } catch (const std::exception& failure) {
        return Refuse(view, failure.what());
    }
}

void ReleaseBuffer(PyObject* /*self*/, Py_buffer* view) {
    delete static_cast<Export*>(view->internal);
}

void SetBufferSlots(PyHeapTypeObject* type) {
    type->ht_type.tp_as_buffer = &type->as_buffer;
    type->as_buffer.bf_getbuffer = GetBuffer;
    type->as_buffer.bf_releasebuffer = ReleaseBuffer;
}

constexpr const char* array_doc =
    "Array(*bounds, dtype='float32')\n\n"
    "An array of the library with the caller's bounds, all zero: Array((1, 5)) is 1..5,\n"
    "Array((1, 5), (1, 3)) is 1..5 x 1..3, Array(5) is 0..5, Array() is not allocated.\n"
    "dtype: float32, int16, int32, float64, str, a record class or an enumeration.\n"
    "a[i] and a[i, j] take the array's own bounds; a[:] is a NumPy view of the same memory,\n"
    "which counts from 0. While such a view lives, other bounds are error 10.";

} // namespace

std::shared_ptr<SafeArray> SharedView(SafeArray& array) {
    std::shared_ptr<SafeArray> view = array.NewLike();
    const Bounds rows = array.Dimensions() > 0 ? Bounds{array.LBound(), array.UBound()} : Bounds{};
    if (array.Dimensions() == 1) {
        view->Borrow(array.RawData(), array.Share(), rows);
    } else if (array.Dimensions() == 2) {
        view->Borrow(array.RawData(), array.Share(), rows, {array.LBound(2), array.UBound(2)});
    }
    return view;
}

std::string ElementFormat(ValueType type, const char16_t* recordName) {
    if (type == ValueType::Record) {
        return RecordFormat(recordName);
    }
    for (const ElementKind& kind : element_kinds) {
        if (kind.Type == type) {
            return kind.Format;
        }
    }
    return "";
}

std::string ElementName(ValueType type, const char16_t* recordName) {
    if (recordName) {
        return ToUtf8(recordName);
    }
    for (const ElementKind& kind : element_kinds) {
        if (kind.Type == type) {
            return kind.Name;
        }
    }
    return "nothing";
}

void BindArray(py::module_& module) {
    py::class_<PythonArray>(module, "Array", py::custom_type_setup(SetBufferSlots), array_doc)
        .def(py::init(&NewFromPython), py::kw_only(), py::arg("dtype") = "float32")
        .def_property_readonly(
            "Dimensions", [](const PythonArray& self) { return self.Held->Dimensions(); },
            "0 for an array that is not allocated, else 1 or 2.")
        .def(
            "LBound",
            [](const PythonArray& self, int dimension) { return self.Held->LBound(dimension); },
            py::arg("dimension") = 1, "Lower bound of dimension 1 or 2.")
        .def(
            "UBound",
            [](const PythonArray& self, int dimension) { return self.Held->UBound(dimension); },
            py::arg("dimension") = 1, "Upper bound of dimension 1 or 2.")
        .def(
            "ReDim",
            [](const PythonArray& self, const py::args& bounds) { ReDim(*self.Held, bounds); },
            "New bounds, all zero: ReDim(n) is 0..n, ReDim((1, n)) is 1..n.")
        .def(
            "ReDimPreserve", [](const PythonArray& self, int n) { self.Held->ReDimPreserve(n); },
            py::arg("n"), "New bounds 0..n; what both ranges hold stays.")
        .def("__len__",
             [](const PythonArray& self) {
                 return self.Held->Dimensions() > 0 ? Extent(*self.Held, 1) : 0;
             })
        .def("__iter__", &Iterate)
        .def("__getitem__", &GetItem)
        .def("__setitem__", &SetItem)
        .def("__repr__", &Representation);
}

} // namespace torlib::python
