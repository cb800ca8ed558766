// The project files of piles: what is read, what is refused, and the bored pile from file to JSON.

#include "tests/hosts/project_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

const std::string piled = R"([mesh]
x = { count = 8, length = 4 }
y = { count = 8, length = 4 }
symmetry = "none"
[slab]
thickness = 0.5
modulus = 3e7
poisson = 0.2
[[loads.uniform]]
pressure = 100
[soil]
kind = "layers"
layers = [{ thickness = 12, modulus = 20000, poisson = 0.3 }]
[piles]
segment = 1
[[piles.groups]]
at = [[1, 1], [1, 3], [3.5, 1]]
length = 8
diameter = 0.6
)";

const std::string bored = R"(system = "pile"
[units]
force = "MN"
[pile]
diameter = 0.9
load = 2
settlement = 1.8
[[layers]]
thickness = 5
tau = 0.04
[[layers]]
thickness = 5
qc = 20
[base]
qc = 20
)";

TEST(PileProject, PilesBesideASymmetryLineAreRefused) {
    std::string text = Replaced(piled, "\"none\"", "\"y\"");
    EXPECT_EQ(Refusal(Replaced(text, "diameter = 0.6", "diameter = 0.9")), "accepted");
    text = Replaced(text, "diameter = 0.6", "diameter = 1.1");
    EXPECT_NE(Refusal(text).find("its mirror image overlap (allowed: on the symmetry line, or at "
                                 "least 0.55 m"),
              std::string::npos);
    EXPECT_EQ(Refusal(Replaced(text, "[3.5, 1]", "[4, 1]")), "accepted");
    text = Replaced(Replaced(piled, "\"none\"", "\"anti-y\""), "[3.5, 1]", "[4, 1]");
    EXPECT_NE(Refusal(text).find("line of antisymmetry"), std::string::npos);
}

nlohmann::json Analysed(const std::string& text) {
    slab::RunWindow window(slab::RunWindow::Style::Quiet);
    const auto project = slab::OpenProjectText(text, "test.toml");
    const auto outcome = project->Analyse({}, window);
    EXPECT_EQ(outcome->Picture().rfind("<svg", 0), 0U);
    EXPECT_EQ(outcome->Report().find("nan"), std::string::npos);
    return nlohmann::json::parse(outcome->Json());
}

// DIN 4014 (1990), worked by hand: the shaft is exhausted at 0.5 + 0.5 * 2.262 cm.
TEST(BoredPile, WorkedByHand) {
    const auto pile = Analysed(bored);
    EXPECT_NEAR(pile["shaft_resistance"], 2.262, 5e-4);
    const double curve[][3] = {
        {1.631, 3.069, 0.807}, {1.8, 3.153, 0.891}, {2.7, 3.407, 1.145}, {9.0, 4.489, 2.227}};
    for (std::size_t k = 0; k < 4; ++k) {
        EXPECT_NEAR(pile["curve"][k]["settlement"], curve[k][0], 5e-4);
        EXPECT_NEAR(pile["curve"][k]["resistance"], curve[k][1], 6e-4);
        EXPECT_NEAR(pile["curve"][k]["base"], curve[k][2], 6e-4);
    }
    EXPECT_EQ(pile["curve"][0]["at"], "shaft exhausted");
    EXPECT_NEAR(pile["asked"]["resistance"], 3.153, 5e-4);
    EXPECT_NEAR(pile["settlement"], 1.631 * 2 / 3.069, 1e-3);
    EXPECT_NEAR(pile["balance"]["shaft"], 2 * 2.262 / 3.069, 1e-3);
    EXPECT_NEAR(
        Analysed(Replaced(bored, "settlement = 1.8", "settlement = 1"))["asked"]["resistance"],
        1.882, 5e-4);
    const auto enlarged = Analysed(Replaced(bored, "load = 2", "load = 2\nbase_diameter = 1.5"));
    EXPECT_NEAR(enlarged["base_stresses"][0], 0.75 * 1.4, 1e-5);
    EXPECT_NEAR(Analysed(Replaced(bored, "[base]\nqc", "[base]\ncu"))["base_stresses"][2], 2.9,
                1e-5);
}

TEST(BoredPile, SpeaksTheUnitsOfTheProject) {
    const auto mega = Analysed(bored);
    std::string text = bored;
    for (const auto& [from, to] :
         {std::pair("force = \"MN\"", "force = \"N\"\nlength = \"cm\"\nsettlement = \"mm\""),
          {"diameter = 0.9", "diameter = 90"},
          {"load = 2", "load = 2e6"},
          {"settlement = 1.8", "settlement = 18"},
          {"thickness = 5\ntau = 0.04", "thickness = 500\ntau = 4"},
          {"thickness = 5\nqc = 20", "thickness = 500\nqc = 2000"},
          {"[base]\nqc = 20", "[base]\nresistance = [140, 180, 350]"}}) {
        text = Replaced(text, from, to);
    }
    const auto small = Analysed(text);
    EXPECT_NEAR(double(small["settlement"]) / 10, mega["settlement"], 1e-5);
    EXPECT_NEAR(double(small["asked"]["resistance"]) / 1e6, mega["asked"]["resistance"], 1e-5);
    EXPECT_NEAR(double(small["skin_friction"][1]) / 100, mega["skin_friction"][1], 1e-6);
    EXPECT_NEAR(double(small["curve"][3]["resistance"]) / 1e6, mega["curve"][3]["resistance"],
                1e-5);
}

TEST(BoredPile, SaysWhereItLeavesTheCurve) {
    EXPECT_TRUE(Analysed(bored)["warnings"].empty());
    EXPECT_EQ(Analysed(Replaced(bored, "load = 2", "load = 5"))["warnings"].size(), 1U);
    EXPECT_EQ(Analysed(Replaced(bored, "settlement = 1.8", "settlement = 9.5"))["warnings"].size(),
              1U);
    EXPECT_EQ(Analysed(Replaced(bored, "[base]\nqc = 20", "[base]\nqc = 9"))["warnings"].size(),
              1U);
}

} // namespace
