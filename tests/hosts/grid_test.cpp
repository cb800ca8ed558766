// Grids of beams, and beams under slabs, through the host: closed forms, laws, refusals.

#include "tests/hosts/analysed_text.h"
#include "tests/hosts/quoted.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace slab {
namespace {

/// EI = 400 kNm2 and GJ = 400 kNm2; settlements in metres.
const std::string grid = "system = \"grid\"\n[units]\nsettlement = \"m\"\n"
                         "[[sections]]\nname = \"bar\"\nmodulus = 4e4\nshear_modulus = 2e4\n"
                         "area = 0.5\ninertia = 0.01\ntorsion = 0.02\n";

std::string Place(double x, double y) {
    return "[" + std::to_string(x) + ", " + std::to_string(y) + "]";
}

std::string Bar(const std::string& from, const std::string& to, const std::string& more = "") {
    return "[[beams]]\nsection = \"bar\"\nline = [" + from + ", " + to + "]\n" + more;
}

std::string Load(const std::string& at, double force) {
    return "[[loads.point]]\nat = " + at + "\nforce = " + std::to_string(force) + "\n";
}

std::string Support(const std::string& at, const std::string& held) {
    return "[[supports]]\nat = " + at + "\n" + held + "\n";
}

/// The row of a table whose place is nearest.
Json At(const Json& json, const char* table, double x, double y) {
    const Json& rows = json[table];
    return *std::min_element(rows.begin(), rows.end(), [&](const Json& a, const Json& b) {
        const auto off = [&](const Json& row) {
            return std::hypot(row["x"].get<double>() - x, row["y"].get<double>() - y);
        };
        return off(a) < off(b);
    });
}

double Settlement(const Json& json, double x, double y) {
    return At(json, "nodes", x, y)["settlement"];
}

// The stiffer of two crossed beams takes 8^3 / (6^3 + 8^3) of the load.
TEST(GridHost, CrossedBeamsShareTheLoad) {
    const Json json =
        AnalysedText(grid + Bar("[-3, 0]", "[3, 0]") + Bar("[0, -4]", "[0, 4]") +
                     Load("[0, 0]", 100) + Support("[[-3, 0], [3, 0], [0, -4], [0, 4]]", "w = 0"));
    const auto share = [&json](double x, double y) {
        const int node = At(json, "nodes", x, y)["node"];
        const Json& reactions = json["reactions"];
        const auto own = std::find_if(reactions.begin(), reactions.end(),
                                      [node](const Json& row) { return row["node"] == node; });
        return -2 * (*own)["force"].get<double>();
    };
    const double ofShort = share(3, 0);
    const double ofLong = share(0, 4);
    EXPECT_LT(Quote("share of the beam of 6 m", ofShort, 100 * 512.0 / 728), 1e-6);
    EXPECT_LT(Quote("share of the beam of 8 m", ofLong, 100 * 216.0 / 728), 1e-6);
    EXPECT_LT(Quote("settlement", Settlement(json, 0, 0), 70.3297 * 216 / (48 * 400)), 1e-6);
}

// Two legs at a right angle, fixed at the start, loaded at the tip to the left of the first leg:
// P (a^3 + b^3) / 3 EI + P a b^2 / GJ, in every direction of the plan.
TEST(GridHost, BentCantileverTwists) {
    for (const auto& [a, b] : {std::pair{1.0, 1.0}, {3.0, 2.0}}) {
        for (const double angle : {0.0, 0.7, 1.5707963267948966, 2.5, 4.0}) {
            const double c = std::cos(angle);
            const double s = std::sin(angle);
            const std::string knee = Place(a * c, a * s);
            const std::string tip = Place(a * c - b * s, a * s + b * c);
            const Json json = AnalysedText(grid + Bar("[0, 0]", knee) + Bar(knee, tip) +
                                           Load(tip, 1) + Support("[0, 0]", "clamped = true"));
            const double tall = (a * a * a + b * b * b) / 1200 + a * b * b / 400;
            const double w = Settlement(json, a * c - b * s, a * s + b * c);
            EXPECT_LT(std::fabs(w / tall - 1), 1e-5) << a << " at " << angle;
            const auto leg = [&json](const char* name) {
                const Json& beams = json["beams"];
                return *std::find_if(beams.begin(), beams.end(),
                                     [&](const Json& row) { return row["beam"] == name; });
            };
            EXPECT_NEAR(leg("beam 1")["moment"][0], -a, 1e-5);
            EXPECT_NEAR(leg("beam 1")["moment"][1], 0, 1e-5);
            EXPECT_NEAR(leg("beam 1")["shear"][0], 1, 1e-5);
            EXPECT_NEAR(leg("beam 1")["torsion"][0], b, 1e-5);
            EXPECT_NEAR(leg("beam 1")["torsion"][1], b, 1e-5);
            EXPECT_NEAR(leg("beam 2")["moment"][0], -b, 1e-5);
            EXPECT_NEAR(leg("beam 2")["torsion"][0], 0, 1e-5);
        }
    }
    // The same in other units, with Poisson's ratio 0.25.
    const Json json = AnalysedText(
        "system = \"grid\"\n[units]\nlength = \"cm\"\nforce = \"N\"\nsettlement = \"m\"\n"
        "[[sections]]\nname = \"bar\"\nmodulus = 4e3\npoisson = 0.25\narea = 5e3\n"
        "inertia = 1e6\ntorsion = 2.5e6\n" +
        Bar("[0, 0]", "[100, 0]") + Bar("[100, 0]", "[100, 100]") + Load("[100, 100]", 1000) +
        Support("[0, 0]", "clamped = true"));
    EXPECT_LT(Quote("tip of the bent cantilever", Settlement(json, 100, 100), 1 / 240.0), 1e-6);
}

// Load and self-weight of a clamped beam; the piece length only adds nodes.
TEST(GridHost, LineLoadsOfAClampedBeam) {
    const double L = 6;
    const double q = 3 + 0.5 * 4; // load and self-weight
    std::string text = grid + "unit_weight = 4\n[mesh]\npiece = 1.5\n" +
                       Bar("[0, 0]", "[0, 6]", "load = 3\n") +
                       Support("[[0, 0], [0, 6]]", "clamped = true");
    const Json json = AnalysedText(text);
    const Json& beams = json["beams"];
    ASSERT_EQ(beams.size(), 4u);
    const struct {
        double Value, Exact;
    } cases[] = {{beams[0]["moment"][0], -q * L * L / 12},
                 {beams[3]["moment"][1], -q * L * L / 12},
                 {beams[1]["moment"][1], q * L * L / 24},
                 {beams[0]["shear"][0], q * L / 2},
                 {beams[1]["shear"][0], q * L / 4},
                 {beams[3]["shear"][1], -q * L / 2},
                 {Settlement(json, 0, 3), q * std::pow(L, 4) / (384 * 400)}};
    for (const auto& c : cases) {
        EXPECT_NEAR(c.Value, c.Exact, 1e-5 * std::fabs(c.Exact));
    }
}

// Hetenyi (1946), Beams on Elastic Foundation, eq. 44: free ends, a load in the middle. An even
// load on top presses the ends down, too.
TEST(GridHost, BeamOnSpringsMeetsHetenyi) {
    const double k = 500 * 0.8;
    for (const double L : {2.0, 8.0, 20.0}) {
        const double lambda = std::pow(k / (4 * 400), 0.25);
        const double x = lambda * L;
        const std::string middle = Place(0.3 * L, 0.4 * L);
        std::string text = grid + "contact_width = 0.8\n";
        text += Bar("[0, 0]", Place(0.6 * L, 0.8 * L), "load = 20\n");
        text += Load(middle, 100) + Support(middle, "wx = 0\nwy = 0");
        text += "[soil]\nkind = \"winkler\"\nsubgrade = 500\n";
        const Json json = AnalysedText(text);
        const double divisor = std::sinh(x) + std::sin(x);
        const double centre = 100 * lambda / (2 * k) * (std::cosh(x) + std::cos(x) + 2) / divisor;
        const double tip = 200 * lambda / k * std::cosh(x / 2) * std::cos(x / 2) / divisor;
        const double moment = 100 / (4 * lambda) * (std::cosh(x) - std::cos(x)) / divisor;
        const double even = 20 / k;
        const double w = Settlement(json, 0.3 * L, 0.4 * L) - even;
        EXPECT_LT(Quote("settlement under the load", w, centre), 2e-3);
        EXPECT_NEAR(Settlement(json, 0, 0) - even, tip, 2e-3 * centre);
        double largest = 0;
        for (const Json& beam : json["beams"]) {
            largest = std::max(largest, beam["moment"][1].get<double>());
        }
        EXPECT_LT(Quote("largest moment", largest, moment), 1e-2);
    }
}

// Beams in any order and direction, of any outline of the section that has its properties.
TEST(GridHost, OrderAndDirectionOfBeamsDoNotMatter) {
    std::vector<std::pair<std::string, std::string>> lines;
    for (const double p : {0.0, 2.5, 7.0}) {
        lines.emplace_back(Place(0, p), Place(9, p));
        lines.emplace_back(Place(p + 1, -1), Place(p + 1, 8));
    }
    lines.emplace_back(Place(0, 0), Place(8, 8));
    const std::string head = "system = \"grid\"\n[[sections]]\nname = \"bar\"\nmodulus = 3e7\n"
                             "poisson = 0.2\n";
    const std::string rest = Load("[3.5, 2.5]", 500) + Load("[6, 6]", 200) +
                             "[soil]\nkind = \"winkler\"\nsubgrade = 20000\n"
                             "[mesh]\npiece = 1\n";
    const auto text = [&](const std::string& outline) {
        std::string all = head + outline;
        for (const auto& [from, to] : lines) {
            all += Bar(from, to);
        }
        return all + rest;
    };
    const std::string rectangle = "width = 0.6\nheight = 0.9\n";
    const Json first = AnalysedText(text(rectangle));
    std::mt19937 random(7);
    for (int round = 0; round < 3; ++round) {
        for (std::size_t i = lines.size(); i-- > 1;) {
            std::swap(lines[i], lines[random() % (i + 1)]);
        }
        std::swap(lines[0].first, lines[0].second);
        std::swap(lines[3].first, lines[3].second);
        const Json again =
            AnalysedText(text(round == 0 ? rectangle
                                         : "polygon = [[5, 2], [5.6, 2], [5.6, 2.9], [5, 2.9]]\n"
                                           "torsion = 0.03803200\ncontact_width = 0.6\n"));
        for (const Json& node : first["nodes"]) {
            const double w = node["settlement"];
            EXPECT_NEAR(Settlement(again, node["x"], node["y"]), w, 3e-6 * w);
        }
    }
}

// A strip bent to a circle: slab and beams have the same curvature, each its stiffness times it.
TEST(SlabWithBeams, BendTogether) {
    const Json json = AnalysedText(
        "[units]\nsettlement = \"m\"\n[mesh]\nx = { count = 8, length = 8 }\n"
        "y = { count = 2, length = 1 }\n[slab]\nthickness = 0.2\nmodulus = 3e7\npoisson = 0\n"
        "[[sections]]\nname = \"bar\"\nmodulus = 3e7\npoisson = 0.2\nwidth = 0.3\nheight = 0.5\n" +
        Bar("[0, 0]", "[8, 0]") + Bar("[8, 1]", "[0, 1]") +
        "[[supports]]\nedge = \"left\"\nw = 0\nwx = 0.004\n"
        "[[supports]]\nedge = \"right\"\nw = 0\nwx = -0.004\n");
    const double curvature = 0.008 / 8;
    EXPECT_NEAR(Settlement(json, 4, 0.5), curvature * 64 / 8, 1e-7);
    ASSERT_EQ(json["beams"].size(), 16u);
    for (const Json& beam : json["beams"]) {
        for (const double moment : beam["moment"]) {
            EXPECT_NEAR(moment, 3e7 * 0.3 * 0.125 / 12 * curvature, 1e-2);
        }
    }
    EXPECT_NEAR(At(json, "nodes", 4, 0.5)["mx"], 3e7 * 0.008 / 12 * curvature, 1e-3);
}

TEST(GridRefusal, AMechanismNamesNodeAndFreedom) {
    const std::string text =
        grid + Bar("[0, 0]", "[6, 0]") + Load("[3, 0]", 10) + Support("[[0, 0], [6, 0]]", "w = 0");
    EXPECT_NE(Failure(text).find("mechanism: node"), std::string::npos);
    EXPECT_NE(Failure(text).find("free in its slope in y"), std::string::npos);
    EXPECT_NEAR(Settlement(AnalysedText(text + Support("[0, 0]", "wy = 0")), 3, 0),
                10 * 216 / (48 * 400.0), 1e-6);
}

} // namespace
} // namespace slab
