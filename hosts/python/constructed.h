#pragma once
// Python can make an instance without running its __init__, by Class.__new__(Class); pybind11 would
// hand out memory for it that was never constructed.

#include <pybind11/pybind11.h>

#include <string>

namespace torlib::python {

/// Loads instances of T that were constructed; any other is a TypeError.
template <class T>
struct ConstructedCaster : pybind11::detail::type_caster_base<T> {
    bool load(pybind11::handle source, bool convert) {
        if (pybind11::isinstance<T>(source)) {
            auto* const instance = reinterpret_cast<pybind11::detail::instance*>(source.ptr());
            const auto* const type = pybind11::detail::get_type_info(typeid(T));
            if (!instance->get_value_and_holder(type).value_ptr()) {
                throw pybind11::type_error(std::string(Py_TYPE(source.ptr())->tp_name) +
                                           ".__init__ has not been called");
            }
        }
        return pybind11::detail::type_caster_base<T>::load(source, convert);
    }
};

} // namespace torlib::python
