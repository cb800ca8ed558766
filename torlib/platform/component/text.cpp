#include "torlib/platform/component/variant.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace torlib {

namespace {

constexpr char32_t replacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

/// Reads one character at `i` and moves `i` past it.
char32_t ReadUtf8(std::string_view text, std::size_t& i) {
    const auto lead = static_cast<unsigned char>(text[i++]);
    if (lead < 0x80) {
        return lead;
    }
    const int more = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (more == 0 || lead >= 0xF5) {
        return replacement;
    }
    char32_t c = lead & (0x3F >> more);
    for (int k = 0; k < more; ++k) {
        if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
            return replacement;
        }
        c = (c << 6) | (static_cast<unsigned char>(text[i++]) & 0x3F);
    }
    const bool overlong = (more == 2 && c < 0x800) || (more == 3 && c < 0x10000);
    return overlong || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000) ? replacement : c;
}

double RoundHalfEven(double value) {
    // Not nearbyint: a host may have changed the rounding mode.
    const double below = std::floor(value);
    const double rest = value - below;
    return rest < 0.5 || (rest == 0.5 && std::fmod(below, 2) == 0) ? below : below + 1;
}

/// Whether a decimal number that no double holds is nearer to zero than to the largest of them.
bool IsSmall(std::string_view number) {
    const auto mark = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, mark);
    const auto first = static_cast<long long>(digits.find_first_of("123456789"));
    const auto point = static_cast<long long>(std::min(digits.find('.'), digits.size()));
    long long exponent = 0;
    if (mark != std::string_view::npos) {
        std::string_view power = number.substr(mark + 1);
        power.remove_prefix(power.front() == '+' ? 1 : 0);
        const auto read = std::from_chars(power.data(), power.data() + power.size(), exponent);
        if (read.ec == std::errc::result_out_of_range) {
            return power.front() == '-';
        }
    }
    return exponent < first - point; // the first digit's own power of ten is below zero
}

template <class T>
std::u16string Shortest(T value) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return std::u16string(buffer, end);
}

} // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
        } else if (c >= 0xD800 && c < 0xE000) {
            c = replacement;
        }
        AppendUtf8(out, c);
    }
    return out;
}

std::u16string FromUtf8(std::string_view text) {
    std::u16string out;
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = ReadUtf8(text, i);
        if (c < 0x10000) {
            out += static_cast<char16_t>(c);
        } else {
            out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return out;
}

std::int16_t RoundToInt16(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -32768 && rounded <= 32767)) {
        RaiseError(ErrorNumber::Overflow, "the value " + ToUtf8(NumberText(value)) +
                                              " is outside the 16-bit range -32768..32767");
    }
    return static_cast<std::int16_t>(rounded);
}

std::int32_t RoundToInt32(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) {
        RaiseError(ErrorNumber::Overflow,
                   "the value " + ToUtf8(NumberText(value)) + " is outside the 32-bit range");
    }
    return static_cast<std::int32_t>(rounded);
}

std::u16string NumberText(float value) {
    return Shortest(value);
}

std::u16string NumberText(double value) {
    return Shortest(value);
}

double ParseNumber(std::u16string_view text) {
    std::string plain = ToUtf8(text);
    const auto first = plain.find_first_not_of(" \t");
    const auto last = plain.find_last_not_of(" \t");
    plain = first == std::string::npos ? "" : plain.substr(first, last - first + 1);
    const char* begin = plain.data();
    const char* end = begin + plain.size();
    if (end - begin > 1 && *begin == '+' && begin[1] != '-') {
        ++begin;
    }
    double value = 0;
    const auto [stop, failure] = std::from_chars(begin, end, value);
    const bool outOfRange = failure == std::errc::result_out_of_range;
    if ((failure != std::errc() && !outOfRange) || stop != end || !std::isfinite(value)) {
        RaiseError(ErrorNumber::TypeMismatch, "\"" + ToUtf8(text) + "\" is not a number");
    }
    if (outOfRange && IsSmall({begin, end})) {
        return 0;
    }
    if (outOfRange) {
        RaiseError(ErrorNumber::Overflow, "the number \"" + ToUtf8(text) + "\" is too large");
    }
    return value;
}

std::u16string GuidText(const Guid& guid) {
    char text[40];
    const auto& d = guid.Data4;
    std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  guid.Data1, guid.Data2, guid.Data3, d[0], d[1], d[2], d[3], d[4], d[5], d[6],
                  d[7]);
    return FromUtf8(text);
}

bool ParseGuid(std::u16string_view text, Guid* guid) {
    const std::string plain = ToUtf8(text);
    constexpr std::string_view form = "{hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh}";
    for (std::size_t i = 0; i < form.size(); ++i) {
        const char c = i < plain.size() ? plain[i] : '\0';
        const bool digit = std::isxdigit(static_cast<unsigned char>(c)) != 0;
        if (form[i] == 'h' ? !digit : c != form[i]) {
            return false;
        }
    }
    unsigned d1 = 0;
    unsigned d[10];
    const int read =
        std::sscanf(plain.c_str(), "{%8x-%4x-%4x-%2x%2x-%2x%2x%2x%2x%2x%2x}", &d1, &d[0], &d[1],
                    &d[2], &d[3], &d[4], &d[5], &d[6], &d[7], &d[8], &d[9]);
    if (read != 11 || plain.size() != form.size()) {
        return false;
    }
    *guid = {d1, static_cast<std::uint16_t>(d[0]), static_cast<std::uint16_t>(d[1]), {}};
    for (std::size_t i = 0; i < 8; ++i) {
        guid->Data4[i] = static_cast<std::uint8_t>(d[i + 2]);
    }
    return true;
}

} // namespace torlib
