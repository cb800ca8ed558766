#pragma once
// Names, fields and types of the published records as data, for the type library and for hosts that
// know records by their names.

#include "torlib/frame/argument_cast.h"

#include <span>
#include <string_view>

namespace torlib {

struct RecordField {
    std::u16string_view Name;
    ParameterType Type;
    int FixedUpper = -1; ///< upper index of an array 0..n inside the record, -1 for none
    void* (*Locate)(void* record) = nullptr; ///< the field, as a SafeArray* when it is an array
};

struct RecordInfo {
    std::u16string_view Name;
    std::u16string_view Doc;
    std::span<const RecordField> Fields;
    std::size_t Size = 0;
    std::shared_ptr<void> (*New)() = nullptr; ///< a record that is zero everywhere
    void (*Assign)(void* to, const void* from) = nullptr;
    std::unique_ptr<SafeArray> (*NewArray)() = nullptr;
};

/// The four published records with their fields in declaration order.
TORLIB_API std::span<const RecordInfo> Records();

} // namespace torlib
