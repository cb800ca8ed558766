#pragma once
// A project's text on its whole way through the host: the results as JSON, or the failure.

#include "tests/hosts/project_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <map>

namespace slab {

using Json = nlohmann::json;

/// Rows are numbered from 1 in order; extremes are those of their columns, at the rows they name.
inline void ExpectNumbersAndExtremes(const Json& json) {
    for (const auto& [table, number] :
         {std::pair{"nodes", "node"}, {"members", "member"}, {"elements", "element"}}) {
        const Json rows = json.value(table, Json::array());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(rows[i].value(number, i + 1), i + 1) << table;
        }
    }
    const std::map<std::string, std::vector<std::string>> columnsOf = {
        {"n", {"n_start", "n_end"}},
        {"shear", {"v_start", "v_end"}},
        {"m", {"m_start", "m_end", "m_extreme"}}};
    for (const auto& [key, extremes] : json["extremes"].items()) {
        const bool ofMembers = extremes["least"].contains("member");
        const char* const number = ofMembers ? "member" : "node";
        const Json& rows = json[ofMembers                        ? "members"
                                : json["nodes"][0].contains(key) ? "nodes"
                                                                 : "node_stresses"];
        const auto columns = ofMembers ? columnsOf.at(key) : std::vector<std::string>{key};
        for (const auto& [which, sign] : {std::pair{"least", -1}, {"greatest", 1}}) {
            double extreme = -HUGE_VAL;
            double atNamedRow = -HUGE_VAL;
            for (const Json& row : rows) {
                for (const std::string& column : columns) {
                    const double value = sign * double(row[column]);
                    extreme = std::fmax(extreme, value);
                    if (row[number] == extremes[which][number]) {
                        atNamedRow = std::fmax(atNamedRow, value);
                    }
                }
            }
            EXPECT_EQ(double(extremes[which]["value"]), sign * extreme) << key;
            EXPECT_EQ(atNamedRow, extreme) << key;
        }
    }
}

/// `within` bounds what is left of the loads, in the balance and in the equations.
inline Json AnalysedText(const std::string& text, double within = 1e-9) {
    RunWindow window(RunWindow::Style::Quiet);
    const auto project = OpenProjectText(text, "test.toml");
    auto json = Json::parse(project->Analyse({}, window)->Json());
    EXPECT_LT(json["balance"]["relative_error"], within);
    EXPECT_LT(json["digits"]["residual_after"], within);
    EXPECT_TRUE(json["warnings"].empty());
    ExpectNumbersAndExtremes(json);
    return json;
}

/// The message of the failed analysis, or "held".
inline std::string Failure(const std::string& text) {
    try {
        AnalysedText(text);
    } catch (const AnalysisFailure& failure) {
        return failure.what();
    }
    return "held";
}

/// A value in a row, from 1, of a table.
inline double Value(const Json& json, const char* table, std::size_t number, const char* key) {
    return json[table][number - 1][key];
}

} // namespace slab
