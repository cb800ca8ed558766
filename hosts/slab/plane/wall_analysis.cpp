// The analysis of a wall plate: displacements, stresses of elements and nodes.

#include "hosts/slab/plane/plane_analysis.h"
#include "hosts/slab/plane/plane_mechanism.h"
#include "hosts/slab/plane/wall_elements.h"
#include "hosts/slab/plate_elements.h"
#include "hosts/slab/quantities.h"

#include <chrono>
#include <cmath>
#include <numeric>

namespace slab {

namespace {

void AddStressColumns(const Units& units, ResultTable& table) {
    const std::string stress = UnitName(units, Dimension::Pressure);
    const Column columns[] = {{"sx", "sx", stress}, {"sy", "sy", stress}, {"sxy", "sxy", stress},
                              {"s1", "s1", stress}, {"s2", "s2", stress}, {"angle", "phi", "deg"}};
    table.Columns.insert(table.Columns.end(), std::begin(columns), std::end(columns));
}

/// Stresses, principal stresses s1 >= s2, and the angle of s1 from x.
void AddStress(const Units& units, const Stress& s, std::vector<double>& row) {
    const double mean = (s.X + s.Y) / 2;
    const double radius = std::hypot((s.X - s.Y) / 2, s.XY);
    for (const double value : {s.X, s.Y, s.XY, mean + radius, mean - radius}) {
        row.push_back(InUnits(units, Dimension::Pressure, value));
    }
    row.push_back(InUnits(units, Dimension::Angle, std::atan2(2 * s.XY, s.X - s.Y) / 2));
}

ResultTable ElementTable(const Model& wall, const std::vector<Stress>& stresses) {
    ResultTable table{"elements",
                      "Stresses of the elements (tension positive)",
                      {{"element", "Element", "", true},
                       {"node_1", "node 1", "", true},
                       {"node_2", "node 2", "", true},
                       {"node_3", "node 3", "", true}},
                      {}};
    AddStressColumns(wall.Units, table);
    for (std::size_t e = 0; e < stresses.size(); ++e) {
        const auto& corners = wall.Elements[e].Node;
        table.Rows.push_back({static_cast<double>(e + 1), static_cast<double>(corners[0]),
                              static_cast<double>(corners[1]), static_cast<double>(corners[2])});
        AddStress(wall.Units, stresses[e], table.Rows.back());
    }
    return table;
}

/// Means over the elements of each node, weighted by their areas.
ResultTable NodeTable(const Model& wall, const std::vector<Stress>& stresses) {
    std::vector<Stress> sums(wall.Nodes.size());
    Vector areas(wall.Nodes.size());
    for (std::size_t e = 0; e < stresses.size(); ++e) {
        const double area = ElementArea(wall, wall.Elements[e]);
        for (const int corner : {0, 1, 2}) {
            const auto node = static_cast<std::size_t>(wall.Elements[e].Node[corner] - 1);
            areas[node] += area;
            sums[node].X += area * stresses[e].X;
            sums[node].Y += area * stresses[e].Y;
            sums[node].XY += area * stresses[e].XY;
        }
    }
    ResultTable table{"node_stresses",
                      "Stresses at the nodes (means of the elements there)",
                      {{"node", "Node", "", true}},
                      {}};
    AddStressColumns(wall.Units, table);
    for (std::size_t n = 0; n < sums.size(); ++n) {
        table.Rows.push_back({static_cast<double>(n + 1)});
        AddStress(wall.Units, {sums[n].X / areas[n], sums[n].Y / areas[n], sums[n].XY / areas[n]},
                  table.Rows.back());
    }
    return table;
}

void AddFacts(const Model& wall, PlaneResults& results) {
    const Units& units = wall.Units;
    for (const Group& group : wall.Groups) {
        const std::string of = " of group " + group.Name;
        results.Facts.push_back(
            {"Thickness" + of, "t", units.LengthName, NumberText(group.Thickness / units.Length)});
        results.Facts.push_back({"Modulus" + of, "E", UnitName(units, Dimension::Pressure),
                                 NumberText(InUnits(units, Dimension::Pressure, group.Modulus))});
        results.Facts.push_back({"Poisson's ratio" + of, "nu", "-", NumberText(group.Poisson)});
    }
}

} // namespace

PlaneResults AnalyseWall(const Model& wall, const AnalysisOptions& options, RunWindow& window) {
    const auto start = std::chrono::steady_clock::now();
    std::vector<int> rotations(wall.Nodes.size());
    std::iota(rotations.begin(), rotations.end(), 1);
    torlib::FEM_Class fem;
    PlaneSystem system(
        wall, [&](std::size_t e) { return WallElement(wall, e, fem); },
        PlaneRestraints(wall, rotations, false), options, window);
    RequireStiff(wall, system.Restrained(), system.Springs());
    const Vector u = system.Solve();
    std::vector<Stress> stresses;
    for (const Element& element : wall.Elements) {
        stresses.push_back(StressOf(wall, element, u));
    }
    PlaneResults results = CommonFindings(wall, system, u, false, options);
    results.Size = std::to_string(wall.Nodes.size()) + " nodes, " +
                   std::to_string(wall.Elements.size()) + " triangles";
    AddFacts(wall, results);
    results.Tables.push_back(ElementTable(wall, stresses));
    results.Tables.push_back(NodeTable(wall, stresses));
    const ResultTable& atNodes = results.Tables.back();
    for (const char* key : {"sx", "sy", "sxy"}) {
        results.Extremes.push_back(ExtremeOf(atNodes, "node", "Stress", {key}));
    }
    for (const char* key : {"s1", "s2"}) {
        results.Extremes.push_back(ExtremeOf(atNodes, "node", "Principal stress", {key}));
    }
    results.Picture = WallPicture(wall, u);
    results.Seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return results;
}

} // namespace slab
