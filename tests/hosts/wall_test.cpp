// Wall plates through the host: a textbook, patches, convergence, laws.

#include "tests/hosts/analysed_text.h"
#include "tests/hosts/quoted.h"

#include <cmath>

namespace slab {
namespace {

std::string Wall(const std::string& mesh, const std::string& rest) {
    return "system = \"wall\"\n[units]\nlength = \"in\"\nforce = \"lbf\"\n[mesh]\n" + mesh +
           "\n[wall]\nthickness = 1\nmodulus = 30e6\npoisson = 0.3\n" + rest;
}

// Logan (2007), A First Course in the Finite Element Method, chapter 6.
TEST(WallHost, TwoTrianglesMeetTheTextbook) {
    const Json json = AnalysedText(
        Wall("nodes = [[0, 0], [0, 10], [20, 10], [20, 0]]\nelements = [[1, 3, 2], [1, 4, 3]]",
             "[[supports]]\nedge = \"left\"\nclamped = true\n"
             "[[loads.edge]]\nedge = \"right\"\nqx = 1000\n"));
    EXPECT_NEAR(Value(json, "nodes", 3, "u"), 609.581e-6, 5e-10);
    EXPECT_NEAR(Value(json, "nodes", 3, "v"), 4.163e-6, 5e-10);
    EXPECT_NEAR(Value(json, "nodes", 4, "u"), 663.704e-6, 5e-10);
    EXPECT_NEAR(Value(json, "nodes", 4, "v"), 104.083e-6, 5e-10);
    EXPECT_NEAR(Value(json, "elements", 1, "sx"), 1005, 1);
    EXPECT_NEAR(Value(json, "elements", 1, "sy"), 301, 1);
    EXPECT_NEAR(Value(json, "elements", 2, "sy"), -1.2, 0.1);
    EXPECT_NEAR(Value(json, "elements", 2, "sxy"), -2.4, 0.1);
}

// A linear field, prescribed at the border, holds at the irregular inner nodes with its stress.
TEST(WallHost, PatchOfTrianglesHasTheLinearField) {
    const std::pair<double, double> nodes[] = {{0, 0}, {30, 0},   {30, 20}, {0, 20},
                                               {9, 7}, {21, 6.5}, {19, 14}, {8, 12}};
    std::string mesh = "nodes = [";
    for (const auto& [x, y] : nodes) {
        mesh += "[" + std::to_string(x) + ", " + std::to_string(y) + "],";
    }
    mesh += "]\nelements = [[1,2,6],[1,6,5],[2,3,7],[2,7,6],[3,4,8],[3,8,7],[4,1,5],[4,5,8],"
            "[5,6,7],[5,7,8]]";
    const auto u = [](double x, double y) { return 1e-3 * x + 5e-4 * y + 2e-3; };
    const auto v = [](double x, double y) { return 3e-4 * x - 7e-4 * y; };
    std::string supports;
    for (std::size_t n = 0; n < 4; ++n) {
        const auto [x, y] = nodes[n];
        char line[120];
        std::snprintf(line, sizeof line, "[[supports]]\nnode = %zu\nu = %.12g\nv = %.12g\n", n + 1,
                      u(x, y), v(x, y));
        supports += line;
    }
    const Json json = AnalysedText(Wall(mesh, supports));
    for (std::size_t n = 4; n < 8; ++n) {
        const auto [x, y] = nodes[n];
        EXPECT_NEAR(Value(json, "nodes", n + 1, "u"), u(x, y), 1e-8);
        EXPECT_NEAR(Value(json, "nodes", n + 1, "v"), v(x, y), 1e-8);
    }
    const double plane = 30e6 / (1 - 0.09);
    for (const char* table : {"elements", "node_stresses"}) {
        for (std::size_t i = 1; i <= 8; ++i) {
            const double sx = Value(json, table, i, "sx");
            const double sy = Value(json, table, i, "sy");
            const double sxy = Value(json, table, i, "sxy");
            EXPECT_NEAR(sx, plane * (1e-3 - 0.3 * 7e-4), 0.2);
            EXPECT_NEAR(sy, plane * (-7e-4 + 0.3 * 1e-3), 0.2);
            EXPECT_NEAR(sxy, 30e6 / 2.6 * 8e-4, 0.2);
            // Turned into its principal axes the tensor has no shear left.
            const double twice = 2 * Value(json, table, i, "angle") * std::acos(-1) / 180;
            EXPECT_NEAR(Value(json, table, i, "s1"),
                        (sx + sy) / 2 + (sx - sy) / 2 * std::cos(twice) + sxy * std::sin(twice),
                        1e-6 * sx);
            EXPECT_NEAR((sx - sy) / 2 * std::sin(twice), sxy * std::cos(twice), 1e-6 * sx);
            EXPECT_NEAR(Value(json, table, i, "s1") + Value(json, table, i, "s2"), sx + sy,
                        1e-6 * sx);
        }
    }
}

// Timoshenko (1921), beam with shear: P L^3 / (3 E I) + 1.2 P L / (G A). The error of the constant
// strain falls with the square of the element's size, until the warping that the clamped root
// hinders is left.
TEST(WallHost, CantileverConverges) {
    const double exact =
        1000 * 4e3 * 4e3 * 4e3 / (3 * 30e6 * 1e9 / 12) + 1.2 * 1000 * 4e3 * 2.6 / (30e6 * 1e3);
    double before = 0;
    for (const int n : {4, 8, 16}) {
        const std::string text =
            Wall("x = { count = " + std::to_string(4 * n) +
                     ", length = 4000 }\ny = { count = " + std::to_string(n) + ", length = 1000 }",
                 "[[supports]]\nedge = \"left\"\nclamped = true\n"
                 "[[loads.edge]]\nedge = \"right\"\nqy = 1\n");
        const Json json = AnalysedText(text);
        double tip = 0;
        for (const Json& node : json["nodes"]) {
            tip = std::min(tip, double(node["v"]));
        }
        const double error = 1 - -tip / exact;
        std::printf("  | cantilever, %2d triangles deep | %+.3f %% |\n", n, 100 * error);
        EXPECT_NEAR(json["balance"]["supports"]["fy"], 1000, 1e-5);
        if (before != 0) {
            EXPECT_GT(before / error, 2.8);
        }
        before = error;
    }
    EXPECT_LT(before, 0.02);
}

// A quarter of a square pulled by opposite edges is in uniform stress; its own weight is carried.
TEST(WallHost, SymmetryWeightAndBodies) {
    const std::string mesh = "x = { count = 3, length = 30 }\ny = { count = 2, length = 30 }";
    const Json quarter = AnalysedText(Wall(mesh + "\nsymmetry = \"xy\"",
                                           "[[loads.edge]]\nedge = \"left\"\nqx = -600\n"
                                           "[[springs]]\nnode = 1\nv = 1e-9\n"));
    for (const Json& element : quarter["elements"]) {
        EXPECT_NEAR(element["sx"], 600, 1e-3);
        EXPECT_NEAR(element["sy"], 0, 1e-3);
    }
    EXPECT_NEAR(Value(quarter, "nodes", 1, "u"), -600 * 30 / 30e6, 1e-9);
    const Json heavy = AnalysedText(
        Wall(mesh, "unit_weight = 0.2\n[[supports]]\nedge = \"bottom\"\nu = 0\nv = 0\n"));
    EXPECT_NEAR(heavy["balance"]["loads"]["fy"], -0.2 * 900, 1e-4);

    // Two triangles that touch in a node only turn about it.
    const std::string touching =
        Wall("nodes = [[0, 0], [10, 0], [0, 10], [20, 0], [20, 10]]\n"
             "elements = [[1, 2, 3], [2, 4, 5]]",
             "[[loads.node]]\nnode = 5\nfx = 1\n[[supports]]\nnode = [1, 3]\nu = 0\nv = 0\n");
    EXPECT_NE(
        Failure(touching).find("node 4 at x = 20 in, y = 0 in is free in its displacement in y"),
        std::string::npos)
        << Failure(touching);
    EXPECT_EQ(Failure(touching + "[[supports]]\nnode = 4\nv = 0\n"), "held");
    EXPECT_NE(Failure(Wall(mesh, "[[loads.node]]\nnode = 1\nfy = 1\n"
                                 "[[supports]]\nedge = \"bottom\"\nv = 0\n"))
                  .find("displacement in x"),
              std::string::npos);
}

} // namespace
} // namespace slab
