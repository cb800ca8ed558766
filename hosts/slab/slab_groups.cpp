#include "hosts/slab/slab_groups.h"

#include "hosts/slab/limits.h"
#include "hosts/slab/mesh.h"

#include <algorithm>

namespace slab {

namespace {

const std::vector<std::string>& GroupKeys() {
    static const std::vector<std::string> keys{"thickness", "modulus", "poisson", "unit_weight"};
    return keys;
}

/// Reads the keys of a group that are there.
void ReadGroup(const KeyTable& table, const UnitScale& scale, Group& group, double& unitWeight) {
    if (const auto entry = table.Find("thickness")) {
        group.Thickness = entry->Number(Positive) * scale.Length;
    }
    if (const auto entry = table.Find("modulus")) {
        group.Modulus = entry->Number(Positive) * scale.Modulus;
    }
    if (const auto entry = table.Find("poisson")) {
        group.Poisson = entry->Number(Between(0, 0.5));
    }
    if (const auto entry = table.Find("unit_weight")) {
        unitWeight = Within(*entry, NotNegative, scale.Density, LargestLoad);
    }
}

/// Refuses the first of the keys in the table that makes too little or too much stiffness.
void CheckGroup(const KeyTable& table, const UnitScale& scale, const Group& group) {
    for (const char* key : {"thickness", "modulus"}) {
        const auto entry = table.Find(key);
        if (!entry) {
            continue;
        }
        const double stretching = group.Modulus * group.Thickness;
        CheckRigidity(*entry, "a membrane stiffness E t", stretching, scale.LineLoad,
                      scale.Units.ForceName + '/' + scale.Units.LengthName);
        CheckRigidity(*entry, "a plate stiffness E t3 / 12 (1 - nu2)",
                      stretching * group.Thickness * group.Thickness /
                          (12 * (1 - group.Poisson * group.Poisson)),
                      scale.Moment, scale.Units.ForceName + scale.Units.LengthName);
    }
}

std::string ReadName(const KeyTable& region, const std::vector<Group>& groups) {
    if (!region.Has("name")) {
        return "region " + std::to_string(groups.size());
    }
    std::string name = region.Get("name").Text();
    if (std::any_of(groups.begin(), groups.end(),
                    [&name](const Group& group) { return group.Name == name; })) {
        region.Get("name").Fail("\"" + name + "\" is the name of an earlier group");
    }
    return name;
}

} // namespace

void ReadSlab(const KeyTable& root, ProjectDraft& draft, const char* key) {
    const KeyTable table = root.Table(key);
    std::vector<std::string> keys = GroupKeys();
    keys.emplace_back("regions");
    table.Allow(keys);
    for (const char* needed : {"thickness", "modulus", "poisson"}) {
        table.Get(needed);
    }
    Group general;
    general.Name = key;
    double generalWeight = 0;
    ReadGroup(table, draft.Scale, general, generalWeight);
    CheckGroup(table, draft.Scale, general);
    draft.Model.Groups = {general};
    draft.UnitWeights = {generalWeight};
    keys = GroupKeys();
    keys.insert(keys.end(), {"name", "x", "y", "elements"});
    for (const KeyTable& region : table.Tables("regions")) {
        region.Allow(keys);
        Group group = general;
        double weight = generalWeight;
        group.Name = ReadName(region, draft.Model.Groups);
        ReadGroup(region, draft.Scale, group, weight);
        CheckGroup(region, draft.Scale, group);
        for (const std::size_t i : SelectedElements(region, draft)) {
            draft.Model.Elements[i].Group = static_cast<int>(draft.Model.Groups.size());
        }
        draft.Model.Groups.push_back(group);
        draft.UnitWeights.push_back(weight);
    }
}

} // namespace slab
