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

TEST(PileProject, WhatIsWrongIsRefused) {
    EXPECT_EQ(Refusal(piled), "accepted");
    EXPECT_EQ(Refusal(bored), "accepted");
    struct Fault {
        const std::string& Text;
        const char* From;
        const char* To;
        const char* Message;
    };
    const Fault faults[] = {
        {piled, "[1, 3]", "[1, 3.1]",
         "test.toml:17:15: piles.groups[1].at[2]: is no mesh node; the nearest is node"},
        {piled, "[1, 3]", "[1, 1]", "a pile already stands on node"},
        {piled, "[1, 3]", "[1, 1.5]",
         "overlaps the one on node 21, 0.5 m away (allowed: at least 0.6 m)"},
        {piled, "[[1, 1], [1, 3], [3.5, 1]]", "[]", "names no place"},
        {piled, "length = 8", "length = 11.8",
         "test.toml:18:10: piles.groups[1].length: the pile "
         "comes too close to the rigid base (allowed: up to "
         "11.7 m"},
        {piled, "length = 8", "length = 0.5", "wider than long"},
        {piled, "segment = 1", "segment = 9",
         "test.toml:15:11: piles.segment: is 9 m (allowed: 0.3 m"},
        {piled, "segment = 1", "segment = 0.2", "to 8 m, the shortest pile"},
        {piled, "segment = 1", "segment = 0", "allowed: greater than 0"},
        {piled, "segment", "segments", "did you mean segment"},
        {piled, "diameter = 0.6", "diameter = 0.6\ncapacity = -1", "capacity: is -1"},
        {piled, "[[piles.groups]]", "[[piles.group]]", "did you mean groups"},
        {piled, "layers = [{", "layers = [{ thickness = 1, modulus = 1, poisson = 0 }, {",
         "piles in 2 layers are not analysed"},
        {piled, "kind = \"layers\"\nlayers = [{ thickness = 12, modulus = 20000, poisson = 0.3 }]",
         "kind = \"winkler\"\nsubgrade = 5000", "this soil has no depth"},
        {piled,
         "[soil]\nkind = \"layers\"\nlayers = [{ thickness = 12, modulus = 20000, poisson = "
         "0.3 }]",
         "", "test.toml:12:1: piles: piles stand in soil.kind"},
        {bored, "qc = 20\n[base]", "qc = 20\ncu = 0.1\n[base]", "only one of these keys"},
        {bored, "tau = 0.04", "", "one of these keys"},
        {bored, "load = 2", "load = 0", "pile.load: is 0 (allowed: greater than 0)"},
        {bored, "load = 2", "load = 2\nbase_diameter = 0.8", "is smaller than the shaft"},
        {bored, "load = 2", "load = 2\nbase_diameter = 5.5", "has to lie in the lowest layer"},
        {bored, "[base]\nqc = 20", "[base]\nresistance = [1, 3, 2]",
         "base.resistance[3]: is smaller than the one before"},
        {bored, "[base]\nqc = 20", "[base]\nresistance = [1, 2]", "has 2 values (allowed: 3)"},
        {bored, "[pile]", "[slab]", "is not a key of this table"},
    };
    for (const Fault& fault : faults) {
        const std::string text = Replaced(fault.Text, fault.From, fault.To);
        ASSERT_NE(text, "") << fault.From;
        EXPECT_NE(Refusal(text).find(fault.Message), std::string::npos) << fault.To << '\n'
                                                                        << Refusal(text);
    }
}

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
