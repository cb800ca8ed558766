// Projects become the models they describe: units, meshes, supports, springs, examples.

#include "hosts/slab/mesh.h"
#include "hosts/slab/restraints.h"
#include "tests/hosts/project_text.h"
#include "tests/hosts/slab_models.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <set>
#include <sstream>

namespace {

double AreaOf(const slab::Model& model, const slab::Element& element) {
    double twice = 0;
    for (const auto& [from, to] : slab::SidesOf(element)) {
        const slab::Point& a = model.Nodes[from - 1];
        const slab::Point& b = model.Nodes[to - 1];
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2;
}

/// The same slab in other units; settlements in units of length for simplicity.
std::string InUnits(const std::string& length, double L, const std::string& force, double F) {
    std::ostringstream text;
    text.precision(17);
    const double q = F / (L * L);
    text << "[units]\nlength = \"" << length << "\"\nforce = \"" << force << "\"\nsettlement = \""
         << length << "\"\n[mesh]\norigin = [" << 1 / L << ", 0]\nx = [[6, " << 0.5 / L
         << "]]\ny = { count = 4, length = " << 2 / L << " }\n[slab]\nthickness = " << 0.2 / L
         << "\nmodulus = " << 3e7 / q << "\npoisson = 0.2\nunit_weight = " << 25 / (q / L)
         << "\n[[loads.uniform]]\npressure = " << 3 / q << "\n[[loads.patch]]\nx = [" << 1.2 / L
         << ", " << 1.9 / L << "]\ny = [" << 0.1 / L << ", " << 0.8 / L << "]\nforce = " << 40 / F
         << "\n[[loads.point]]\nat = [" << 2.1 / L << ", " << 0.3 / L << "]\nforce = " << 7 / F
         << "\nmoment_wx = " << 5 / (F * L) << "\nmoment_wy = " << 6 / (F * L)
         << "\n[[loads.line]]\nfrom = [" << 1.1 / L << ", " << 0.2 / L << "]\nto = [" << 3.7 / L
         << ", " << 1.9 / L << "]\nforce = " << 8 / (F / L) << "\n[[supports]]\nat = [" << 1 / L
         << ", 0]\nw = " << 0.01 / L << "\nwx = 0.002\n[[springs]]\nat = [" << 4 / L << ", "
         << 2 / L << "]\nw = " << 500 / (F / L) << "\nwy = " << 30 / (F * L)
         << "\n[[springs]]\nedge = \"left\"\nw = " << 100 / q << "\nwx = " << 9 / F
         << "\n[soil]\nkind = \"layers\"\n[[soil.layers]]\nthickness = " << 3 / L
         << "\nmodulus = " << 2e4 / q << "\npoisson = 0.3\n[iteration]\naccuracy = " << 1e-4 / L;
    return text.str();
}

/// All numbers of a model in one list.
std::vector<double> NumbersOf(const slab::Model& model) {
    std::vector<double> all = model.NodalLoads;
    all.insert(all.end(), model.Pressure.begin(), model.Pressure.end());
    for (const slab::Point& node : model.Nodes) {
        all.insert(all.end(), {node.x, node.y});
    }
    for (const slab::NodeSpring& spring : model.Springs) {
        all.push_back(spring.Node);
        all.insert(all.end(), spring.Stiffness.begin(), spring.Stiffness.end());
    }
    for (const slab::Restraint& r : model.Restraints) {
        all.insert(all.end(), {1.0 * r.Node, 1.0 * r.Freedom, r.Value});
    }
    const slab::Group& group = model.Groups[0];
    const slab::SoilLayer& layer = model.Soil.Layers[0];
    all.insert(all.end(), {group.Thickness, group.Modulus, layer.Thickness, layer.Modulus,
                           model.Stop.Accuracy});
    return all;
}

TEST(Units, DoNotChangeTheModel) {
    const std::vector<double> metric = NumbersOf(slab::ParseProject(InUnits("m", 1, "kN", 1), "m"));
    EXPECT_NEAR(metric.back(), 1e-4, 1e-18);
    const struct {
        const char* Length;
        double L;
        const char* Force;
        double F;
    } systems[] = {{"mm", 0.001, "N", 0.001},
                   {"cm", 0.01, "MN", 1000},
                   {"ft", 0.3048, "kip", 4.4482216152605},
                   {"in", 0.0254, "lbf", 0.0044482216152605}};
    for (const auto& [length, L, force, F] : systems) {
        const std::vector<double> other =
            NumbersOf(slab::ParseProject(InUnits(length, L, force, F), length));
        ASSERT_EQ(other.size(), metric.size());
        for (std::size_t i = 0; i < other.size(); ++i) {
            ASSERT_NEAR(other[i], metric[i], 1e-10 * (1 + std::fabs(metric[i]))) << length << i;
        }
    }
}

TEST(Units, OfModulusAndSettlementMayBeChosen) {
    slab::Model model = Parsed("force = \"kN\"", "force = \"kN\"\nmodulus = \"N/mm2\"");
    EXPECT_NEAR(model.Groups[0].Modulus, 3e10, 1e-2);
    EXPECT_NEAR(model.Stop.Accuracy, 0.0001, 1e-15);
    model = Parsed("force = \"kN\"", "force = \"kN\"\nsettlement = \"mm\"");
    EXPECT_NEAR(model.Stop.Accuracy, 0.00001, 1e-15);
    model = Parsed("length = \"m\"", "length = \"ft\"");
    EXPECT_EQ(model.Units.SettlementName, "in");
}

TEST(Grid, KeepsAreaUsesEveryNodeAndHasANarrowBand) {
    const std::string opening =
        "openings = [{x = [2, 3], y = [3, 4]}, {x = [4, 9], y = [4.5, 9]}]\n";
    const struct {
        std::string X, Y, More;
        double Area;
        int Difference; // of node numbers within an element
    } meshes[] = {
        {"[[20, 0.5]]", "[[6, 0.5]]", "", 30, 8},
        {"[[6, 0.5]]", "[[20, 0.5]]", "", 30, 8},
        {"[[6, 0.5]]", "[[20, 0.5]]", "triangles = true\n", 30, 8},
        {"{ count = 8, length = 4 }", "[[6, 0.5]]", opening, 12 - 1 - 0.5, 8},
        {"{ count = 8, length = 4 }", "[[6, 0.5]]", opening + "triangles = true\n", 12 - 1 - 0.5,
         8},
    };
    for (const auto& mesh : meshes) {
        std::string text = Replaced(PlainProject(), "{ count = 8, length = 4 }", mesh.X);
        text = Replaced(text, "[0.5, [4, 0.5], 0.5]", mesh.Y);
        text = Replaced(text, "origin = [1, 2]\n", "origin = [1, 2]\n" + mesh.More);
        text = Replaced(text, "at = [5, 5]", "at = [1, 2]");
        text = Replaced(text, "to = [4.5, 4.5]", "to = [1.5, 4.5]");
        const slab::Model model = slab::ParseProject(text, mesh.X);
        double area = 0;
        int difference = 0;
        std::set<int> used;
        for (const slab::Element& element : model.Elements) {
            EXPECT_GT(AreaOf(model, element), 0);
            area += AreaOf(model, element);
            const auto end = element.Node.begin() + element.Corners;
            const auto [least, greatest] = std::minmax_element(element.Node.begin(), end);
            difference = std::max(difference, *greatest - *least);
            used.insert(element.Node.begin(), end);
        }
        EXPECT_NEAR(area, mesh.Area, 1e-9) << mesh.X << mesh.More;
        EXPECT_LE(difference, mesh.Difference) << mesh.X << mesh.More;
        EXPECT_EQ(used.size(), model.Nodes.size());
    }
}

TEST(ListedMesh, IsTurnedIntoTheElementsOrder) {
    std::array<int, 4> order{1, 2, 3, 4};
    int accepted = 0;
    do {
        std::ostringstream text;
        text << "[mesh]\nnodes = [[1, 1], [3, 1], [3, 2], [1, 2]]\nelements = [[" << order[0]
             << ", " << order[1] << ", " << order[2] << ", " << order[3]
             << "]]\n[slab]\nthickness = 0.2\nmodulus = 3e7\npoisson = 0.2\nunit_weight = 25\n"
                "[soil]\nkind = \"half-space\"\nmodulus = 1e4\npoisson = 0.3\n";
        if (Refusal(text.str()) == "accepted") {
            const slab::Model model = slab::ParseProject(text.str(), "order");
            EXPECT_EQ(model.Elements[0].Node, (std::array<int, 4>{1, 2, 3, 4}));
            ++accepted;
        }
    } while (std::next_permutation(order.begin(), order.end()));
    EXPECT_EQ(accepted, 8); // four starts, two senses; the others cross themselves
}

TEST(Symmetry, IsTheLibrarysCase) {
    const char* names[] = {"none", "x", "y", "xy", "anti-x", "anti-y"};
    for (int i = 0; i < 6; ++i) {
        const slab::Model model =
            Parsed("origin", "symmetry = \"" + std::string(names[i]) + "\"\norigin");
        EXPECT_EQ(static_cast<int>(model.Symmetry), i + 1) << names[i];
    }
}

TEST(Groups, AndPressuresFollowTheirRegions) {
    const slab::Model model =
        Parsed("pressure = 5", "pressure = 5\n[[loads.uniform]]\npressure = 2\ngroup = \"thick\"\n"
                               "[[loads.uniform]]\npressure = 1\nelements = [[7, 10], 9]");
    for (std::size_t i = 0; i < model.Elements.size(); ++i) {
        const bool thick = slab::CentreOf(model.Elements[i], model.Nodes).x < 2;
        const double t = model.Groups[model.Elements[i].Group].Thickness;
        EXPECT_DOUBLE_EQ(t, thick ? 0.4 : 0.3);
        EXPECT_EQ(model.Groups[model.Elements[i].Group].Modulus, 3e7);
        EXPECT_NEAR(model.Pressure[i], 25 * t + 5 + (thick ? 2 : 0) + (i >= 6 && i < 10 ? 1 : 0),
                    1e-12);
    }
}

/// Nodes that are restrained when a support takes this place, on a slab with an opening and a
/// re-entrant corner.
std::set<std::pair<double, double>> Supported(const std::string& place,
                                              const std::string& symmetry) {
    std::string text = Replaced(PlainProject(), "origin = [1, 2]\n",
                                "origin = [1, 2]\nopenings = [{x = [2, 2.5], y = [3, 3.5]}, "
                                "{x = [3.5, 5], y = [4, 5]}]\nsymmetry = \"" +
                                    symmetry + "\"\n");
    text = Replaced(text, "edge = \"left\"", place);
    text =
        Replaced(Replaced(text, "to = [4.5, 4.5]", "to = [1.5, 4.5]"), "at = [5, 5]", "node = 1");
    text = Replaced(text, "at = [3.3, 4.1]", "at = [1.3, 4.1]");
    std::set<std::pair<double, double>> places;
    const slab::Model model = slab::ParseProject(text, "supports");
    for (const slab::Restraint& restraint : model.Restraints) {
        const slab::Point& p = model.Nodes[restraint.Node - 1];
        places.insert({p.x, p.y});
    }
    EXPECT_EQ(places.size(), model.Restraints.size());
    return places;
}

TEST(Supports, StandWhereTheyAreAsked) {
    const auto left = [](double x, double) { return x == 1; };
    const auto top = [](double, double y) { return y == 5; };
    const auto re = [](double x, double y) { return (x == 3.5 && y >= 4) || (x >= 3.5 && y == 4); };
    const auto right = [](double x, double) { return x == 5; };
    const auto bottom = [](double, double y) { return y == 2; };
    using Places = std::function<bool(double, double)>;
    const struct {
        std::string Place, Symmetry;
        Places On;
    } cases[] = {
        {"edge = \"left\"", "none", left},
        {"edge = \"right\"", "x", right},
        {"edge = \"top\"", "none", top},
        {"edge = \"bottom\"", "xy", bottom},
        {"line = [[1, 2.5], [3.004, 2.5]]", "none",
         [](double x, double y) { return y == 2.5 && x <= 3; }},
        {"line = [[1, 2], [2.5, 3.5]]", "none",
         [](double x, double y) { return x - 1 == y - 2 && x <= 2.5; }},
        {"at = [[1, 2], [5, 2.002]]", "none",
         [](double x, double y) { return y == 2 && (x == 1 || x == 5); }},
        {"edge = \"all\"", "none",
         [=](double x, double y) {
             return left(x, y) || top(x, y) || re(x, y) || right(x, y) || bottom(x, y);
         }},
        {"edge = \"all\"", "xy",
         [=](double x, double y) { return left(x, y) || re(x, y) || bottom(x, y); }},
    };
    const slab::Model whole = Parsed("origin", "origin");
    for (const auto& [place, symmetry, on] : cases) {
        std::set<std::pair<double, double>> wanted;
        for (const slab::Point& p : whole.Nodes) {
            const bool cutOut = p.x > 3.5 && p.y > 4;
            if (!cutOut && on(p.x, p.y)) {
                wanted.insert({p.x, p.y});
            }
        }
        EXPECT_EQ(Supported(place, symmetry), wanted) << place << ' ' << symmetry;
    }
    EXPECT_NE(Refusal(Replaced(Replaced(PlainProject(), "origin", "symmetry = \"y\"\norigin"),
                               "\"left\"", "\"right\""))
                  .find("is the symmetry line"),
              std::string::npos);
}

// What the library holds on the symmetry lines can be given no other value.
TEST(Supports, SymmetryHoldsItsFreedoms) {
    for (const std::string symmetry : {"none", "x", "y", "xy", "anti-x", "anti-y"}) {
        const std::string text =
            Replaced(PlainProject(), "origin", "symmetry = \"" + symmetry + "\"\norigin");
        slab::Model model = slab::ParseProject(text, "test.toml");
        model.Restraints.clear();
        torlib::FEM_Class fem;
        const std::vector<char> held = slab::Restraints(model, fem).Held;
        for (const slab::Point& p : {slab::Point{5, 3}, {3, 5}, {5, 5}, {3, 3}}) {
            const auto node = static_cast<std::size_t>(slab::NodeAt(model, p.x, p.y) - 1);
            for (std::size_t f = 0; f < 3; ++f) {
                std::ostringstream support;
                support << "[[supports]]\nat = [" << p.x << ", " << p.y << "]\n"
                        << (f == 0   ? "w"
                            : f == 1 ? "wx"
                                     : "wy")
                        << " = 0.01\n";
                const std::string message = Refusal(text + support.str());
                EXPECT_EQ(message.find("(allowed: 0)") != std::string::npos,
                          held[3 * node + f] != 0)
                    << symmetry << support.str() << message;
            }
        }
    }
}

TEST(Springs, OfALineCarryItsLength) {
    const struct {
        const char* Place;
        double Length;
    } lines[] = {{"edge = \"left\"", 3},
                 {"edge = \"all\"", 14},
                 {"line = [[1, 3.5], [4, 3.5]]", 3},
                 {"line = [[2, 2], [2, 5]]", 3}};
    for (const auto& [place, length] : lines) {
        const slab::Model model = Parsed("at = [5, 5]", place);
        double sum = 0;
        for (const slab::NodeSpring& spring : model.Springs) {
            sum += spring.Stiffness[0];
        }
        EXPECT_NEAR(sum, 1000 * length, 1e-9) << place;
    }
    EXPECT_NE(Refusal(Replaced(PlainProject(), "at = [5, 5]", "line = [[1, 2], [4, 5]]"))
                  .find("no side of an element"),
              std::string::npos);
}

TEST(Soil, RegionsChangeTheSubgradeWhereTheyLie) {
    const slab::Model model = Parsed("tension = false", "tension = false\n[[soil.regions]]\n"
                                                        "x = [3, 9]\ny = [0, 3]\nsubgrade = 7");
    EXPECT_TRUE(model.Soil.TensionCutOff);
    for (std::size_t i = 0; i < model.Elements.size(); ++i) {
        const slab::Point centre = slab::CentreOf(model.Elements[i], model.Nodes);
        EXPECT_EQ(model.Soil.Subgrade[i], centre.x > 3 && centre.y < 3 ? 7 : 20000);
    }
}

TEST(Examples, AreValidAndSayWhatTheyShow) {
    std::map<std::string, std::string> texts;
    for (const slab::Example& example : slab::Examples()) {
        EXPECT_GT(example.Purpose.size(), 40u) << example.Name;
        EXPECT_EQ(Refusal(example.Text), "accepted") << example.Name;
        texts.emplace(example.Name, example.Text);
    }
    ASSERT_EQ(texts.count("raft-half-space"), 1u);
    const auto total = [&texts](const std::string& name) {
        const slab::Model model = slab::ParseProject(texts.at(name), name);
        double sum = 0;
        for (std::size_t i = 0; i < model.NodalLoads.size(); i += 3) {
            sum += model.NodalLoads[i];
        }
        for (std::size_t i = 0; i < model.Elements.size(); ++i) {
            sum += model.Pressure[i] * AreaOf(model, model.Elements[i]);
        }
        return sum;
    };
    EXPECT_NEAR(total("full-model"), 4 * total("quarter-model"), 1e-6);
}

} // namespace
