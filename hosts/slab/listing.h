#pragma once
// A report as it grows: listing lines by the library, tables in columns of one width.

#include "torlib/ui/torva_class.h"

#include <string>

namespace slab {

class Listing {
  protected:
    static constexpr int number_width = 12;

    void Raw(const std::string& line);
    void Heading(const std::string& heading);
    void Line(const std::string& name, const std::string& symbol, const std::string& unit,
              const std::string& value);
    /// Right-aligned in a column.
    void Cell(torlib::String& row, const std::string& value, int width = number_width);

    torlib::String text_;

  private:
    torlib::TORVAClass torva_;
};

} // namespace slab
