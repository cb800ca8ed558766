#pragma once
// The published records in Python: an object with the record's fields, either with memory of its
// own or looking at the element of an array.

#include "hosts/python/constructed.h"
#include "hosts/python/values.h"

#include "torlib/frame/record_table.h"

namespace torlib::python {

struct PythonRecord {
    const RecordInfo* Info;
    std::shared_ptr<void> Memory;

    RecordReference Reference() const { return {Info->Name.data(), Memory.get()}; }
};

/// A new Python record with the value of the caller's.
py::object CopyOfRecord(const RecordReference& record);

/// A Python record that stands in this memory.
py::object ViewOfRecord(std::u16string_view name, std::shared_ptr<void> memory);

/// Copies a Python record of this type; another one is error 13.
void AssignRecord(std::u16string_view name, void* target, py::handle value);

/// The record in the notation of Python's struct module; empty when it holds arrays or texts.
std::string RecordFormat(std::u16string_view name);

void BindRecord(py::module_& module);

} // namespace torlib::python

template <>
struct pybind11::detail::type_caster<torlib::python::PythonRecord>
    : torlib::python::ConstructedCaster<torlib::python::PythonRecord> {};
