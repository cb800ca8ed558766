#include "hosts/slab/plane/plane_output.h"
#include "hosts/slab/printable.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/report_lines.h"

#include <sstream>

namespace slab {

namespace {

void ExtremeLines(const PlaneResults& results, std::ostringstream& out) {
    out << "  " << Padded("", 40) << RightAligned("smallest", 12) << Padded("", 20)
        << RightAligned("largest", 12) << '\n';
    for (const PlaneExtreme& row : results.Extremes) {
        const auto value = [&row](const Extreme& extreme) {
            return RightAligned(NumberText(extreme.Value), 12) + "  " +
                   Padded("at " + row.Of + " " + std::to_string(extreme.Node), 18);
        };
        out << "  " << Padded(row.Name, 20) << Padded(row.Symbol, 6)
            << Padded("[" + row.Unit + "]", 14) << value(row.Least) << value(row.Greatest) << '\n';
    }
}

void BalanceLines(const PlaneResults& results, std::ostringstream& out) {
    const auto line = [&](const char* label, std::size_t direction) {
        const auto force = [&](const std::array<double, 3>& sums) {
            return NumberText(sums[direction], 6) + " " + results.Units.ForceName;
        };
        out << label << force(results.Balance.Loads) << ", supports "
            << force(results.Balance.Supports) << ", springs " << force(results.Balance.Springs)
            << '\n';
    };
    line("  Balance    in x: loads ", 0);
    line("             in y: loads ", 1);
    out << "             relative error of forces and moments "
        << NumberText(results.Balance.RelativeError) << '\n';
}

} // namespace

std::string PlaneSummary(const PlaneResults& results) {
    std::ostringstream out;
    out << (results.Title.empty() ? results.System : Printable(results.Title)) << "\n  "
        << results.System << ": " << results.Size << ", " << results.Equations
        << " equations, half band width " << results.HalfBandWidth << "\n\n";
    ExtremeLines(results, out);
    out << '\n';
    BalanceLines(results, out);
    const char* label = "  Digits     ";
    for (const std::string& line : DigitLines(results.Digits, "displacement")) {
        out << label << line << '\n';
        label = "             ";
    }
    out << "  Time       " << NumberText(results.Seconds) << " s\n";
    for (const std::string& warning : results.Warnings) {
        out << "  Warning    " << warning << '\n';
    }
    return Printable(out.str(), true);
}

} // namespace slab
