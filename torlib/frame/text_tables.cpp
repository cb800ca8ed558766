#include "torlib/frame/text_tables.h"

#include <cstdlib>
#include <string>

namespace torlib {

namespace {

struct TextRow {
    int number;
    std::u16string_view english;
    std::u16string_view german;
};

constexpr TextRow texts[] = {
    {104, u"(Please wait!)", u"(Bitte warten!)"},
    {60015, u"Remaining time:", u"Restzeit:"},
    {60016, u"Step |1 of |2", u"Schritt |1 von |2"},
    {60017, u"&Cancel", u"&Abbrechen"},
};

} // namespace

TextLanguage LanguageOfEnvironment() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value && *value) {
            return std::string_view(value).starts_with("de") ? TextLanguage::German
                                                             : TextLanguage::English;
        }
    }
    return TextLanguage::English;
}

std::u16string_view TableText(TextLanguage language, int number) {
    for (const TextRow& row : texts) {
        if (row.number == number) {
            return language == TextLanguage::German ? row.german : row.english;
        }
    }
    return {};
}

String FillPlaceholders(std::u16string_view text, const std::vector<Variant>& parameters) {
    String filled(text);
    for (std::size_t i = 0; i + 1 < parameters.size(); i += 2) {
        const String placeholder = parameters[i].ToText();
        const String value = parameters[i + 1].ToText();
        if (placeholder.empty()) {
            continue;
        }
        for (std::size_t at = filled.find(placeholder); at != String::npos;
             at = filled.find(placeholder, at + value.size())) {
            filled.replace(at, placeholder.size(), value);
        }
    }
    return filled;
}

} // namespace torlib
