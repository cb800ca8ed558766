#pragma once
// Names and values of the shared enumerations as data, for the type library and late-bound hosts.

#include "torlib/platform/api.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace torlib {

struct EnumerationValue {
    std::u16string_view Name;
    std::int32_t Value;
};

struct EnumerationInfo {
    std::u16string_view Name;
    std::span<const EnumerationValue> Values;
};

/// The 24 shared enumerations in their published order.
TORLIB_API std::span<const EnumerationInfo> Enumerations();

} // namespace torlib
