#include "hosts/slab/printable.h"

#include <cstdio>

namespace slab {

namespace {

std::string WrittenOut(unsigned character) {
    char text[8];
    std::snprintf(text, sizeof text, "\\u%04x", character);
    return text;
}

} // namespace

std::string Printable(const std::string& text, bool lines) {
    std::string safe;
    bool within = false; // a character of several bytes
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        const unsigned next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
        if ((c < 0x20 && !(lines && c == '\n')) || c == 0x7f) {
            safe += WrittenOut(c);
        } else if (!within && c == 0xc2 && next >= 0x80 && next < 0xa0) {
            safe += WrittenOut(next);
            ++i;
        } else if (!within && c >= 0x80 && c < 0xa0) {
            safe += WrittenOut(c); // no UTF-8, but a control character to some terminals
        } else {
            safe += text[i];
        }
        within = c >= 0xc2 || (within && c >= 0x80 && c < 0xc0);
    }
    return safe;
}

} // namespace slab
