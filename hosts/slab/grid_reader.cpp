// The project of a grid of beams as a whole.

#include "hosts/slab/beam_reader.h"
#include "hosts/slab/key_table.h"
#include "hosts/slab/project.h"
#include "hosts/slab/project_file.h"
#include "hosts/slab/soil_reader.h"
#include "hosts/slab/supports.h"

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
        const double values[] = {load.NumberOr("force", Any, 0) * draft.Scale.Force,
                                 load.NumberOr("moment_wx", Any, 0) * draft.Scale.Moment,
                                 load.NumberOr("moment_wy", Any, 0) * draft.Scale.Moment};
        for (const int node : ReadPlace(load, draft, {"node", "at"}).Nodes) {
            for (std::size_t f = 0; f < 3; ++f) {
                draft.Model.NodalLoads[3 * static_cast<std::size_t>(node - 1) + f] += values[f];
            }
        }
    }
}

/// Winkler springs under every beam whose section has a contact width.
void ReadGridSoil(const KeyTable& root, ProjectDraft& draft) {
    if (!root.Has("soil")) {
        return;
    }
    const KeyTable table = root.Table("soil");
    table.Allow({"kind", "subgrade", "tension"});
    if (table.Get("kind").Choice({"none", "winkler"}) == 0) {
        return;
    }
    const double subgrade = table.Get("subgrade").Number(NotNegative) * draft.Scale.Density;
    bool any = false;
    for (Beam& beam : draft.Model.Beams) {
        const bool rests = draft.Model.Sections[beam.Section].ContactWidth > 0;
        beam.Subgrade = rests ? subgrade : 0;
        any = any || rests;
    }
    if (!any) {
        table.Fail("no beam rests on it; give a section a contact_width");
    }
    draft.Model.Soil.Kind = SoilKind::Winkler;
    draft.Model.Soil.TensionCutOff = table.Has("tension") && !table.Get("tension").Flag();
}

} // namespace

Model ReadGridProject(const ProjectFile& file) {
    const KeyTable root = file.Root();
    root.Allow({"title", "system", "units", "sections", "beams", "loads", "supports", "springs",
                "soil", "iteration"});
    ProjectDraft draft;
    draft.Model.File = file.Name();
    draft.Model.Title = root.Has("title") ? root.Get("title").Text() : "";
    draft.Scale = ReadUnits(root);
    draft.Model.Units = draft.Scale.Units;
    ReadGridBeams(root, draft);
    ReadGridLoads(root, draft);
    ReadSupports(root, draft);
    ReadSprings(root, draft);
    ReadGridSoil(root, draft);
    ReadIteration(root, draft);
    CheckWhole(root, draft.Model, "grid");
    return draft.Model;
}

} // namespace slab
