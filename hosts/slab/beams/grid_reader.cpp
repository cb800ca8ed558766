// The project of a grid of beams as a whole.

#include "hosts/slab/beams/beam_reader.h"
#include "hosts/slab/key_table.h"
#include "hosts/slab/limits.h"
#include "hosts/slab/project.h"
#include "hosts/slab/project_file.h"
#include "hosts/slab/soil_reader.h"
#include "hosts/slab/supports.h"

#include <algorithm>

namespace slab {

namespace {

void ReadGridLoads(const KeyTable& root, ProjectDraft& draft) {
    if (!root.Has("loads")) {
        return;
    }
    const KeyTable loads = root.Table("loads");
    loads.Allow({"point"});
    for (const KeyTable& load : loads.Tables("point")) {
        load.Allow({"node", "at", "force", "moment_wx", "moment_wy"});
        if (!load.Has("force") && !load.Has("moment_wx") && !load.Has("moment_wy")) {
            load.Fail("one of these keys is needed: force, moment_wx, moment_wy");
        }
        const double values[] = {
            WithinOrZero(load, "force", Any, draft.Scale.Force, LargestLoad),
            WithinOrZero(load, "moment_wx", Any, draft.Scale.Moment, LargestLoad),
            WithinOrZero(load, "moment_wy", Any, draft.Scale.Moment, LargestLoad)};
        for (const int node : ReadPlace(load, draft, {"node", "at"}).Nodes) {
            for (std::size_t f = 0; f < 3; ++f) {
                draft.Model.NodalLoads[3 * static_cast<std::size_t>(node - 1) + f] += values[f];
            }
        }
    }
}

/// Modulus of subgrade under every beam whose section has a contact width.
double ReadGridSoil(const KeyTable& root, ProjectDraft& draft) {
    if (!root.Has("soil")) {
        return 0;
    }
    const KeyTable table = root.Table("soil");
    table.Allow({"kind", "subgrade", "tension"});
    if (table.Get("kind").Choice({"none", "winkler"}) == 0) {
        return 0;
    }
    draft.Model.Soil.Kind = SoilKind::Winkler;
    draft.Model.Soil.TensionCutOff = table.Has("tension") && !table.Get("tension").Flag();
    return Within(table.Get("subgrade"), NotNegative, draft.Scale.Density, LargestSpring);
}

void RequireBeamOnSoil(const KeyTable& root, const Model& model) {
    const bool any = std::any_of(model.Beams.begin(), model.Beams.end(),
                                 [](const Beam& beam) { return beam.Subgrade > 0; });
    if (model.Soil.Kind == SoilKind::Winkler && !any) {
        root.Get("soil").Fail("carries no beam; give it a subgrade and a section a contact_width");
    }
}

} // namespace

Model ReadGridProject(const ProjectFile& file) {
    const KeyTable root = file.Root();
    root.Allow({"title", "system", "units", "mesh", "sections", "beams", "loads", "supports",
                "springs", "soil", "iteration"});
    ProjectDraft draft;
    draft.Model.File = file.Name();
    draft.Model.Title = root.Has("title") ? root.Get("title").Text() : "";
    draft.Scale = ReadUnits(root);
    draft.Model.Units = draft.Scale.Units;
    ReadGridBeams(root, ReadGridSoil(root, draft), draft);
    RequireBeamOnSoil(root, draft.Model);
    ReadGridLoads(root, draft);
    ReadSupports(root, draft);
    ReadSprings(root, draft);
    ReadIteration(root, draft);
    CheckWhole(root, draft.Model, "grid");
    return draft.Model;
}

} // namespace slab
