// Plane frames through the host: closed forms, laws, mechanisms, refusals.

#include "tests/hosts/analysed_text.h"
#include "tests/hosts/quoted.h"

#include <cmath>
#include <numbers>

namespace slab {
namespace {

/// E = 29e6 psi, A = 1 in2, I = 1/12 in4 as a square of 1 in; unit of everything: in, lbf.
const std::string square_bar = "system = \"frame\"\n"
                               "[units]\nlength = \"in\"\nforce = \"lbf\"\n"
                               "[[sections]]\nname = \"bar\"\nmodulus = 29e6\n"
                               "width = 1\nheight = 1\n";

/// Members of the bar: {from, to, hinge} with places as texts.
std::string Bar(const std::string& from, const std::string& to, const std::string& hinge = "none") {
    return "[[members]]\nsection = \"bar\"\nfrom = " + from + "\nto = " + to + "\nhinge = \"" +
           hinge + "\"\n";
}

std::string Portal(double load) {
    const std::string x = std::to_string(load);
    return square_bar + Bar("[0, 0]", "[0, 100]") + Bar("[0, 100]", "[" + x + ", 100]") +
           Bar("[" + x + ", 100]", "[100, 100]") + Bar("[100, 100]", "[100, 0]") +
           "[[supports]]\nedge = \"bottom\"\nclamped = true\n[[loads.node]]\nat = [" + x +
           ", 100]\nfy = 1000\n";
}

// Kleinlogel (1952), Rigid Frame Formulas; with the shortening of the members in 64-bit arithmetic.
TEST(FrameHost, PortalMeetsTheFormulas) {
    const Json middle = AnalysedText(Portal(50));
    const struct {
        const char* Name;
        double Value, Formula, WithShortening;
    } lines[] = {
        {"base moment", Value(middle, "members", 1, "m_start"), 4166.67, 4166.458},
        {"corner moment", Value(middle, "members", 1, "m_end"), -8333.33, -8333.229},
        {"thrust", Value(middle, "reactions", 1, "rx"), 125, 124.9969},
    };
    for (const auto& line : lines) {
        EXPECT_LT(Quote(line.Name, line.Value, line.Formula), 1e-4);
        EXPECT_NEAR(line.Value / line.WithShortening, 1, 1e-6) << line.Name;
    }
    EXPECT_NEAR(Value(middle, "reactions", 1, "ry"), 500, 1e-6);
    EXPECT_NEAR(Value(middle, "members", 2, "m_end"), 25000 - 8333.229, 0.1);
    EXPECT_NEAR(Value(middle, "members", 2, "v_start"), 500, 1e-6);
    EXPECT_NEAR(Value(middle, "members", 2, "n_start"), -124.9969, 1e-3);

    const Json quarter = AnalysedText(Portal(25));
    EXPECT_LT(Quote("sway", Value(quarter, "nodes", 2, "u"), 1.38485), 5e-6);
    const struct {
        std::size_t Member;
        const char* Key;
        double Exact;
    } moments[] = {{1, "m_start", 2455.58},
                   {1, "m_end", -6919.19},
                   {4, "m_start", -5580.66},
                   {4, "m_end", 3794.11}};
    for (const auto& moment : moments) {
        const double value = Value(quarter, "members", moment.Member, moment.Key);
        EXPECT_LT(Quote(moment.Key, value, moment.Exact), 1e-5);
    }
}

/// A member from the origin with both ends held.
std::string HeldMember(double x, double y, const std::string& hinge, double qx, double qy) {
    const std::string end = "[" + std::to_string(x) + ", " + std::to_string(y) + "]";
    return square_bar + Bar("[0, 0]", end, hinge) +
           "[[loads.line]]\nmember = 1\nw = 3\nqx = " + std::to_string(qx) +
           "\nqy = " + std::to_string(qy) + "\n[[supports]]\nat = [[0, 0], " + end +
           "]\nclamped = true\n";
}

// One member from (0, 0) to (30, 40) or upright or level, fixed at the start; its free end is held
// as the case asks. q acts across the member, n along it.
TEST(FrameHost, ReleasesMeetClosedFormsInEveryDirection) {
    const double L = 50;
    for (const auto& [x, y] : {std::pair{30, 40}, {50, 0}, {0, 50}, {-30, 40}, {-40, -30}}) {
        const double c = x / L;
        const double s = y / L;
        for (const std::string hinge : {"none", "start", "end", "both"}) {
            // Loads per projected length, except where there is no projection.
            const double qx = y != 0 ? 7 : 0;
            const double qy = x != 0 ? 11 : 0;
            const double fx = qx * std::fabs(y);
            const double fy = -qy * std::fabs(x) - 3 * L;
            const double q = (fy * c - fx * s) / L; // to the left of the member
            const double n = (fx * c + fy * s) / L;
            const Json json = AnalysedText(HeldMember(x, y, hinge, qx, qy));
            const bool start = hinge == "start" || hinge == "both";
            const bool far = hinge == "end" || hinge == "both";
            const double fixed = -q * L * L / (start || far ? 8 : 12);
            const double M0 = start ? 0 : -fixed;
            const double M1 = far ? 0 : -fixed;
            const double scale = std::fabs(fixed);
            EXPECT_NEAR(Value(json, "members", 1, "m_start"), M0, 1e-6 * scale) << hinge << x;
            EXPECT_NEAR(Value(json, "members", 1, "m_end"), M1, 1e-6 * scale) << hinge << x;
            EXPECT_NEAR(Value(json, "members", 1, "m_middle"), (M0 + M1) / 2 - q * L * L / 8,
                        1e-6 * scale);
            EXPECT_NEAR(Value(json, "members", 1, "v_start"), (M1 - M0) / L - q * L / 2,
                        1e-6 * scale);
            EXPECT_NEAR(Value(json, "members", 1, "n_start"), n * L / 2, 1e-6 * scale);
            EXPECT_NEAR(Value(json, "members", 1, "n_end"), -n * L / 2, 1e-6 * scale);
            EXPECT_NEAR(json["balance"]["loads"]["fx"], fx, 1e-6 * scale);
            EXPECT_NEAR(json["balance"]["supports"]["fy"], -fy, 1e-6 * scale);
        }
    }
}

// A propped cantilever: M = 9 q L^2 / 128 at 3/8 L from the hinge.
TEST(FrameHost, ExtremeMomentStandsWhereTheShearVanishes) {
    const Json json = AnalysedText(square_bar + Bar("[0, 0]", "[80, 0]", "start") +
                                   "[[loads.line]]\nmember = 1\nqy = 2\n"
                                   "[[supports]]\nat = [[0, 0], [80, 0]]\nclamped = true\n");
    EXPECT_NEAR(Value(json, "members", 1, "x_extreme"), 30, 1e-5);
    EXPECT_NEAR(Value(json, "members", 1, "m_extreme"), 9 * 2 * 6400 / 128.0, 1e-3);
    EXPECT_NEAR(Value(json, "members", 1, "m_end"), -2 * 6400 / 8.0, 1e-3);
    // A post under its load is nowhere in tension.
    const Json post = AnalysedText(square_bar + Bar("[0, 0]", "[0, 80]") +
                                   "[[loads.node]]\nat = [0, 80]\nfy = 5\n"
                                   "[[supports]]\nat = [0, 0]\nclamped = true\n");
    EXPECT_NEAR(post["extremes"]["n"]["greatest"]["value"], -5, 1e-9);
}

// A bar of two pieces, hinged to one another, turned from the x axis: support moments, springs.
TEST(FrameHost, MomentsSettlementsAndSpringsKeepTheirSense) {
    const double EI = 29e6 / 12;
    const std::string cantilever =
        square_bar + Bar("[0, 0]", "[100, 0]") + "[[supports]]\nat = [0, 0]\nclamped = true\n";
    // A moment in the sense of theta turns the end of +x down.
    const Json turned = AnalysedText(cantilever + "[[loads.node]]\nat = [100, 0]\nmoment = 500\n");
    EXPECT_NEAR(Value(turned, "nodes", 2, "theta"), 500 * 100 / EI, 1e-8);
    EXPECT_NEAR(Value(turned, "nodes", 2, "v"), -500 * 1e4 / 2 / EI, 1e-6);
    EXPECT_NEAR(Value(turned, "reactions", 1, "moment"), -500, 1e-6);
    EXPECT_NEAR(Value(turned, "members", 1, "m_middle"), -500, 1e-6);
    // A lift of the end by 2 in.
    const Json lifted = AnalysedText(cantilever + "[[supports]]\nat = [100, 0]\nv = 2\n");
    EXPECT_NEAR(Value(lifted, "reactions", 2, "ry"), 3 * EI * 2 / 1e6, 1e-5);
    // On a spring half as stiff as the cantilever two thirds stay in the cantilever.
    const Json sprung = AnalysedText(cantilever +
                                     "[[loads.node]]\nat = [100, 0]\nfy = 90\nfx = 7\n"
                                     "[[springs]]\nat = [100, 0]\nv = " +
                                     std::to_string(1.5 * EI / 1e6) + "\n");
    EXPECT_NEAR(Value(sprung, "springs", 1, "ry"), 30, 1e-4);
    EXPECT_NEAR(Value(sprung, "reactions", 1, "ry"), 60, 1e-4);
    EXPECT_NEAR(Value(sprung, "reactions", 1, "rx"), -7, 1e-6);
    EXPECT_NEAR(Value(sprung, "members", 1, "n_start"), 7, 1e-6);
    EXPECT_NEAR(Value(sprung, "nodes", 2, "v"), -60 * 1e6 / 3 / EI, 1e-5);
}

// Half a portal on its symmetry line answers as the whole does.
TEST(FrameHost, HalfFrameIsHalfOfTheWhole) {
    const std::string wind = "[[loads.line]]\nmember = \"beam\"\nqy = 10\n"
                             "[[supports]]\nedge = \"bottom\"\nclamped = true\n";
    const std::string left =
        square_bar + Bar("[0, 0]", "[0, 60]") + Bar("[0, 60]", "[50, 60]") + "name = \"beam\"\n";
    const Json whole = AnalysedText(left + Bar("[50, 60]", "[100, 60]") + "name = \"beam\"\n" +
                                    Bar("[100, 60]", "[100, 0]") + wind);
    const std::string part = left + "[frame]\nsymmetry = \"y\"\n" + wind;
    const Json half = AnalysedText(part);
    for (const char* key : {"n_start", "v_end", "m_start", "m_end"}) {
        EXPECT_NEAR(Value(half, "members", 2, key), Value(whole, "members", 2, key), 1e-3) << key;
    }
    EXPECT_NEAR(Value(half, "nodes", 3, "v"), Value(whole, "nodes", 3, "v"), 1e-8);
    for (const auto& [key, held] : {std::pair{"u", true}, {"v", false}, {"theta", true}}) {
        const std::string message =
            Refusal(part + "[[supports]]\nnode = 3\n" + std::string(key).append(" = 0.1\n"));
        EXPECT_EQ(message.find("symmetry holds node 3") != std::string::npos, held) << message;
    }
}

TEST(FrameHost, SectionsFollowFromTheirOutline) {
    const std::string beam =
        Bar("[0, 0]", "[100, 0]") + "[[supports]]\nat = [0, 0]\nclamped = true\n";
    const std::string head = "system = \"frame\"\n[units]\nlength = \"in\"\nforce = \"lbf\"\n"
                             "[[sections]]\nname = \"bar\"\nmodulus = 29e6\nunit_weight = 0.5\n";
    // A right triangle, base 6, height 9: A = 27, I = 6 * 9^3 / 36 = 121.5.
    for (const char* shape :
         {"polygon = [[10, 20], [16, 20], [10, 29]]", "area = 27\ninertia = 121.5"}) {
        const Json json = AnalysedText((head + shape).append("\n").append(beam));
        const double weight = 0.5 * 27;
        EXPECT_NEAR(json["balance"]["supports"]["fy"], weight * 100, 1e-3);
        EXPECT_NEAR(Value(json, "nodes", 2, "v"), -weight * 1e8 / 8 / (29e6 * 121.5), 1e-6);
    }
}

TEST(FrameHost, MechanismsAreNamedByNodeAndDirection) {
    const std::string load = "[[loads.node]]\nnode = 2\nfy = 1\n";
    const std::string ends = "[[supports]]\nat = [[0, 0], [100, 0]]\nu = 0\nv = 0\n";
    const std::string row = Bar("[0, 0]", "[40, 0]", "end") + Bar("[40, 0]", "[100, 0]");
    const struct {
        const char* Name;
        std::string Text;
        const char* Says;
        std::string Cure;
    } cases[] = {
        {"three hinges in a row", row + ends + load, "node 2 at x = 40 in, y = 0 in",
         "[[springs]]\nnode = 2\nv = 10\n"},
        {"three hinges in a row", row + ends + load, "displacement in y",
         "[[springs]]\nnode = 1\ntheta = 10\n"},
        {"no support along the bar",
         row + "[[supports]]\nat = [[0, 0], [40, 0], [100, 0]]\nv = 0\n" + load,
         "displacement in x", "[[supports]]\nnode = 3\nu = 0\n"},
        {"a bar on one hinge",
         Bar("[0, 0]", "[40, 0]") + "[[supports]]\nnode = 1\nu = 0\nv = 0\n" + load,
         "node 2 at x = 40 in, y = 0 in is free in its displacement in y",
         "[[supports]]\nnode = 1\ntheta = 0\n"},
        {"a panel without diagonal",
         Bar("[0, 0]", "[0, 50]", "both") + Bar("[0, 50]", "[80, 50]", "both") +
             Bar("[80, 50]", "[80, 0]", "both") +
             "[[supports]]\nedge = \"bottom\"\nu = 0\nv = 0\n" + load,
         "displacement in x", Bar("[0, 0]", "[80, 50]", "both")},
        {"a rigid piece on a hinged bar",
         Bar("[0, 0]", "[40, 0]") + "[[supports]]\nnode = [1, 2]\nu = 0\nv = 0\n" +
             Bar("[40, 0]", "[80, 0]", "both") + Bar("[80, 0]", "[80, 50]") + load,
         "node 3 at x = 80 in, y = 0 in is free in its displacement in y",
         "[[supports]]\nnode = 4\nclamped = true\n"},
    };
    for (const auto& c : cases) {
        const std::string message = Failure(square_bar + c.Text);
        EXPECT_NE(message.find("mechanism: node"), std::string::npos) << c.Name << message;
        EXPECT_NE(message.find(c.Says), std::string::npos) << c.Name << ": " << message;
        EXPECT_EQ(Failure(square_bar + c.Text + c.Cure), "held") << c.Name;
    }
}

// A truss: every joint is all hinges, so no rotation means anything there. Forces by joints.
TEST(FrameHost, TrussNeedsNoRotations) {
    std::string text = square_bar;
    for (const auto& [from, to] :
         {std::pair{"[0, 0]", "[40, 30]"}, {"[40, 30]", "[80, 0]"}, {"[0, 0]", "[80, 0]"}}) {
        text += Bar(from, to, "both");
    }
    text += "[[supports]]\nat = [0, 0]\nu = 0\nv = 0\n[[supports]]\nat = [80, 0]\nv = 0\n"
            "[[loads.node]]\nat = [40, 30]\nfy = 60\n";
    const Json json = AnalysedText(text);
    EXPECT_NEAR(Value(json, "members", 1, "n_start"), -50, 1e-6);
    EXPECT_NEAR(Value(json, "members", 3, "n_end"), 40, 1e-6);
    EXPECT_NE(Refusal(text + "moment = 5\n")
                  .find("loads.node[1].moment: acts at node 2, where every "
                        "member is hinged"),
              std::string::npos);
}

// A slender chain is a cantilever, not a mechanism; doubles leave a millionth of the load in it.
TEST(FrameHost, LongChainHolds) {
    std::string text = square_bar + "[frame]\nnodes = [";
    const int count = 400;
    for (int i = 0; i <= count; ++i) {
        text += "[" + std::to_string(i) + ", 0],";
    }
    text += "]\n";
    for (int i = 1; i <= count; ++i) {
        text += Bar(std::to_string(i), std::to_string(i + 1));
    }
    text += "[[supports]]\nnode = 1\nclamped = true\n[[loads.node]]\nnode = 401\nfy = 1\n";
    const Json json = AnalysedText(text, 1e-5);
    EXPECT_LT(Quote("tip of 400 pieces", Value(json, "nodes", 401, "v"), -6.4e7 * 4 / 29e6), 1e-5);
}

/// `count` corners of a regular polygon, as text.
std::string Ring(int count, double radius) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count;
        text += (i > 0 ? ", [" : "[") + std::to_string(radius * std::cos(angle)) + ", " +
                std::to_string(radius * std::sin(angle)) + "]";
    }
    return text;
}

// Members along a ring and one that closes it: 3 n equations, a half band width of 3 n.
std::string RingFrame(int count) {
    std::string text = square_bar + "[frame]\nnodes = [" + Ring(count, 1e5) + "]\n";
    for (int i = 1; i <= count; ++i) {
        text += Bar(std::to_string(i), std::to_string(i % count + 1));
    }
    return text + "[[supports]]\nnode = 1\nclamped = true\n[[loads.node]]\nnode = 2\nfy = 1\n";
}

// A flat arch of three hinges holds as long as its rise is a number, not rounding.
TEST(FrameHost, ShallowArchHoldsAndAStraightOneDoesNot) {
    for (const auto& [rise, holds] :
         {std::pair{"1", true}, {"0.01", true}, {"0.0001", true}, {"0", false}}) {
        const std::string crown = std::string("[50, ") + rise + "]";
        const std::string failure = Failure(
            square_bar + Bar("[0, 0]", crown, "both") + Bar(crown, "[100, 0]", "both") +
            "[[supports]]\nat = [[0, 0], [100, 0]]\nu = 0\nv = 0\n[[loads.node]]\nnode = 2\n"
            "fx = 1\n");
        EXPECT_EQ(failure.find("mechanism") == std::string::npos, holds) << rise << failure;
    }
}

TEST(FrameRefusal, LimitsHoldOnBothSides) {
    const std::string frame = "system = \"frame\"\n[[sections]]\nname = \"bar\"\nmodulus = 2e8\n"
                              "polygon = [[0, 0], [1, 0], [0, 1]]\n"
                              "[frame]\nnodes = [[0, 0], [5, 0], [10, 0]]\n"
                              "[[members]]\nfrom = 1\nto = 2\nsection = \"bar\"\n"
                              "[[members]]\nfrom = 2\nto = 3\nsection = \"bar\"\n"
                              "[[supports]]\nnode = 1\nclamped = true\n"
                              "[[loads.line]]\nmember = 2\nqy = 3\n";
    const std::string polygon = "[0, 0], [1, 0], [0, 1]";
    const struct {
        std::string Text;
        const char* Message;
        bool Refused;
    } cases[] = {
        {frame, "accepted", true},
        {Replaced(frame, polygon, "[0, 0], [1, 0]"), "has 2 corners (allowed: 3 to 1000)", true},
        {Replaced(frame, polygon, Ring(1000, 1)), "accepted", true},
        {Replaced(frame, polygon, Ring(1001, 1)), "has 1001 corners (allowed: 3 to 1000)", true},
        {Replaced(frame, "[5, 0]", "[0.0101, 0]"), "accepted", true},
        {Replaced(frame, "[5, 0]", "[0.0099, 0]"), "members[1].to: is 0.0099 m from the start",
         true},
        {Replaced(frame, "[10, 0]]", "[10, 0], [0, 0.0011]]"), "lies at the place of", false},
        {Replaced(frame, "[10, 0]]", "[10, 0], [0, 0.0009]]"),
         "frame.nodes[4]: lies at the place of node 1", true},
        {Replaced(frame, "member = 2", "member = 3"), "is 3 (allowed: 1 to 2)", true},
        {Replaced(frame, "member = 2", "member = 0"), "is 0 (allowed: 1 to 2)", true},
        {Replaced(frame, "[0, 0], [5, 0], [10, 0]", Ring(10000, 9000)), "too many", false},
        {Replaced(frame, "[0, 0], [5, 0], [10, 0]", Ring(10001, 9000)),
         "frame.nodes[10001]: is one node too many (allowed: up to 10000)", true},
        {RingFrame(5461), "accepted", true},
        {RingFrame(5462),
         "too many equations: 16386 with a half band width of 16386, together 32771 rows", true},
    };
    for (const auto& c : cases) {
        const std::string message = Refusal(c.Text);
        EXPECT_EQ(message.find(c.Message) != std::string::npos, c.Refused)
            << c.Message << "\n  is: " << message;
    }
}

} // namespace
} // namespace slab
