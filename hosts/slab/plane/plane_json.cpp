#include "hosts/slab/plane/plane_output.h"
#include "hosts/slab/printable.h"

#include <nlohmann/json.hpp>

namespace slab {

using Json = nlohmann::ordered_json;

namespace {

Json ExtremesJson(const PlaneResults& results) {
    Json all;
    for (const PlaneExtreme& row : results.Extremes) {
        const auto value = [&row](const Extreme& extreme) {
            return Json{{"value", extreme.Value}, {row.Of, extreme.Node}};
        };
        all[row.Key] = {
            {"unit", row.Unit}, {"least", value(row.Least)}, {"greatest", value(row.Greatest)}};
    }
    return all;
}

Json SumsJson(const std::array<double, 3>& sums) {
    return {{"fx", sums[0]}, {"fy", sums[1]}, {"moment", sums[2]}};
}

Json UnitsJson(const PlaneResults& results) {
    Json units;
    units["length"] = results.Units.LengthName;
    units["force"] = results.Units.ForceName;
    for (const ResultTable& table : results.Tables) {
        for (const Column& column : table.Columns) {
            if (!column.IsNumber) {
                units[column.Key] = column.Unit;
            }
        }
    }
    return units;
}

Json RowsJson(const ResultTable& table) {
    Json rows = Json::array();
    for (const std::vector<double>& values : table.Rows) {
        Json row;
        for (std::size_t c = 0; c < values.size(); ++c) {
            const Column& column = table.Columns[c];
            if (column.IsNumber) {
                row[column.Key] = static_cast<int>(values[c]);
            } else {
                row[column.Key] = values[c];
            }
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace

std::string PlaneJson(const PlaneResults& results) {
    Json document;
    document["title"] = results.Title;
    document["file"] = results.File;
    document["units"] = UnitsJson(results);
    document["system"] = {{"kind", results.System},
                          {"size", results.Size},
                          {"equations", results.Equations},
                          {"half_band_width", results.HalfBandWidth}};
    document["extremes"] = ExtremesJson(results);
    document["balance"] = {{"loads", SumsJson(results.Balance.Loads)},
                           {"supports", SumsJson(results.Balance.Supports)},
                           {"springs", SumsJson(results.Balance.Springs)},
                           {"relative_error", results.Balance.RelativeError}};
    document["digits"] = {{"residual_before", results.Digits.ResidualBefore},
                          {"residual_after", results.Digits.ResidualAfter},
                          {"corrected", results.Digits.Corrected},
                          {"steps", results.Digits.Steps},
                          {"change_of_solution", results.Digits.ChangeOfSolution}};
    // A linear system needs no cycle; readers of all systems find the same keys.
    document["iteration"] = {{"converged", true}, {"cycles", Json::array()}};
    document["seconds"] = {{"total", results.Seconds}};
    document["warnings"] = results.Warnings;
    for (const ResultTable& table : results.Tables) {
        document[table.Key] = RowsJson(table);
    }
    // A file name or title may hold bytes that are no UTF-8; they must not cost the results.
    return Printable(document.dump(1, ' ', false, Json::error_handler_t::replace), true) + "\n";
}

} // namespace slab
