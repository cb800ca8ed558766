#include "hosts/slab/svg_text.h"

#include "hosts/slab/printable.h"

#include <cstdio>

namespace slab {

std::string Escaped(const std::string& text) {
    std::string safe;
    for (const char c : Printable(text)) {
        switch (c) {
            case '<':
                safe += "&lt;";
                break;
            case '>':
                safe += "&gt;";
                break;
            case '&':
                safe += "&amp;";
                break;
            default:
                safe += c;
        }
    }
    return safe;
}

std::string Short(double value) {
    char text[24];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

} // namespace slab
