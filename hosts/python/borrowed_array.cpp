#include "hosts/python/borrowed_array.h"

#include "hosts/python/array.h"

#include <vector>

namespace torlib::python {

namespace {

/// A buffer that is held until the last array in its memory is gone.
class HeldBuffer {
  public:
    HeldBuffer(py::handle value, int flags) {
        if (PyObject_GetBuffer(value.ptr(), &view, flags) != 0) {
            throw py::error_already_set();
        }
    }
    HeldBuffer(const HeldBuffer&) = delete;
    HeldBuffer& operator=(const HeldBuffer&) = delete;
    ~HeldBuffer() {
        const py::gil_scoped_acquire gil;
        PyBuffer_Release(&view);
    }

    Py_buffer view{};
};

[[noreturn]] void RaiseUnfit(const std::string& why) {
    RaiseError(ErrorNumber::TypeMismatch, why);
}

/// The format without the mark of native byte order.
std::string_view NativeFormat(const Py_buffer& view) {
    std::string_view format = view.format ? view.format : "B";
    if (!format.empty() && (format[0] == '@' || format[0] == '=' || format[0] == '<')) {
        format.remove_prefix(1);
    }
    return format == "l" && view.itemsize == 4 ? "i" : format;
}

void CheckElements(const SafeArray& wanted, const Py_buffer& view, py::handle value) {
    const std::string format = ElementFormat(wanted.ElementType(), wanted.RecordName());
    if (format.empty() || NativeFormat(view) != format ||
        static_cast<std::size_t>(view.itemsize) != wanted.ElementSize()) {
        const std::string name = ElementName(wanted.ElementType(), wanted.RecordName());
        const std::string given = py::str(py::getattr(value, "dtype", py::str(view.format)));
        RaiseUnfit("an array of " + name + " is needed, not of " + given + "; " +
                   (format.size() == 1 && wanted.RecordName() == nullptr
                        ? "convert it, as with .astype('" + name + "')"
                        : "use torlib.Array(..., dtype='" + name + "')"));
    }
}

bool IsAligned(const Py_buffer& view, const SafeArray& wanted) {
    const std::size_t unit = wanted.ElementType() == ValueType::Record ? 8 : wanted.ElementSize();
    return reinterpret_cast<std::uintptr_t>(view.buf) % unit == 0;
}

Bounds FromZero(Py_ssize_t extent) {
    return {0, RoundToInt32(static_cast<double>(extent) - 1)};
}

void Stand(SafeArray& array, const Py_buffer& view, void* memory, std::shared_ptr<void> owner) {
    const Bounds rows = FromZero(view.shape[0]);
    if (view.ndim == 1) {
        array.Borrow(memory, std::move(owner), rows);
    } else {
        array.Borrow(memory, std::move(owner), rows, FromZero(view.shape[1]));
    }
}

} // namespace

void BorrowMemory(SafeArray& fresh, py::handle value, bool changed) {
    const auto held = std::make_shared<HeldBuffer>(value, PyBUF_FULL_RO);
    Py_buffer& view = held->view;
    if (view.ndim != 1 && view.ndim != 2) {
        RaiseUnfit("an array of one or two dimensions is needed, not of " +
                   std::to_string(view.ndim));
    }
    CheckElements(fresh, view, value);
    if (changed && view.readonly) {
        RaiseUnfit("the call changes this array, and it is read-only");
    }
    if (PyBuffer_IsContiguous(&view, 'F') && IsAligned(view, fresh)) {
        Stand(fresh, view, view.buf, held);
        return;
    }
    if (changed) {
        RaiseUnfit(view.ndim == 2
                       ? "the call changes this array, so it must be stored by columns: make it "
                         "with order='F' or numpy.asfortranarray"
                       : "the call changes this array, so its elements must follow each other in "
                         "memory: make it with numpy.ascontiguousarray");
    }
    // Words of 8 bytes, so that every element type is aligned.
    const auto copy =
        std::make_shared<std::vector<double>>(static_cast<std::size_t>(view.len) / 8 + 1);
    if (PyBuffer_ToContiguous(copy->data(), &view, view.len, 'F') != 0) {
        throw py::error_already_set();
    }
    Stand(fresh, view, copy->data(), copy);
}

std::unique_ptr<SafeArray> BorrowedAsItIs(py::handle value) {
    std::string format;
    {
        const HeldBuffer held(value, PyBUF_FULL_RO);
        format = NativeFormat(held.view);
    }
    std::unique_ptr<SafeArray> array = format == "f"   ? table::NewArray<Single>()
                                       : format == "h" ? table::NewArray<Integer>()
                                       : format == "i" ? table::NewArray<std::int32_t>()
                                                       : table::NewArray<double>();
    BorrowMemory(*array, value, true);
    return array;
}

} // namespace torlib::python
