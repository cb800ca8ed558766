#include "hosts/slab/listing.h"
#include "hosts/slab/plane/plane_output.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/report_lines.h"

#include <algorithm>

namespace slab {

using torlib::String;

namespace {

class Report : private Listing {
  public:
    explicit Report(const PlaneResults& results) : results_(results) {}

    std::string Text() {
        Raw(results_.Title.empty() ? results_.System : results_.Title);
        Raw("Project file: " + results_.File);
        System();
        ExtremeValues();
        Balance();
        Heading("Digits of the solution");
        for (const std::string& line : DigitLines(results_.Digits, "displacement")) {
            Raw(line);
        }
        Heading("Time");
        Line("Whole run", "", "s", NumberText(results_.Seconds));
        for (const ResultTable& table : results_.Tables) {
            Table(table);
        }
        if (!results_.Warnings.empty()) {
            Heading("Warnings");
        }
        for (const std::string& warning : results_.Warnings) {
            Raw("- " + warning);
        }
        return torlib::ToUtf8(text_);
    }

  private:
    void System() {
        Heading(results_.System);
        Line("Size", "", "-", results_.Size);
        Line("Equations", "", "-", std::to_string(results_.Equations));
        Line("Half band width", "Nw", "-", std::to_string(results_.HalfBandWidth));
        for (const Fact& fact : results_.Facts) {
            Line(fact.Name, fact.Symbol, fact.Unit, fact.Value);
        }
    }

    void ExtremeValues() {
        Heading("Extreme values");
        for (const PlaneExtreme& row : results_.Extremes) {
            const auto line = [&](const char* which, const Extreme& extreme) {
                Line(which + LowerFirst(row.Name) + ", " + row.Of + " " +
                         std::to_string(extreme.Node),
                     row.Symbol, row.Unit, NumberText(extreme.Value));
            };
            line("Smallest ", row.Least);
            line("Largest ", row.Greatest);
        }
    }

    void Balance() {
        Heading("Balance of forces (along +x, along +y, moment about the centre as theta)");
        const auto line = [this](const char* name, const std::array<double, 3>& sums) {
            String row = torlib::FromUtf8(Padded(name, 12));
            for (const double sum : sums) {
                Cell(row, NumberText(sum, 6), 16);
            }
            text_ += row + u"\r\n";
        };
        line("Loads", results_.Balance.Loads);
        line("Supports", results_.Balance.Supports);
        line("Springs", results_.Balance.Springs);
        Line("Relative error", "", "-", NumberText(results_.Balance.RelativeError));
    }

    void Table(const ResultTable& table) {
        Heading(table.Title);
        const auto width = [](const Column& column) {
            return column.IsNumber
                       ? 8
                       : std::max(number_width, static_cast<int>(column.Unit.size()) + 4);
        };
        String head;
        String units;
        for (const Column& column : table.Columns) {
            Cell(head, column.Symbol, width(column));
            Cell(units, column.IsNumber ? "" : "[" + column.Unit + "]", width(column));
        }
        text_ += head + u"\r\n" + units + u"\r\n";
        for (const std::vector<double>& values : table.Rows) {
            String row;
            for (std::size_t c = 0; c < values.size(); ++c) {
                const Column& column = table.Columns[c];
                Cell(row,
                     column.IsNumber ? std::to_string(static_cast<int>(values[c]))
                                     : NumberText(values[c]),
                     width(column));
            }
            text_ += row + u"\r\n";
        }
    }

    const PlaneResults& results_;
};

} // namespace

std::string PlaneReport(const PlaneResults& results) {
    return Report(results).Text();
}

} // namespace slab
