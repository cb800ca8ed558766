#pragma once
// The texts of the user interface by string number, one table a language.

#include "torlib/frame/companion_services.h"

#include <string_view>

namespace torlib {

/// Languages that have a table.
enum class TextLanguage { English, German };

/// The language that the environment asks for (LC_ALL, LC_MESSAGES, LANG); English by default.
TORLIB_API TextLanguage LanguageOfEnvironment();

/// The text as it stands in the table, with its placeholders; empty for an unknown number.
TORLIB_API std::u16string_view TableText(TextLanguage language, int number);

/// Replaces each placeholder of the parameter list ("|1", value, "|2", value) by its value.
TORLIB_API String FillPlaceholders(std::u16string_view text,
                                   const std::vector<Variant>& parameters);

} // namespace torlib
