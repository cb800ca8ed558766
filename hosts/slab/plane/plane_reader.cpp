// The projects of plane frames and wall plates as wholes.

#include "hosts/slab/plane/plane_reader.h"

#include "hosts/slab/mesh.h"
#include "hosts/slab/plane/wall_elements.h"
#include "hosts/slab/project_file.h"
#include "hosts/slab/sections.h"
#include "hosts/slab/slab_groups.h"
#include "hosts/slab/supports.h"

#include <algorithm>

namespace slab {

namespace {

void ReadHead(const ProjectFile& file, ProjectDraft& draft) {
    const KeyTable root = file.Root();
    draft.Model.File = file.Name();
    draft.Model.Title = root.Has("title") ? root.Get("title").Text() : "";
    draft.Scale = ReadUnits(root);
    draft.Model.Units = draft.Scale.Units;
}

/// `loaded` tells of loads beyond those of the nodes.
void CheckWhole(const KeyTable& root, const Model& model, const char* system, bool loaded) {
    if (model.Restraints.empty() && model.Springs.empty()) {
        root.Fail("nothing holds the " + std::string(system) +
                  "; give it [[supports]] or [[springs]]");
    }
    const bool acts = loaded ||
                      std::any_of(model.NodalLoads.begin(), model.NodalLoads.end(),
                                  [](double load) { return load != 0; }) ||
                      std::any_of(model.Restraints.begin(), model.Restraints.end(),
                                  [](const Restraint& restraint) { return restraint.Value != 0; });
    if (!acts) {
        root.Fail("nothing acts on the " + std::string(system) +
                  "; give it [loads], a unit_weight or a prescribed displacement");
    }
}

bool IsLoaded(const Member& member) {
    const MemberLoads& loads = member.Loads;
    return loads.AcrossHeight != 0 || loads.AcrossWidth != 0 || loads.PerLength != 0;
}

} // namespace

FrameModel ReadFrameProject(const ProjectFile& file) {
    const KeyTable root = file.Root();
    root.Allow({"title", "system", "units", "sections", "frame", "members", "loads", "supports",
                "springs"});
    ProjectDraft draft;
    ReadHead(file, draft);
    draft.Freedoms = {{"u", "v", "theta"}, 2};
    FrameModel frame;
    frame.Sections = ReadSections(root, draft.Scale, SectionUse::Frame);
    ReadMembers(root, draft, frame);
    ReadSupports(root, draft);
    ReadSprings(root, draft);
    ReadFrameLoads(root, draft, frame);
    CheckWhole(root, draft.Model, "frame",
               std::any_of(frame.Members.begin(), frame.Members.end(), IsLoaded));
    frame.Base = draft.Model;
    return frame;
}

Model ReadWallProject(const ProjectFile& file) {
    const KeyTable root = file.Root();
    root.Allow({"title", "system", "units", "mesh", "wall", "loads", "supports", "springs"});
    ProjectDraft draft;
    ReadHead(file, draft);
    draft.Freedoms = {{"u", "v"}, 2};
    ReadMesh(root, draft);
    ReadSlab(root, draft, "wall");
    HalveRectangles(draft.Model);
    draft.Search = {};
    ReadSupports(root, draft);
    ReadSprings(root, draft);
    ReadWallLoads(root, draft);
    CheckWhole(root, draft.Model, "wall", false);
    return draft.Model;
}

} // namespace slab
