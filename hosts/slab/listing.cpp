#include "hosts/slab/listing.h"

#include "hosts/slab/printable.h"

namespace slab {

using torlib::FromUtf8;
using torlib::String;

namespace {

constexpr int name_column = 46;
constexpr int symbol_column = 8;

} // namespace

void Listing::Raw(const std::string& line) {
    text_ += FromUtf8(Printable(line)) + u"\r\n";
}

void Listing::Heading(const std::string& heading) {
    Raw("");
    Raw(heading);
    Raw(std::string(heading.size(), '-'));
}

void Listing::Line(const std::string& name, const std::string& symbol, const std::string& unit,
                   const std::string& value) {
    torva_.SetLineList(text_, FromUtf8(Printable(name)), FromUtf8(symbol), FromUtf8(unit),
                       FromUtf8(value), name_column, symbol_column);
}

void Listing::Cell(String& row, const std::string& value, int width) {
    const std::string text = Printable(value);
    row += torva_.Private_Space(width - static_cast<int>(text.size())) + FromUtf8(text);
}

} // namespace slab
