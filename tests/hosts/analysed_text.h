#pragma once
// A project's text on its whole way through the host: the results as JSON, or the failure.

#include "tests/hosts/project_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace slab {

using Json = nlohmann::json;

/// `within` bounds what is left of the loads, in the balance and in the equations.
inline Json AnalysedText(const std::string& text, double within = 1e-9) {
    RunWindow window(RunWindow::Style::Quiet);
    const auto project = OpenProjectText(text, "test.toml");
    auto json = Json::parse(project->Analyse({}, window)->Json());
    EXPECT_LT(json["balance"]["relative_error"], within);
    EXPECT_LT(json["digits"]["residual_after"], within);
    EXPECT_TRUE(json["warnings"].empty());
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
