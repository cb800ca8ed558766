// Reading the project of a slab: its tables, and what only the whole shows.

#include "hosts/slab/beams/beam_reader.h"
#include "hosts/slab/key_table.h"
#include "hosts/slab/loads.h"
#include "hosts/slab/mesh.h"
#include "hosts/slab/piles/pile_reader.h"
#include "hosts/slab/project.h"
#include "hosts/slab/project_file.h"
#include "hosts/slab/slab_groups.h"
#include "hosts/slab/soil_reader.h"
#include "hosts/slab/supports.h"

#include <algorithm>

namespace slab {

namespace {

bool HoldsSettlement(const Model& model) {
    const auto& subgrade = model.Soil.Subgrade;
    return std::any_of(model.Restraints.begin(), model.Restraints.end(),
                       [](const Restraint& r) { return r.Freedom == 1; }) ||
           std::any_of(model.Springs.begin(), model.Springs.end(),
                       [](const NodeSpring& s) { return s.Stiffness[0] > 0; }) ||
           model.Soil.Kind == SoilKind::HalfSpace || model.Soil.Kind == SoilKind::Layered ||
           std::any_of(subgrade.begin(), subgrade.end(), [](double k) { return k > 0; }) ||
           std::any_of(model.Beams.begin(), model.Beams.end(),
                       [](const Beam& beam) { return beam.Subgrade > 0; });
}

bool IsLoaded(const Model& model) {
    const auto acts = [](double value) { return value != 0; };
    return std::any_of(model.Pressure.begin(), model.Pressure.end(), acts) ||
           std::any_of(model.NodalLoads.begin(), model.NodalLoads.end(), acts) ||
           std::any_of(model.Beams.begin(), model.Beams.end(),
                       [](const Beam& beam) { return beam.Load != 0; }) ||
           std::any_of(model.Restraints.begin(), model.Restraints.end(),
                       [](const Restraint& r) { return r.Value != 0; });
}

} // namespace

void CheckWhole(const KeyTable& root, const Model& model, const std::string& system) {
    if (!HoldsSettlement(model)) {
        root.Fail("nothing holds the " + system +
                  "; give it [soil], or [[supports]] or [[springs]] with w");
    }
    if (!IsLoaded(model)) {
        root.Fail("nothing acts on the " + system +
                  "; give it [loads], a unit_weight or a prescribed settlement");
    }
}

Model ReadSlabProject(const ProjectFile& file) {
    const KeyTable root = file.Root();
    root.Allow({"title", "system", "units", "mesh", "slab", "sections", "beams", "loads",
                "supports", "springs", "soil", "piles", "iteration"});
    ProjectDraft draft;
    draft.Model.File = file.Name();
    draft.Model.Title = root.Has("title") ? root.Get("title").Text() : "";
    draft.Scale = ReadUnits(root);
    draft.Model.Units = draft.Scale.Units;
    ReadMesh(root, draft);
    ReadSlab(root, draft);
    ReadSlabBeams(root, draft);
    ReadLoads(root, draft);
    ReadSupports(root, draft);
    ReadSprings(root, draft);
    ReadSoil(root, draft);
    ReadPiles(root, draft);
    ReadIteration(root, draft);
    CheckWhole(root, draft.Model, "slab");
    return draft.Model;
}

Model ParseProject(const std::string& text, const std::string& name) {
    return ReadSlabProject(ProjectFile(text, name));
}

} // namespace slab
