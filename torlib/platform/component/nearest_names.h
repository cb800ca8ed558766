#pragma once
// Suggestions for a name that was not found.

#include "torlib/platform/api.h"

#include <string>
#include <string_view>
#include <vector>

namespace torlib {

/// True when two names are the same but for the case of ASCII letters.
TORLIB_API bool SameName(std::u16string_view a, std::u16string_view b);

/// Up to three known names that are closest to the wanted one in insertions, deletions and
/// replacements, nearest first; names too far away to be meant are left out.
TORLIB_API std::vector<std::string> NearestNames(std::string_view wanted,
                                                 const std::vector<std::string>& known);

/// " (did you mean A, B or C?)", or an empty text when nothing is near.
TORLIB_API std::string Suggestion(std::string_view wanted, const std::vector<std::string>& known);

} // namespace torlib
