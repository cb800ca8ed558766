// Loads of plane systems. Vertical loads of the file are positive downward, v is positive upward.

#include "hosts/slab/limits.h"
#include "hosts/slab/mesh.h"
#include "hosts/slab/plane/plane_mechanism.h"
#include "hosts/slab/plane/plane_reader.h"
#include "hosts/slab/plate_elements.h"
#include "hosts/slab/supports.h"

#include <algorithm>

namespace slab {

namespace {

/// A force of the file, already in kN, at a node.
void AddForce(Model& model, int node, double right, double down) {
    model.NodalLoads[3 * static_cast<std::size_t>(node - 1)] += right;
    model.NodalLoads[3 * static_cast<std::size_t>(node - 1) + 1] -= down;
}

/// `turns` tells where a moment meets something that resists it.
void ReadNodeLoad(const KeyTable& load, ProjectDraft& draft, const std::vector<char>& turns) {
    std::vector<std::string> keys{"fx", "fy"};
    if (!turns.empty()) {
        keys.emplace_back("moment");
    }
    std::vector<std::string> allowed{"node", "at"};
    allowed.insert(allowed.end(), keys.begin(), keys.end());
    load.Allow(allowed);
    if (std::none_of(keys.begin(), keys.end(),
                     [&load](const std::string& key) { return load.Has(key); })) {
        load.Fail("one of these keys is needed: fx, fy" +
                  std::string(turns.empty() ? "" : ", moment"));
    }
    const double right = WithinOrZero(load, "fx", Any, draft.Scale.Force, LargestLoad);
    const double down = WithinOrZero(load, "fy", Any, draft.Scale.Force, LargestLoad);
    const double moment = WithinOrZero(load, "moment", Any, draft.Scale.Moment, LargestLoad);
    for (const int node : ReadPlace(load, draft, {"node", "at"}).Nodes) {
        const auto index = static_cast<std::size_t>(node - 1);
        AddForce(draft.Model, node, right, down);
        if (moment != 0 && !turns[index]) {
            load.Get("moment").Fail("acts at node " + std::to_string(node) +
                                    ", where every member is hinged");
        }
        draft.Model.NodalLoads[3 * index + 2] += moment;
    }
}

[[noreturn]] void FailForName(const Entry& entry, const FrameModel& frame) {
    std::vector<std::string> names;
    for (const Member& member : frame.Members) {
        if (!member.Name.empty() &&
            std::find(names.begin(), names.end(), member.Name) == names.end()) {
            names.push_back(member.Name);
        }
    }
    if (!names.empty()) {
        entry.Choice(names);
    }
    entry.Fail("names a member, but no member has a name");
}

/// The members that a number, a name or a list of them means.
std::vector<std::size_t> MembersOf(const Entry& entry, const FrameModel& frame) {
    std::vector<std::size_t> found;
    const auto take = [&](const Entry& item) {
        if (!item.IsText()) {
            found.push_back(static_cast<std::size_t>(
                item.WholeNumber(1, static_cast<int>(frame.Members.size())) - 1));
            return;
        }
        const std::string name = item.Text();
        const std::size_t before = found.size();
        for (std::size_t m = 0; m < frame.Members.size() && !name.empty(); ++m) {
            if (frame.Members[m].Name == name) {
                found.push_back(m);
            }
        }
        if (found.size() == before) {
            FailForName(item, frame);
        }
    };
    if (!entry.IsList()) {
        take(entry);
        return found;
    }
    for (const Entry& item : entry.List()) {
        take(item);
    }
    if (found.empty()) {
        entry.Fail("names no member (allowed: at least one)");
    }
    return found;
}

void ReadMemberLoad(const KeyTable& load, const UnitScale& scale, FrameModel& frame) {
    load.Allow({"member", "qx", "qy", "w"});
    if (!load.Has("qx") && !load.Has("qy") && !load.Has("w")) {
        load.Fail("one of these keys is needed: qx, qy, w");
    }
    const MemberLoads more{WithinOrZero(load, "qx", Any, scale.LineLoad, LargestLoad),
                           WithinOrZero(load, "qy", Any, scale.LineLoad, LargestLoad),
                           WithinOrZero(load, "w", Any, scale.LineLoad, LargestLoad)};
    for (const std::size_t m : MembersOf(load.Get("member"), frame)) {
        MemberLoads& loads = frame.Members[m].Loads;
        loads.AcrossHeight += more.AcrossHeight;
        loads.AcrossWidth += more.AcrossWidth;
        loads.PerLength += more.PerLength;
    }
}

void ReadEdgeLoad(const KeyTable& load, ProjectDraft& draft) {
    load.Allow({"line", "edge", "qx", "qy"});
    if (!load.Has("qx") && !load.Has("qy")) {
        load.Fail("one of these keys is needed: qx, qy");
    }
    const double right = WithinOrZero(load, "qx", Any, draft.Scale.LineLoad, LargestLoad);
    const double down = WithinOrZero(load, "qy", Any, draft.Scale.LineLoad, LargestLoad);
    const Place place = ReadPlace(load, draft, {"line", "edge"});
    for (const auto& [node, length] : Shares(load, place, draft.Model)) {
        AddForce(draft.Model, node, right * length, down * length);
    }
}

} // namespace

void ReadFrameLoads(const KeyTable& root, ProjectDraft& draft, FrameModel& frame) {
    draft.Model.NodalLoads.assign(3 * draft.Model.Nodes.size(), 0);
    for (Member& member : frame.Members) {
        const Section& section = frame.Sections[member.Section];
        member.Loads.PerLength = section.UnitWeight * section.Area;
    }
    if (!root.Has("loads")) {
        return;
    }
    const KeyTable loads = root.Table("loads");
    loads.Allow({"line", "node"});
    for (const KeyTable& load : loads.Tables("line")) {
        ReadMemberLoad(load, draft.Scale, frame);
    }
    const std::vector<char> turns = RotationMatters(draft.Model, frame.Members);
    for (const KeyTable& load : loads.Tables("node")) {
        ReadNodeLoad(load, draft, turns);
    }
}

void ReadWallLoads(const KeyTable& root, ProjectDraft& draft) {
    Model& wall = draft.Model;
    wall.NodalLoads.assign(3 * wall.Nodes.size(), 0);
    for (const Element& triangle : wall.Elements) {
        const auto group = static_cast<std::size_t>(triangle.Group);
        const double weight =
            draft.UnitWeights[group] * wall.Groups[group].Thickness * ElementArea(wall, triangle);
        for (const int corner : {0, 1, 2}) {
            AddForce(wall, triangle.Node[corner], 0, weight / 3);
        }
    }
    if (!root.Has("loads")) {
        return;
    }
    const KeyTable loads = root.Table("loads");
    loads.Allow({"edge", "node"});
    for (const KeyTable& load : loads.Tables("edge")) {
        ReadEdgeLoad(load, draft);
    }
    for (const KeyTable& load : loads.Tables("node")) {
        ReadNodeLoad(load, draft, {});
    }
}

} // namespace slab
