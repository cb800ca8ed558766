#pragma once
// Names, fields and types of the published records as data, for the type library.

#include "torlib/frame/argument_cast.h"

#include <span>
#include <string_view>

namespace torlib {

struct RecordField {
    std::u16string_view Name;
    ParameterType Type;
    int FixedUpper = -1; ///< upper index of an array 0..n inside the record, -1 for none
};

struct RecordInfo {
    std::u16string_view Name;
    std::u16string_view Doc;
    std::span<const RecordField> Fields;
};

/// The four published records with their fields in declaration order.
TORLIB_API std::span<const RecordInfo> Records();

} // namespace torlib
