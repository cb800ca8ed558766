// The analysis of a plane frame: displacements, forces along the members.

#include "hosts/slab/plane/frame_elements.h"
#include "hosts/slab/plane/plane_analysis.h"
#include "hosts/slab/plane/plane_mechanism.h"
#include "hosts/slab/quantities.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace slab {

namespace {

/// K u - Q of a member, turned into its axes.
MemberForces ForcesOf(const FrameModel& frame, std::size_t m, const Vector& u,
                      torlib::FEM_Class& fem) {
    const PlaneElement element = FrameElement(frame, m, fem);
    const Element& corners = frame.Base.Elements[m];
    Vector global(6);
    for (std::size_t i = 0; i < 6; ++i) {
        global[i] = -double{element.Loads(static_cast<int>(i) + 1).Value()};
        for (std::size_t j = 0; j < 6; ++j) {
            const auto node = static_cast<std::size_t>(corners.Node[j / 3] - 1);
            global[i] += element.Exact[6 * i + j] * u[3 * node + j % 3];
        }
    }
    const MemberAxis axis = AxisOf(frame, m);
    Vector local(6);
    for (std::size_t i = 0; i < 6; i += 3) {
        local[i] = axis.Cos * global[i] + axis.Sin * global[i + 1];
        local[i + 1] = axis.Cos * global[i + 1] - axis.Sin * global[i];
        local[i + 2] = global[i + 2];
    }
    MemberForces forces;
    forces.Start = {-local[0], local[1], local[2]};
    forces.End = {local[3], -local[4], -local[5]};
    forces.Across = LoadsAlong(frame, m).Across;
    forces.Length = axis.Length;
    return forces;
}

ResultTable MemberTable(const FrameModel& frame, const std::vector<MemberForces>& forces) {
    const Units& units = frame.Base.Units;
    const std::string force = units.ForceName;
    const std::string moment = units.ForceName + "." + units.LengthName;
    ResultTable table{"members",
                      "Forces of the members (N tension, V = dM/dx, M tension on the right of the "
                      "way from start to end)",
                      {{"member", "Member", "", true},
                       {"from", "from", "", true},
                       {"to", "to", "", true},
                       {"n_start", "N start", force},
                       {"v_start", "V start", force},
                       {"m_start", "M start", moment},
                       {"n_end", "N end", force},
                       {"v_end", "V end", force},
                       {"m_end", "M end", moment},
                       {"m_middle", "M middle", moment},
                       {"m_extreme", "M extreme", moment},
                       {"x_extreme", "at x", units.LengthName}},
                      {}};
    SectionForces size;
    for (const MemberForces& along : forces) {
        for (const SectionForces& end : {along.Start, along.End}) {
            size.N = std::max({size.N, std::fabs(end.N), std::fabs(end.V)});
            size.M = std::max(size.M, std::fabs(end.M));
        }
    }
    for (std::size_t m = 0; m < forces.size(); ++m) {
        const MemberForces& along = forces[m];
        const Element& element = frame.Base.Elements[m];
        const double x = along.PlaceOfExtreme();
        table.Rows.push_back({static_cast<double>(m + 1), static_cast<double>(element.Node[0]),
                              static_cast<double>(element.Node[1])});
        std::vector<double>& row = table.Rows.back();
        for (const SectionForces& end : {along.Start, along.End}) {
            row.push_back(Tidied(end.N, size.N) / units.Force);
            row.push_back(Tidied(end.V, size.N) / units.Force);
            row.push_back(Tidied(end.M, size.M) / units.Force / units.Length);
        }
        for (const double place : {along.Length / 2, x}) {
            row.push_back(Tidied(along.At(place).M, size.M) / units.Force / units.Length);
        }
        row.push_back(x / units.Length);
    }
    return table;
}

void AddFacts(const FrameModel& frame, PlaneResults& results) {
    const Units& units = frame.Base.Units;
    const double length = units.Length;
    for (const FrameSection& section : frame.Sections) {
        const std::string of = " of section " + section.Name;
        results.Facts.push_back(
            {"Area" + of, "A", units.LengthName + "2", NumberText(section.Area / length / length)});
        results.Facts.push_back({"Moment of inertia" + of, "I", units.LengthName + "4",
                                 NumberText(section.Inertia / std::pow(length, 4))});
        results.Facts.push_back({"Modulus" + of, "E", UnitName(units, Dimension::Pressure),
                                 NumberText(InUnits(units, Dimension::Pressure, section.Modulus))});
    }
}

} // namespace

SectionForces MemberForces::At(double x) const {
    const double t = x / Length;
    return {(1 - t) * Start.N + t * End.N, (1 - t) * Start.V + t * End.V,
            (1 - t) * Start.M + t * End.M - Across * x * (Length - x) / 2};
}

double MemberForces::PlaceOfExtreme() const {
    const double x = Across != 0 ? -Start.V / Across : -1;
    if (x > 0 && x < Length) {
        return x;
    }
    return std::fabs(End.M) > std::fabs(Start.M) ? Length : 0;
}

PlaneResults AnalyseFrame(const FrameModel& frame, const AnalysisOptions& options,
                          RunWindow& window) {
    const auto start = std::chrono::steady_clock::now();
    std::vector<int> idle;
    const std::vector<char> turns = RotationMatters(frame.Base, frame.Members);
    for (std::size_t n = 0; n < turns.size(); ++n) {
        if (!turns[n]) {
            idle.push_back(static_cast<int>(n) + 1);
        }
    }
    torlib::FEM_Class fem;
    PlaneSystem system(
        frame.Base, [&](std::size_t m) { return FrameElement(frame, m, fem); },
        PlaneRestraints(frame.Base, idle, true), options, window);
    RequireStiff(frame, system.Restrained(), system.Springs());
    const Vector u = system.Solve();
    std::vector<MemberForces> forces;
    for (std::size_t m = 0; m < frame.Members.size(); ++m) {
        forces.push_back(ForcesOf(frame, m, u, fem));
    }
    PlaneResults results = CommonFindings(frame.Base, system, u, true, options);
    results.Size = std::to_string(frame.Base.Nodes.size()) + " nodes, " +
                   std::to_string(frame.Members.size()) + " members";
    AddFacts(frame, results);
    const ResultTable table = MemberTable(frame, forces);
    results.Extremes.push_back(ExtremeOf(table, "member", "Axial force", {"n_start", "n_end"}));
    results.Extremes.back().Key = "n";
    results.Extremes.back().Symbol = "N";
    results.Extremes.push_back(ExtremeOf(table, "member", "Shear force", {"v_start", "v_end"}));
    results.Extremes.back().Key = "shear";
    results.Extremes.back().Symbol = "V";
    results.Extremes.push_back(
        ExtremeOf(table, "member", "Moment", {"m_start", "m_end", "m_extreme"}));
    results.Extremes.back().Key = "m";
    results.Extremes.back().Symbol = "M";
    results.Tables.push_back(table);
    results.Picture = FramePicture(frame, u, forces);
    results.Seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return results;
}

} // namespace slab
